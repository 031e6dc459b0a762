"""What can stand in the way from outside: files that are not files, locks, buses, full disks, files of other versions.

    outside.py PROGRAM SAMPLES_FOLDER [WORD]

For each case (those that the word is in) a scratch account gets a member of the class and the program is started on it.
A row says how long the answer took, the most memory until then, and the answer; one that is not the expected one is
marked and ends the run with an error. Runs inside a session bus with a display (on_a_screen.sh).
"""
import base64
import fcntl
import json
import os
import pathlib
import re
import resource
import shutil
import signal
import socket
import subprocess
import sys
import tempfile
import threading
import time

import gi
gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, Gio, GLib  # noqa: E402

PATIENCE = 15  # seconds for an answer
ID = "example.corvane.Corvane"
PROGRAM, SAMPLES = sys.argv[1], pathlib.Path(sys.argv[2]).resolve()
SAMPLE, OTHER = SAMPLES / "interview.fcpxml", SAMPLES / "sunday-service.fcpxml"
MESSAGE = r"(Cannot |Open one |This file |What this file |The previous |Saved presets could |Started |Session could |Corvane is running|http)"
Atspi.set_timeout(1000, 0)


class Account:
    """A user's folders, and what runs on them."""

    def __init__(self):
        self.home = pathlib.Path(tempfile.mkdtemp())
        self.data, self.config, self.run, self.work = (
            self.home / name for name in ("share/Corvane", "config/Corvane", "run", "work"))
        for folder in (self.data, self.config, self.run, self.work):
            folder.mkdir(mode=0o700, parents=True)
        self.session, self.presets = self.data / "session-v1.json", self.config / "Corvane.savedPresets.v1"
        self.lock = self.run / f"{ID}.lock"
        self.env = dict(os.environ, HOME=str(self.home), XDG_RUNTIME_DIR=str(self.run),
                        XDG_DATA_HOME=str(self.data.parent), XDG_CONFIG_HOME=str(self.config.parent))
        self.processes, self.held = [], []

    def start(self, *arguments, **how):
        begun = time.time()
        process = subprocess.Popen([PROGRAM, *arguments], env=self.env, stderr=subprocess.DEVNULL, **how)
        process.begun = begun
        self.processes.append(process)
        return process

    def shown(self, _=None):
        """The project in the session that was saved."""
        try:
            xml = base64.b64decode(json.loads(self.session.read_bytes())["sourceXML"]).decode()
        except (OSError, ValueError):
            return None
        return "shows " + re.search(r'<project [^>]*name="([^"]*)"', xml)[1]

    def kept(self, _=None):
        return ", ".join(sorted(path.name for folder in (self.data, self.config) for path in folder.glob("*kept*")))

    def started(self):
        """One that shows the sample, which it has saved."""
        process = self.start(SAMPLE)
        until(self.shown)
        return process

    def end(self):
        for process in self.processes:
            process.kill()
            process.wait()
        subprocess.run(["umount", self.data], stderr=subprocess.DEVNULL, check=False)
        shutil.rmtree(self.home, ignore_errors=True)


def widgets(process):
    """(role, name, node) of everything that the process shows, an alert's own last."""
    def walk(node):
        if node is not None and (node.get_role_name() == "application" or
                                 node.get_state_set().contains(Atspi.StateType.SHOWING)):
            yield node.get_role_name(), node.get_name(), node
            for i in range(node.get_child_count()):
                yield from walk(node.get_child_at_index(i))
    try:
        desktop = Atspi.get_desktop(0)
        apps = [desktop.get_child_at_index(i) for i in range(desktop.get_child_count())]
        return [found for app in apps if app is not None and app.get_process_id() == process.pid for found in walk(app)]
    except GLib.Error:  # a widget that went away, or a program that does not answer
        return []


def said(process):
    """The last message that it shows, or how it ended."""
    found = [name for role, name, _ in widgets(process) if role == "label" and re.match(MESSAGE, name)]
    return found[-1] if found else process.poll() is not None and f"ended with {process.returncode}"


def until(look, patience=PATIENCE):
    end = time.time() + patience
    while time.time() < end:
        if found := look():
            return found
        time.sleep(0.03)
    return None


def press(process, name):
    node = until(lambda: next((node for role, label, node in widgets(process)
                               if role in ("push button", "button", "menu item") and label == name), None))
    if node is None:
        print(f"There is no {name} to press.")
    else:
        node.get_action_iface().do_action(0)


def sparse(path):
    path.touch()
    os.truncate(path, 3 << 30)


