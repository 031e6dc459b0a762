"""Drives the running program from import to cut list as assistive technology does.

    assistive_story.py PROGRAM SAMPLES_FOLDER
"""
from running import BUTTON, SAMPLE, Account, Atspi, find, press, until, widgets

FIELD, LABEL, NUMBER = ("text", "entry"), ("label",), ("spin button",)
account = Account()
process = account.start()


def expect(look, told):
    if not until(look):
        raise RuntimeError(f"Expected: {told}")
    print("ok:", told)


def seen(name, *roles):
    return find(process, name, roles)


def text(node):
    return Atspi.Text.get_text(node, 0, -1)


def put(node, words):
    Atspi.EditableText.set_text_contents(node, words)


def gone(name):
    expect(lambda: all(node.get_name() != name for node in widgets(process)), f"the end of {name!r}")


def has(node, state):
    return node.get_state_set().contains(state)


def read_help_and_about():
    """Over the window, and then in the windows of the menu."""
    for roles, open_help, open_about in [(BUTTON, "Help", "About"), (("menu item",), "Corvane Help", "About Corvane")]:
        press(process, open_help, roles)
        seen("Corvane Help", "dialog")
        search = seen("Search the manual", *FIELD)
        put(search, "no such word")
        seen("No matching topics", *LABEL)
        press(process, "Clear the search")
        expect(lambda: text(search) == "", "the button that ends the search has a name")
        press(process, "Close")
        gone("Corvane Help")
        press(process, open_about, roles)
        seen("About Corvane", "dialog")
        link = seen("Corvane website", "link")
        expect(lambda: link.grab_focus() and has(link, Atspi.StateType.FOCUSED), "the website is a link that takes the focus")
        press(process, "Close")
        gone("About Corvane")


def import_project():
    press(process, "Drag a project from Final Cut’s browser here, or drop an XML file")
    seen("Import Final Cut XML", "dialog", "file chooser")
    seen("Choose a .fcpxml file or .fcpxmld bundle.", *LABEL)
    put(seen("File name:", *FIELD), str(SAMPLE))
    press(process, "Open")


def change_settings():
    picker = seen("Main camera", "combo box")
    entries = [picker.get_child_at_index(n) for n in range(picker.get_child_count())]
    other = next(entry for entry in entries if entry.get_name() != text(picker))
    other.get_action_iface().do_action(0)
    expect(lambda: text(seen("Main camera", "combo box")) == other.get_name(), "an entry of a picker can be pressed")
    wait = seen("Wait before returning to main camera: 0 sec", *NUMBER)
    expect(lambda: Atspi.Value.get_minimum_increment(wait) == 10, "number boxes tell their steps")
    put(wait, "604")
    Atspi.Value.set_current_value(seen("Wait before returning to main camera: 600 sec", *NUMBER), 0)
    Atspi.Value.set_current_value(seen("Target screen time: Main 70% · Other cameras combined 30%", "slider"), 43)
    seen("Target screen time: Main 45% · Other cameras combined 55%", "slider")
    press(process, "Opening", ("check box",))
    expect(lambda: has(seen("Opening", "check box"), Atspi.StateType.CHECKED), "a box can be ticked")
    press(process, "Opening", ("check box",))
    press(process, "Add section")
    put(seen("End", *FIELD), "half past nine")
    expect(lambda: seen("End", *FIELD).get_description().startswith("Enter timecode as HH:MM:SS:FF"), "what is wrong")
    controls = [node.get_name() for node in widgets(process) if node.get_role_name() in (*FIELD, *BUTTON, "combo box")]
    first = controls.index("Add section")
    expect(lambda: controls[first + 1:first + 6] == ["Section name (optional)", "Camera", "Start", "End", "Remove"],
           f"a section is read in its order: {controls}")
    press(process, "Remove")
    press(process, "Undo Remove Section", ("menu item",))
    expect(lambda: text(seen("End", *FIELD)) == "half past nine", "what was removed comes back as it was")
    press(process, "Redo Remove Section", ("menu item",))
    gone("Remove")


