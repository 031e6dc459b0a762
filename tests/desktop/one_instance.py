"""One running program for each user, however files reach it.

    one_instance.py PROGRAM SAMPLES_FOLDER

Runs inside a session bus that may start the program itself (see one_instance.sh), on scratch accounts and without a
display. What the running program shows is read from the session that it saves.
"""
import base64
import json
import os
import pathlib
import shutil
import signal
import subprocess
import sys
import tempfile
import time

PATIENCE = 15  # seconds
ID = "example.corvane.Corvane"
PATH = "/example/corvane/Corvane"


class Account:
    def __init__(self, program, samples, bus, home=None):
        self.program = program
        self.samples = pathlib.Path(samples)
        self.home = pathlib.Path(home or tempfile.mkdtemp())
        (self.home / "run").mkdir(mode=0o700, exist_ok=True)
        self.env = {"HOME": str(self.home), "XDG_RUNTIME_DIR": str(self.home / "run"), "QT_QPA_PLATFORM": "offscreen",
                    "PATH": os.environ["PATH"]}
        if bus:
            self.env["DBUS_SESSION_BUS_ADDRESS"] = os.environ["DBUS_SESSION_BUS_ADDRESS"]
        self.started = []

    def sample(self, name):
        return str(self.samples / f"{name}.fcpxml")

    def start(self, *arguments):
        process = subprocess.Popen([self.program, *arguments], env=self.env)
        self.started.append(process)
        return process

    def shown(self):
        session = self.home / ".local/share/Corvane/session-v1.json"
        if not session.exists():
            return None
        xml = base64.b64decode(json.loads(session.read_text())["sourceXML"]).decode()
        return xml[xml.index("<project "):].split('name="', 1)[1].split('"', 1)[0]

    def expect_shown(self, name, told):
        end = time.time() + PATIENCE
        while time.time() < end:
            if self.shown() == name:
                print("ok:", told)
                return
            time.sleep(0.05)
        raise SystemExit(f"{told}: shown is {self.shown()!r}")

    def remove(self):
        for process in self.started:
            if process.poll() is None:
                process.kill()
                process.wait()
        shutil.rmtree(self.home, ignore_errors=True)


def expect_ends(process, told):
    if process.wait(PATIENCE) != 0:
        raise SystemExit(f"{told}: ended with {process.returncode}")
    print("ok:", told)


def call(method, *arguments):
    subprocess.run(["gdbus", "call", "--session", "--dest", ID, "--object-path", PATH, "--method",
                    f"org.freedesktop.Application.{method}", *arguments, "{}"], check=True, stdout=subprocess.DEVNULL)


def process_of_the_service():
    reply = subprocess.run(["gdbus", "call", "--session", "--dest", "org.freedesktop.DBus", "--object-path",
                            "/org/freedesktop/DBus", "--method", "org.freedesktop.DBus.GetConnectionUnixProcessID", ID],
                           check=True, capture_output=True, text=True).stdout
    return int(reply.split("uint32 ")[1].split(",")[0])


def starts_and_crashes(account, road):
    first = account.start(account.sample("interview"))
    account.expect_shown("Interview", f"{road}: a file given at the start")
    expect_ends(account.start(account.sample("sunday-service")), f"{road}: a second start ends")
    account.expect_shown("Sunday Service", f"{road}: and the first one shows its file")
    first.send_signal(signal.SIGKILL)
    first.wait()
    again = account.start(account.sample("interview"))
    account.expect_shown("Interview", f"{road}: started again after a crash")
    expect_ends(account.start(), f"{road}: a bare second start ends")
    if again.poll() is not None:
        raise SystemExit("The first one has ended.")
    return again


def requests_over_the_bus(account, running):
    call("Open", f"['{pathlib.Path(account.sample('sunday-service')).as_uri()}']")
    account.expect_shown("Sunday Service", "bus: Open reaches the running program")
    call("Activate")
    running.terminate()
    running.wait()


def started_by_the_bus(account):
    """The bus starts the program on the account that the bus itself runs on."""
    call("Open", f"['{pathlib.Path(account.sample('sunday-service')).as_uri()}']")
    account.expect_shown("Sunday Service", "bus: Open starts the program, which shows the file")
    call("Open", f"['{pathlib.Path(account.sample('interview')).as_uri()}']")
    account.expect_shown("Interview", "bus: Open reaches the program that the bus has started")
    os.kill(process_of_the_service(), signal.SIGKILL)


def main():
    program, samples = sys.argv[1:]
    for road in ("socket", "bus"):
        account = Account(program, samples, bus=road == "bus")
        try:
            running = starts_and_crashes(account, road)
            if road == "bus":
                requests_over_the_bus(account, running)
        finally:
            account.remove()
    started_by_the_bus(Account(program, samples, bus=True, home=os.environ["HOME"]))


if __name__ == "__main__":
    main()