def growing(path):
    def write():
        with open(path, "wb", buffering=0) as file:
            file.write(b"<!--")
            while path.exists() and file.tell() < 2 << 30:
                file.write(b"x" * (1 << 16))
    threading.Thread(target=write, daemon=True).start()
    until(lambda: path.exists() and path.stat().st_size > 1 << 20)


def to(target):
    return lambda path: path.symlink_to(target)


CASES = []  # (what it is told as, a part of the answer, the function that starts a process and says what its answer is)


def case(told, expected):
    return lambda function: CASES.append((told, expected, function))


for told, name, make, expected in [
        ("project: a named pipe", "p.fcpxml", os.mkfifo, "Cannot read p.fcpxml: it is a named pipe and not a file."),
        ("project: a link to /dev/zero", "z.fcpxml", to("/dev/zero"), "it is a device and not a file."),
        ("project: a sparse file of 3 GB", "s.fcpxml", sparse, "it is larger than 256 MB"),
        ("project: a file that grows", "g.fcpxml", growing, "large"),  # while it is read or before
        ("project: the kernel's messages", "m.fcpxml", to("/proc/kmsg"), "This file is "),
        ("project: a pipe in a bundle", "b.fcpxmld", lambda path: (path.mkdir(), os.mkfifo(path / "Info.fcpxml")),
         "Cannot read Info.fcpxml: it is a named pipe"),
        ("project: a name that is not UTF-8", "caf\udce9.fcpxml", lambda path: shutil.copy(SAMPLE, path), "not UTF-8")]:
    @case(told, expected)
    def project(account, name=name, make=make):
        make(account.work / name)
        return account.start(account.work / name), said

for told, make, expected in [
        ("session: a named pipe", os.mkfifo, "Cannot read session-v1.json: it is a named pipe"),
        ("session: a sparse file of 3 GB", sparse, "it is larger than 512 MB"),
        ("session: a link to nowhere", to("gone"), "it is a link to gone, and nothing is there.")]:
    @case(told, expected)
    def stored(account, make=make):
        make(account.session)
        return account.start(), said


@case("presets and window place: named pipes", "Saved presets could not be read.")
def presets(account):
    os.mkfifo(account.presets)
    os.mkfifo(account.config / "Corvane.window.geometry")
    return account.start(), said


@case("data folder: a link to nowhere", "Session could not be saved: Cannot make Corvane: it is a link to /gone/away, and")
def data_folder(account):
    account.data.rmdir()
    account.data.symlink_to("/gone/away")
    return account.start(SAMPLE), said


@case("argument: an address", "is an address and not a file on this computer.")
def address(account):
    return account.start("http://127.0.0.1:9/a.fcpxml"), said


for told, content in [("empty", ""), ("foreign", "hello"), ("of a renamed host", f"{os.getpid()}\ncorvane\nelsewhere\n\n")]:
    @case(f"lock: {told}", "shows Interview")
    def lock(account, content=content):
        account.lock.write_text(content)
        return account.start(SAMPLE), account.shown


@case("lock: held by another program", "shows Interview")
def lock_held(account):
    account.held.append(open(account.lock, "w"))
    fcntl.flock(account.held[0], fcntl.LOCK_EX)
    return account.start(SAMPLE), account.shown


@case("a socket path that is too long", "shows Sunday Service")
def long_path(account):
    account.env["XDG_RUNTIME_DIR"] = str(account.run / ("x" * 100))
    os.mkdir(account.env["XDG_RUNTIME_DIR"], 0o700)
    process, second = account.started(), account.start(OTHER)
    return process, lambda _: second.poll() is not None and account.shown() != "shows Interview" and account.shown()


for told, answer in [("accepts and does not answer", b""), ("does not even accept", None),
                     ("lets in and does not answer", b"OK 0123456789abcdef0123456789abcdef\r\n")]:
    @case(f"session bus: {told}", "shows Interview")
    def bus(account, answer=answer):
        path = str(account.run / "bus")
        server = socket.socket(socket.AF_UNIX)
        server.bind(path)
        server.listen(0 if answer is None else 8)
        account.held = [socket.socket(socket.AF_UNIX) for _ in range(2 if answer is None else 0)]
        for client in account.held:  # they fill its queue
            client.setblocking(False)
            client.connect_ex(path)

        def serve():
            while answer is not None:
                account.held.append(server.accept()[0])
                account.held[-1].sendall(answer)
        threading.Thread(target=serve, daemon=True).start()
        account.held.append(server)
        account.env |= {"DBUS_SESSION_BUS_ADDRESS": f"unix:path={path}", "QT_QPA_PLATFORM": "offscreen"}
        return account.start(SAMPLE), account.shown


@case("file size limit at a save", "Session could not be saved: Cannot write session-v1.json: File too large.")
def size_limit(account):
    return account.start(
        SAMPLE, preexec_fn=lambda: resource.setrlimit(resource.RLIMIT_FSIZE, (4096, 4096))), said


