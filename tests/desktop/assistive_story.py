"""Drives the running program as assistive technology does: it knows only what stands on the screen.

    assistive_story.py PROGRAM PROJECT

Reads Help and About, imports through the file chooser, chooses a main camera, generates, steps back, changes settings
and reads the cut table. Run it inside a session bus with a display (see on_a_screen.sh).
"""
import os
import subprocess
import sys
import time

try:
    import pyatspi
except ImportError:
    print("SKIPPED: python3-pyatspi is not installed")
    sys.exit(77)

PATIENCE = 15  # seconds for the program to do what was asked
BUTTON = ("push button", "button")  # as older and newer accessibility libraries call it


def until(what, told):
    """What `what` finds, as soon as it finds something."""
    end = time.time() + PATIENCE
    while time.time() < end:
        try:
            found = what()
        except Exception:  # a widget that went away while it was looked at
            found = None
        if found:
            return found
        time.sleep(0.05)
    raise SystemExit(f"Not found: {told}")


def walk(node):
    yield node
    for i in range(node.childCount):
        child = node.getChildAtIndex(i)
        if child is not None:
            yield from walk(child)


def application():
    desktop = pyatspi.Registry.getDesktop(0)
    return next((app for app in desktop if app is not None and app.name in ("Corvane", "corvane")), None)


def showing(node):
    return node.getState().contains(pyatspi.STATE_SHOWING)


def find(name, role=None, nth=0):
    def look():
        matching = [node for node in walk(until(application, "the program"))
                    if node.name == name and (role is None or node.getRoleName() in role) and showing(node)]
        return matching[nth] if len(matching) > nth else None
    return until(look, f"{role or 'anything'} named {name!r}")


def gone(name):
    until(lambda: not [n for n in walk(application()) if n.name == name and showing(n)], f"the end of {name!r}")


def press(node, wanted=("Press", "Toggle", "press", "click")):
    action = node.queryAction()
    for i in range(action.nActions):
        if action.getName(i) in wanted:
            action.doAction(i)
            return
    raise SystemExit(f"{node.name!r} has no action to press: {[action.getName(i) for i in range(action.nActions)]}")


def text(node):
    return node.queryText().getText(0, -1)


def expect(is_so, told):
    if not is_so:
        raise SystemExit(f"Expected: {told}")
    print("ok:", told)


def menu_item(menu, name):
    """An item of a menu that need not be open."""
    def look():
        return next((item for bar in walk(application()) if bar.name == menu and bar.getRoleName() == "menu item"
                     for item in walk(bar) if item.name == name), None)
    return until(look, f"{name!r} in the menu {menu!r}")


def read_help_and_about():
    """Over the window, and then in the windows of the menu."""
    for open_help in (lambda: find("Help", BUTTON), lambda: menu_item("Help", "Corvane Help")):
        press(open_help())
        manual = find("Corvane Help", ("dialog",))
        search = find("Search the manual", ("text", "entry"))
        search.queryEditableText().setTextContents("no such word")
        find("No matching topics", ("label",))
        press(find("Clear the search", BUTTON))
        until(lambda: text(search) == "", "the end of the search")
        press(next(node for node in walk(manual) if node.name == "Close" and node.getRoleName() in BUTTON))
        gone("Corvane Help")
    expect(True, "the manual is a dialog, and the button that ends its search has a name")
    for open_about in (lambda: find("About", BUTTON), lambda: menu_item("Help", "About Corvane")):
        press(open_about())
        find("About Corvane", ("dialog",))
        link = find("Corvane website", ("link",))
        until(lambda: link.queryComponent().grabFocus() and focused(link), "the focus on the link")
        press(find("Close", BUTTON))
        gone("About Corvane")
    expect(True, "About is a dialog, and the website a link")


def focused(node):
    return node.getState().contains(pyatspi.STATE_FOCUSED)


def import_project(project):
    press(find("Drag a project from Final Cut’s browser here, or drop an XML file", BUTTON))
    find("Import Final Cut XML", ("dialog", "file chooser"))
    find("Choose a .fcpxml file or .fcpxmld bundle.", ("label",))
    field = find("File name:", ("text",))
    field.queryEditableText().setTextContents(project)
    press(find("Open", BUTTON))
    expect(find("Generate rough edit", BUTTON), "the project is loaded")


def choose_main_camera():
    picker = find("Main camera", ("combo box",))
    before = text(picker)
    picker.queryComponent().grabFocus()
    until(lambda: focused(picker), "the focus on the picker")
    other = next(entry for entry in picker if entry.name != before)
    chosen = other.name
    press(other)
    until(lambda: text(find("Main camera", ("combo box",))) == chosen, "the choice")
    expect(True, f"the main camera was {before!r} and is {chosen!r}")