def hold_and_release():
    """A row that is selected, without the focus."""
    Atspi.Table.add_row_selection(seen("Cuts", "table"), 1)
    press(process, "Hold Shots", ("menu item",))
    seen("Edit 2 of 2", *BUTTON)
    expect(lambda: text(seen("Section name (optional)", *FIELD)) == "Held", "a held shot is a section")
    press(process, "Undo Hold", ("menu item",))
    seen("Edit 1 of 2", *BUTTON)
    press(process, "Redo Hold", ("menu item",))
    seen("Edit 2 of 2", *BUTTON)
    Atspi.Table.add_row_selection(seen("Cuts", "table"), 1)
    press(process, "Release Shots", ("menu item",))
    seen("Edit 3 of 3", *BUTTON)
    gone("Remove")


def cut_rows():
    table = seen("Cuts", "table")
    titles = [Atspi.Table.get_column_header(table, column).get_name() for column in range(3)]
    expect(lambda: titles == ["Start (Timecode)", "Camera", "Duration (seconds)"], f"the table's columns are {titles}")
    return [[Atspi.Table.get_accessible_at(table, row, column).get_name() for column in range(3)]
            for row in range(Atspi.Table.get_n_rows(table))]


def choose_in_the_strip():
    strip, table = seen("The whole edit", "slider"), seen("Cuts", "table")
    expect(lambda: Atspi.Value.get_maximum_value(strip) == Atspi.Table.get_n_rows(table), "the strip counts its cuts")
    expect(lambda: "Left and Right go from cut to cut" in strip.get_description(), "the strip names its keys")
    expect(lambda: strip.grab_focus() and has(strip, Atspi.StateType.FOCUSED), "the strip takes the focus")
    Atspi.Table.add_row_selection(table, 2)
    expect(lambda: text(strip).startswith("Cut 3 of "), "the strip goes to a row that is chosen")
    Atspi.Value.set_current_value(strip, 2)
    row = [Atspi.Table.get_accessible_at(table, 1, column) for column in range(3)]
    expect(lambda: text(strip).startswith("Cut 2 of ") and row[0].get_name() in text(strip) and row[1].get_name() in
           text(strip), f"the strip tells where its cut is: {text(strip)}")
    expect(lambda: has(row[0], Atspi.StateType.SELECTED), "the table chooses the same cut")
    seen(row[1].get_name(), *LABEL)


def check_and_try():
    expect(lambda: seen("Usable", "image", "icon", "graphic").get_description() == "The whole project can be cut.",
           "the row Usable says what can be cut")
    press(process, "Check project…")
    sheet = seen("What can be cut, and what an export will refuse", *FIELD)
    expect(lambda: text(sheet).startswith("The whole project can be cut"), "the check is read")
    press(process, "Close")
    press(process, "Try these rules")
    table = seen("Share in the tries", "table")
    expect(lambda: [Atspi.Table.get_accessible_at(table, row, 1).get_name() for row in
                    range(Atspi.Table.get_n_rows(table))] == ["70.0%", "15.0%", "15.0%"], "targets stand beside the shares")
    press(process, "Close")
    gone("Share in the tries")


try:
    read_help_and_about()
    import_project()
    check_and_try()
    change_settings()
    expect(lambda: seen("Apply", *BUTTON).get_description() == "Choose a preset first.", "a disabled button says why")
    press(process, "Generate rough edit")
    row = Atspi.Table.get_accessible_at(seen("Cuts", "table"), 0, 0)
    expect(lambda: row.get_description().startswith("The edit begins on the main camera. "), "a row says why it is there")
    choose_in_the_strip()
    press(process, "Shuffle rough edit")
    seen("Edit 2 of 2", *BUTTON)
    second = cut_rows()
    press(process, "Back")
    press(process, "Edit 1 of 2")
    edits = seen("All edits", "table")
    lines = [Atspi.Table.get_accessible_at(edits, row, 0).get_name() for row in range(Atspi.Table.get_n_rows(edits))]
    expect(lambda: len(lines) == 2 and lines[0].startswith("Edit 1, on screen, made ") and "main camera" in lines[1],
           f"each edit is a line: {lines}")
    seen("The next new edit replaces edit 2.", *LABEL)
    press(process, "Close")
    gone("All edits")
    first = cut_rows()
    expect(lambda: first != second and first[0][0] == second[0][0] and all(row[1] and float(row[2]) > 0 for row in first),
           f"stepping back shows the first edit, of {len(first)} cuts")
    hold_and_release()
finally:
    account.end()