def ask_socket(account):
    sender = account.start(OTHER)
    until(lambda: said(sender))
    sender.kill()


def ask_bus(account):
    sender = Gio.DBusConnection.new_for_address_sync(
        account.env["DBUS_SESSION_BUS_ADDRESS"], Gio.DBusConnectionFlags(9), None, None)  # a client of a bus
    try:
        sender.call_sync(ID, "/" + ID.replace(".", "/"), "org.freedesktop.Application", "Open", GLib.Variant(
            "(asa{sv})", ([OTHER.as_uri()], {})), None, Gio.DBusCallFlags.NONE, 1000, None)
    except GLib.Error:
        sender.close_sync()


for road, ask in [("socket", ask_socket), ("bus", ask_bus)]:
    @case(f"hand-over whose sender gave up ({road})", "shows Interview")
    def gave_up(account, ask=ask):
        process = account.started()
        process.send_signal(signal.SIGSTOP)
        ask(account)
        process.send_signal(signal.SIGCONT)
        until(lambda: account.shown() != "shows Interview", 3)
        return process, account.shown


@case("hand-over to one that is killed meanwhile", "shows Sunday Service")
def killed(account):
    process = account.started()
    process.send_signal(signal.SIGSTOP)
    later = account.start(OTHER)
    time.sleep(1)
    process.kill()
    until(lambda: account.shown() == "shows Sunday Service")
    return later, account.shown


@case("hand-over of 3,000 files with long names", "Open one Final Cut XML project at a time")
def many(account):
    process = account.started()
    account.start(*(account.work / f"{'n' * 200}{n}.fcpxml" for n in range(3000))).wait()
    return process, said


@case("the lock's file is gone while the program runs", "shows Sunday Service")
def unlocked(account):
    process = account.started()
    account.lock.unlink()
    account.start(OTHER).wait()  # does not become a second one
    until(lambda: account.shown() == "shows Sunday Service")
    return process, account.shown


def stored_edited(account, change):
    """Leaves a session as another version would have written it."""
    account.started().kill()
    session = json.loads(account.session.read_bytes())
    change(session)
    account.session.write_text(json.dumps(session))


@case("session: of a newer version", "session-v1 (kept).json")
def newer(account):
    stored_edited(account, lambda session: session["settings"].update(speed=2))
    return account.start(), account.kept


@case("session: a link to a file elsewhere", "followed")
def followed(account):
    stored_edited(account, lambda session: session["settings"].update(mainShare=45))
    real = account.session.rename(account.work / "real.json")
    account.session.symlink_to(real)
    before = real.read_bytes()
    return account.start(), lambda _: ("replaced" if not account.session.is_symlink() else
                                       real.read_bytes() != before and "followed")


@case("presets: damaged", "Started a new list. The old one has been kept in the file Corvane.savedPresets.v1 (kept).")
def new_list(account):
    account.presets.write_text('[{"id": "x"}]')
    process = account.start(SAMPLE)
    press(process, "Start a New List…")
    return process, said


@case("quitting on a full disk", "Session could not be saved: Cannot write session-v1.json: No space left on device. Quit")
def full_disk(account):
    if subprocess.run(["mount", "-t", "tmpfs", "-o", "size=64k", "tmpfs", account.data], check=False).returncode != 0:
        return account.start(), lambda _: "SKIPPED, only root can mount: " + CASES[-1][1]
    process = account.started()
    subprocess.run(["dd", "if=/dev/zero", f"of={account.data}/ballast"], stderr=subprocess.DEVNULL, check=False)
    press(process, "Generate rough edit")
    until(lambda: said(process))
    press(process, "File")
    press(process, "Quit")
    until(lambda: "Quit anyway?" in (said(process) or ""), 5)
    return process, said


def main():
    wrong = 0
    for told, expected, function in CASES:
        if len(sys.argv) > 3 and sys.argv[3] not in told:
            continue
        account = Account()
        try:
            process, answers = function(account)
            answer = until(lambda: answers(process)) or f"nothing for {PATIENCE} seconds"
            took = time.time() - process.begun
            status = pathlib.Path(f"/proc/{process.pid}/status").read_text() if process.poll() is None else ""
            memory = int((re.findall(r"VmHWM:\s+(\d+)", status) or [0])[0]) // 1024
        finally:
            account.end()
        wrong += expected not in answer
        print(f"{'  ' if expected in answer else '! '}{told} | {took:.1f} s | {memory} MB | {answer}", flush=True)
    sys.exit(wrong > 0)


if __name__ == "__main__":
    main()
