"""Accounts of users, the program as it runs on them, and what assistive technology sees of it.

Programs that import this run on a display (see on_a_screen.sh) and are given the program and the folder of its samples.
"""
import base64
import json
import os
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile
import time

import gi
gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, Gio, GLib  # noqa: E402

PATIENCE = 15  # seconds for an answer
ID = "example.corvane.Corvane"
PROGRAM, SAMPLES = sys.argv[1], pathlib.Path(sys.argv[2]).resolve()
SAMPLE, OTHER = SAMPLES / "interview.fcpxml", SAMPLES / "sunday-service.fcpxml"
BUTTON = ("push button", "button")  # as older and newer accessibility libraries call it
Atspi.set_timeout(1000, 0)


def until(look, patience=PATIENCE):
    """What `look` finds, as soon as it finds something. A program that is too busy to answer is asked again."""
    end = time.time() + patience
    while time.time() < end:
        try:
            if found := look():
                return found
        except GLib.GError:
            pass
        time.sleep(0.1)
    return None


def connection(address):
    """A client's, of its own."""
    return Gio.DBusConnection.new_for_address_sync(address, Gio.DBusConnectionFlags(9), None, None)


def call(bus, name, path, interface, method, arguments=None, patience=1000 * PATIENCE):
    return bus.call_sync(name, path, interface, method, arguments, None, 0, patience, None)


class Account:
    """A user's folders and bus, which can start the program, and what runs on them. One for each process."""

    def __init__(self):
        self.home = pathlib.Path(tempfile.mkdtemp())
        self.data, self.config, self.run, self.work = (
            self.home / name for name in ("share/Corvane", "config/Corvane", "run", "work"))
        services = self.home / "share/dbus-1/services"
        for folder in (self.data, self.config, self.run, self.work, services):
            folder.mkdir(mode=0o700, parents=True)
        screen = "DISPLAY=" + os.environ["DISPLAY"]  # for the program alone: registries on one screen wait for each other
        (services / f"{ID}.service").write_text(f"[D-BUS Service]\nName={ID}\nExec=/usr/bin/env {screen} {PROGRAM}\n")
        self.session, self.presets = self.data / "session-v1.json", self.config / "Corvane.savedPresets.v1"
        self.lock = self.run / f"{ID}.lock"
        self.env = dict(os.environ, HOME=str(self.home), XDG_RUNTIME_DIR=str(self.run),
                        XDG_DATA_HOME=str(self.data.parent), XDG_CONFIG_HOME=str(self.config.parent))
        bus = subprocess.Popen(["/usr/bin/env", "-u", "DISPLAY", "dbus-daemon", "--session", "--nofork", "--print-address"],
                               env=self.env, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, text=True)
        self.env["DBUS_SESSION_BUS_ADDRESS"] = bus.stdout.readline().strip()
        self.processes, self.held = [bus], []
        address = call(self.client(), "org.a11y.Bus", "/org/a11y/bus", "org.a11y.Bus", "GetAddress")[0]
        call(connection(address), "org.a11y.atspi.Registry", "/", "org.freedesktop.DBus.Peer", "Ping")  # it is there
        os.environ["AT_SPI_BUS_ADDRESS"] = address

    def client(self):
        return connection(self.env["DBUS_SESSION_BUS_ADDRESS"])

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

    def started(self):
        """One that shows the sample, which it has saved."""
        process = self.start(SAMPLE)
        until(self.shown)
        return process

    def end(self):
        for process in reversed(self.processes):
            process.kill()
            process.wait()
        subprocess.run(["umount", self.data], stderr=subprocess.DEVNULL, check=False)
        shutil.rmtree(self.home, ignore_errors=True)


def widgets(process, hidden=False):
    """Everything that the process shows, an alert's own last; with what it does not show, too."""
    def walk(node):
        if node is not None and (hidden or node.get_state_set().contains(Atspi.StateType.SHOWING)):
            yield node
            for i in range(node.get_child_count()):
                yield from walk(node.get_child_at_index(i))
    desktop = Atspi.get_desktop(0)
    for number in range(desktop.get_child_count()):
        try:
            app = desktop.get_child_at_index(number)
            if app is not None and app.get_process_id() == process.pid:
                for i in range(app.get_child_count()):
                    yield from walk(app.get_child_at_index(i))
        except GLib.Error:  # a widget that went away, or a program that does not answer
            continue


def find(process, name, roles=BUTTON, hidden=False):
    node = until(lambda: next((node for node in widgets(process, hidden)
                               if node.get_name() == name and node.get_role_name() in roles), None))
    if node is None:
        raise RuntimeError(f"There is no {name!r} among {roles}.")
    return node


def press(process, name, roles=BUTTON):
    """What stands in a menu need not be seen."""
    find(process, name, roles, hidden=roles == ("menu item",)).get_action_iface().do_action(0)
