"""A drag from a program that offers everything and answers nothing.

    silent_drag.py PROGRAM

Speaks the drag protocol of X11 to the running program, whose toolkit waits some seconds for each answer: the program
may ask for nothing while the drag hovers, and once after the drop, and then says what it could not read. Run it on a
screen (see on_a_screen.sh).
"""
import ctypes
import subprocess
import sys
import time

PATIENCE = 40  # seconds
CLIENT_MESSAGE, SELECTION_REQUEST = 33, 30
x = ctypes.CDLL("libX11.so.6")
for function in (x.XOpenDisplay, x.XDefaultRootWindow, x.XInternAtom, x.XCreateSimpleWindow):
    function.restype = ctypes.c_void_p
display = ctypes.c_void_p(x.XOpenDisplay(None))
root = ctypes.c_void_p(x.XDefaultRootWindow(display))


class ClientMessage(ctypes.Structure):
    _fields_ = [("type", ctypes.c_int), ("serial", ctypes.c_ulong), ("sent", ctypes.c_int),
                ("display", ctypes.c_void_p), ("window", ctypes.c_void_p), ("message", ctypes.c_void_p),
                ("format", ctypes.c_int), ("data", ctypes.c_long * 5)]


class Event(ctypes.Union):
    _fields_ = [("type", ctypes.c_int), ("client", ClientMessage), ("room", ctypes.c_long * 24)]


def atom(name):
    return x.XInternAtom(display, name.encode(), 0)


def windows(title):
    """The windows with a title, apart from the toolkit's own small ones, each with the middle of its place."""
    found, waiting = [], [root.value]
    while waiting:
        window = ctypes.c_void_p(waiting.pop())
        other, children, count = ctypes.c_void_p(), ctypes.POINTER(ctypes.c_void_p)(), ctypes.c_uint()
        x.XQueryTree(display, window, *map(ctypes.byref, (other, other, children, count)))
        waiting += [children[i] for i in range(count.value)]
        name, place = ctypes.c_char_p(), [ctypes.c_int() for _ in range(6)]
        x.XFetchName(display, window, ctypes.byref(name))
        x.XGetGeometry(display, window, ctypes.byref(other), *map(ctypes.byref, place))
        if name.value == title and place[2].value > 100:
            left, top = ctypes.c_int(), ctypes.c_int()
            x.XTranslateCoordinates(display, window, root, 0, 0, *map(ctypes.byref, (left, top, other)))
            found.append((window, left.value + place[2].value // 2, top.value + place[3].value // 2))
    return found


def until(what, told):
    end = time.time() + PATIENCE
    while time.time() < end:
        found = what()
        if found:
            return found
        time.sleep(0.05)
    raise SystemExit(f"Not seen: {told}")


class Source:
    def __init__(self, target):
        self.target, self.asked = target, 0
        self.window = x.XCreateSimpleWindow(display, root, 0, 0, 1, 1, 0, 0, 0)
        x.XSetSelectionOwner(display, ctypes.c_void_p(atom("XdndSelection")), ctypes.c_void_p(self.window), 0)

    def send(self, name, *data):
        event = Event()
        event.client = ClientMessage(CLIENT_MESSAGE, 0, 1, display, self.target, atom(name), 32,
                                     (ctypes.c_long * 5)(self.window, *data))
        x.XSendEvent(display, self.target, 0, 0, ctypes.byref(event))
        x.XFlush(display)

    def told(self, name):
        """Whether the next message of this name says yes. Meanwhile questions are counted, and not answered."""
        def look():
            while x.XPending(display):
                event = Event()
                x.XNextEvent(display, ctypes.byref(event))
                self.asked += event.type == SELECTION_REQUEST
                if event.type == CLIENT_MESSAGE and event.client.message == atom(name):
                    return [event.client.data[1] & 1 == 1]
            return None
        return until(look, name)[0]


def expect(is_so, told):
    if not is_so:
        raise SystemExit(f"Expected: {told}")
    print("ok:", told)


process = subprocess.Popen([sys.argv[1]])
try:
    target, across, down = until(lambda: windows(b"Corvane"), "the window")[0]
    source = Source(target)
    types = [atom(f"com.apple.finalcutpro.xml.v1-{minor}") for minor in (13, 14)]
    source.send("XdndEnter", 5 << 24, *types, atom("text/uri-list"))
    for step in range(5):
        source.send("XdndPosition", 0, (across + step) << 16 | down, 0, atom("XdndActionCopy"))
        expect(source.told("XdndStatus"), "the drag is welcome")
    expect(source.asked == 0, "a drag that hovers is asked for nothing")
    source.send("XdndDrop", 0, 0, 0)
    expect(not source.told("XdndFinished"), "the drop was not taken")
    expect(source.asked == 1, f"it was asked once: {source.asked}")
    until(lambda: len(windows(b"Corvane")) > 1, "the alert")
finally:
    process.terminate()
    process.wait()