def change_numbers():
    wait = find("Wait before returning to main camera: 0 sec", ("spin button",))
    steps = [box.queryValue().minimumIncrement for box in (wait, find("Minimum: 10 sec", ("spin button",)))]
    expect(steps == [10, 1], f"number boxes tell their steps, {steps}")
    wait.queryEditableText().setTextContents("604")
    wait = find("Wait before returning to main camera: 600 sec", ("spin button",))
    expect(text(wait) == "600", "what is beyond the range goes to its nearest end")
    wait.queryValue().currentValue = 0
    find("Wait before returning to main camera: 0 sec")


def cut_rows():
    table = find("Cuts", ("table",)).queryTable()
    titles = [table.getColumnHeader(column).name for column in range(table.nColumns)]
    expect(titles == ["Start (Timecode)", "Camera", "Duration (seconds)"], f"the table's columns are {titles}")
    return [[table.getAccessibleAt(row, column).name for column in range(3)] for row in range(table.nRows)]


def usable(node):
    return node.getState().contains(pyatspi.STATE_SENSITIVE)


def use_a_bookend_and_a_section():
    picker = find("Camera", ("combo box",))
    expect(not usable(picker), "the opening's camera cannot be chosen while Opening is off")
    press(find("Opening", ("check box",)))
    until(lambda: usable(find("Camera", ("combo box",))), "a camera for the opening")
    press(find("Opening", ("check box",)))
    press(find("Add section", BUTTON))
    find("Remove", BUTTON)
    controls = [node.name for node in walk(find("Fixed camera sections"))
                if node.getRoleName() in ("text", "combo box") + BUTTON and node.getState().contains(pyatspi.STATE_SHOWING)]
    expect(controls == ["Add section", "Section name (optional)", "Camera", "Start", "End", "Remove"],
           f"a section is read in its order: {controls}")
    start, end = find("Start", ("text",)), find("End", ("text",))
    right = text(end)
    end.queryEditableText().setTextContents("half past nine")
    until(lambda: end.description.startswith("Enter timecode as HH:MM:SS:FF"), "what is wrong with the text")
    end.queryEditableText().setTextContents(text(start))
    until(lambda: start.description == end.description == "The end must be after the start.", "both say it")
    end.queryEditableText().setTextContents(right)
    until(lambda: "must be" not in end.description, "the end of the complaint")
    press(find("Remove", BUTTON))
    expect(True, "bookends and sections tell what can be done and what is wrong")


def main():
    program, project = sys.argv[1:]
    process = subprocess.Popen([program])
    try:
        find("Corvane", ("frame",))
        read_help_and_about()
        import_project(project)
        choose_main_camera()
        change_numbers()
        reason = find("Apply", BUTTON).description
        expect(reason == "Choose a preset first.", f"a disabled button says why: {reason}")
        press(find("Generate rough edit", BUTTON))
        press(find("Shuffle rough edit", BUTTON))
        find("Edit 2 of 2")
        second = cut_rows()
        press(find("Back", BUTTON))
        find("Edit 1 of 2")
        first = cut_rows()
        shuffle = find("Shuffle rough edit", BUTTON)
        expect(shuffle.description == "Replaces edit 2", "Shuffle says which edit it replaces")
        expect(first != second and first[0][0] == second[0][0], "stepping back shows the first edit")
        total = sum(float(row[2]) for row in first)
        expect(total > 0 and all(row[1] for row in first), f"{len(first)} cuts of {total:.3f} seconds are read")

        share = find("Target screen time: Main 70% · Other cameras combined 30%", ("slider",))
        share.queryValue().currentValue = 43
        find("Target screen time: Main 45% · Other cameras combined 55%", ("slider",))
        find("Generate an edit to preview the cuts here.", ("label",))
        minimum = find("Minimum: 10 sec", ("spin button",))
        minimum.queryValue().currentValue = 30
        find("Maximum: 30 sec", ("spin button",))
        press(find("Randomly double main camera holds", ("check box",)))
        until(lambda: find("Randomly double main camera holds").getState().contains(pyatspi.STATE_CHECKED), "a check")
        expect(True, "settings change and what depends on them follows")
        use_a_bookend_and_a_section()
        press(find("Generate rough edit", BUTTON))
        find("Edit 2 of 2")
        expect(len(cut_rows()) > 0, "the new edit is read")
    finally:
        process.terminate()
        process.wait()


if __name__ == "__main__":
    os.environ.setdefault("QT_LINUX_ACCESSIBILITY_ALWAYS_ON", "1")
    main()
