"""What can stand in the way from outside: files that are not files, locks, buses, full disks, files of other versions,
second starts.

    outside.py PROGRAM SAMPLES_FOLDER [WORD]

For each case (those that the word is in) a scratch account gets a member of the class and the program is started on it.
A row says how long the answer took, the most memory until then, and the answer; one that is not the expected one is
marked and ends the run with an error. Cases run side by side.
"""
import fcntl
import multiprocessing
import os
import pathlib
import re
import signal
import socket
import subprocess
import sys
import threading
import time
import types

from running import ID, OTHER, PATIENCE, SAMPLE, Account, GLib, call, press, until, widgets

MESSAGE = r"(Cannot |Open one |This file |What this file |The previous |Saved presets could |Started |Session could |Corvane is running|http)"


def said(process):
    """The last message that it shows, or how it ended."""
    found = [name for name in (node.get_name() for node in widgets(process) if node.get_role_name() == "label")
             if re.match(MESSAGE, name)]
    return found[-1] if found else process.poll() is not None and f"ended with {process.returncode}"


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


CASES = []  # (what it is told as, a part of the answer, the function that starts a process and says what its answer is)


def case(told, expected):
    return lambda function: CASES.append((told, expected, function))


for told, name, make, expected in [
        ("project: a named pipe", "p.fcpxml", os.mkfifo, "Cannot read p.fcpxml: it is a named pipe and not a file."),
        ("project: a sparse file of 3 GB", "s.fcpxml", sparse, "it is larger than 256 MB"),
        ("project: a file that grows", "g.fcpxml", growing, "large"),  # while it is read or before
        ("project: the kernel's messages", "m.fcpxml", lambda path: path.symlink_to("/proc/kmsg"), "This file is "),
        ("project: a pipe in a bundle", "b.fcpxmld", lambda path: (path.mkdir(), os.mkfifo(path / "Info.fcpxml")),
         "Cannot read Info.fcpxml: it is a named pipe")]:
    @case(told, expected)
    def project(account, name=name, make=make):
        make(account.work / name)
        return account.start(account.work / name), said

for told, make, expected in [
        ("session: a named pipe", os.mkfifo, "Cannot read session-v1.json: it is a named pipe"),
        ("session: a sparse file of 3 GB", sparse, "it is larger than 512 MB")]:
    @case(told, expected)
    def stored(account, make=make):
        make(account.session)
        return account.start(), said


@case("presets and window place: named pipes", "Saved presets could not be read.")
def presets(account):
    os.mkfifo(account.presets)
    os.mkfifo(account.config / "Corvane.window.geometry")
    return account.start(), said


for told, make in [("of a renamed host", lambda path: path.write_text(f"{os.getpid()}\ncorvane\nelsewhere\n\n")),
                   ("a named pipe", os.mkfifo), ("a link to /dev/zero", lambda path: path.symlink_to("/dev/zero"))]:
    @case(f"lock: {told}", "shows Interview, and held the lock")
    def lock(account, make=make):
        make(account.lock)
        process = account.started()
        account.start().wait(PATIENCE)  # does not take it away
        held = process.poll() is None and os.path.lexists(account.lock)
        return process, lambda _: held and account.shown() + ", and held the lock"


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


def ask_socket(account):
    sender = account.start(OTHER)
    until(lambda: said(sender))
    sender.kill()


def ask_bus(account, method="Open", given=GLib.Variant("(asa{sv})", ([OTHER.as_uri()], {})), patience=1000):
    """The id of the process that answered."""
    sender = account.client()
    try:
        call(sender, ID, "/" + ID.replace(".", "/"), "org.freedesktop.Application", method, given, patience)
        return call(sender, "org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus",
                    "GetConnectionUnixProcessID", GLib.Variant("(s)", (ID,)))[0]
    except GLib.Error:
        return sender.close_sync()


@case("the bus starts the program, and reaches it", "shows Interview")
def started_by_the_bus(account):
    pid = ask_bus(account, patience=1000 * PATIENCE)
    process = types.SimpleNamespace(
        pid=pid, begun=time.time(), poll=lambda: None, kill=lambda: os.kill(pid, signal.SIGKILL), wait=lambda: None)
    account.processes.append(process)
    until(lambda: account.shown() == "shows Sunday Service")
    ask_bus(account, "Activate", GLib.Variant("(a{sv})", ({},)))
    again = ask_bus(account, given=GLib.Variant("(asa{sv})", ([SAMPLE.as_uri()], {})))
    return process, lambda _: account.shown() != "shows Sunday Service" and again == pid and account.shown()


for road in ("socket", "bus"):
    @case(f"second starts after a crash ({road})", "shows Interview")
    def second(account, road=road):
        if road == "socket":
            del account.env["DBUS_SESSION_BUS_ADDRESS"]
            account.env["QT_QPA_PLATFORM"] = "offscreen"
        account.started().kill()
        first = account.start(OTHER)
        until(lambda: account.shown() == "shows Sunday Service")
        ends = [account.start(*given).wait(PATIENCE) for given in ([], [SAMPLE])]
        until(lambda: account.shown() == "shows Interview")
        return first, lambda _: f"they ended with {ends}" if ends != [0, 0] else first.poll() is None and account.shown()


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
    press(process, "Quit", ("menu item",))
    until(lambda: "Quit anyway?" in (said(process) or ""), 5)
    return process, said


def run(number):
    """A row about the case, and whether its answer is wrong."""
    told, expected, function = CASES[number]
    account = Account()
    try:
        process, answers = function(account)
        answer = until(lambda: answers(process)) or f"nothing for {PATIENCE} seconds"
        took = time.time() - process.begun
        status = pathlib.Path(f"/proc/{process.pid}/status").read_text() if process.poll() is None else ""
        memory = int((re.findall(r"VmHWM:\s+(\d+)", status) or [0])[0]) // 1024
    finally:
        account.end()
    wrong = expected not in answer
    print(f"{'! ' if wrong else '  '}{told} | {took:.1f} s | {memory} MB | {answer}", flush=True)
    return wrong


if __name__ == "__main__":
    chosen = [number for number, (told, _, _) in enumerate(CASES) if len(sys.argv) < 4 or sys.argv[3] in told]
    with multiprocessing.Pool(4, maxtasksperchild=1) as pool:
        sys.exit(any(pool.map(run, chosen, 1)))
