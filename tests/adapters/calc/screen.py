"""A screen of the test's own, and the windows on it: seen through accessibility, photographed, clicked."""

import os
import pathlib
import subprocess
import time

import uno  # noqa: F401
from com.sun.star.uno import RuntimeException

from office import PATIENCE


class Screen:
    """with Screen() as screen: ... A virtual display, for the office's generic look without a window manager.

    Another look, "gtk3", has a window manager as on a desktop, and the generic one where it is `managed`. `settings` are
    told to the offices on the screen by their environment: GTK_THEME, for example.
    """

    def __init__(self, width=1280, height=800, look="gen", managed=False, **settings):
        self.managed = managed or look != "gen"
        self.size = f"{width}x{height}x24"
        self.server = None
        self.manager = None
        self.settings = {"SAL_USE_VCLPLUGIN": look, **settings}
        self.before = {}

    def __enter__(self):
        read, write = os.pipe()
        self.server = subprocess.Popen(
            ["timeout", "-k", "5", "1150", "Xvfb", "-displayfd", str(write), "-screen", "0", self.size,
             "-nolisten", "tcp"],
            pass_fds=[write], stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL,
            stderr=subprocess.DEVNULL)
        os.close(write)
        with os.fdopen(read) as answer:
            number = answer.readline().strip()
        self.settings["DISPLAY"] = ":" + number
        self.before = {name: os.environ.get(name) for name in self.settings}
        os.environ.update(self.settings)
        if self.managed:
            self.manager = subprocess.Popen(["timeout", "-k", "5", "1150", "openbox"], stdin=subprocess.DEVNULL,
                                            stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        return self

    def __exit__(self, *_):
        for program in filter(None, (self.manager, self.server)):
            program.terminate()
            program.wait()
        for name, value in self.before.items():
            os.environ.pop(name)
            if value is not None:
                os.environ[name] = value

    @staticmethod
    def picture(file):
        pathlib.Path(file).parent.mkdir(parents=True, exist_ok=True)
        subprocess.run(["timeout", "120", "import", "-window", "root", str(file)], check=True,
                       stdin=subprocess.DEVNULL)

    @staticmethod
    def bottom_line():
        """The pixels of the lowest line of text, where a window that fills the screen has its status bar."""
        return subprocess.run(["timeout", "120", "import", "-window", "root", "-gravity", "south", "-crop",
                               "600x18+0+0", "rgb:-"], check=True, stdin=subprocess.DEVNULL,
                              capture_output=True).stdout

    @staticmethod
    def mouse(*steps):
        subprocess.run(["timeout", "120", "xdotool", *map(str, steps)], check=True,
                       stdin=subprocess.DEVNULL)


def wait_for(what, seconds=PATIENCE):
    """The first answer that is not nothing."""
    limit = time.monotonic() + seconds
    pause = 0.05
    while True:
        answer = what()
        if answer:
            return answer
        if time.monotonic() > limit:
            return answer
        time.sleep(pause)
        pause = min(0.4, 1.5 * pause)  # Whoever asks often keeps the office from what is waited for.


class Element:
    """A control as a screen reader meets it. The office looks for us, see looking.py: of those that were found so, name
    and role are what they were then."""

    def __init__(self, office, context=None, found=None):
        self.office = office
        self._context = context
        self._root, self._place, self._name, self._role, self.states = found or (None, None, None, None, None)

    @property
    def context(self):
        if self._context is None:
            self._context = self.office.within("at", self._root, self._place)
        return self._context

    @property
    def name(self):
        return self.context.getAccessibleName() if self._name is None else self._name

    @property
    def role(self):
        return self.context.getAccessibleRole() if self._role is None else self._role

    @property
    def children(self):
        return self._found("children")

    def _found(self, function):
        return [Element(self.office, None, (self.context, *each))
                for each in self.office.within(function, self.context)]

    def has(self, state):
        states = self.context.getAccessibleStateSet()
        if isinstance(states, int):
            return bool(states & (1 << state))
        return states.contains(state)

    def walk(self):
        """Itself and all that it holds, the nearest first."""
        return self._found("walk")

    def find(self, name, role=None):
        found = self.office.within("find", self.context, name, role)
        return found and Element(self.office, found)

    def click(self):
        return self.context.doAccessibleAction(0)

    def type(self, text):
        return self.context.setText(text)

    @property
    def text(self):
        return self.context.getText()

    @property
    def box(self):
        """Left, top, width and height on the screen."""
        place, size = self.context.getLocationOnScreen(), self.context.getSize()
        return place.X, place.Y, size.Width, size.Height


def windows(office):
    return [Element(office, context) for context in office.within("windows")]


def window_now(office, title):
    """The window with a title, or nothing: also where it goes on its way to us."""
    try:
        found = office.within("window", title)
    except RuntimeException:
        return None
    return found and Element(office, found)


def window(office, title, seconds=PATIENCE):
    """The window with a title, once it is there."""
    return wait_for(lambda: window_now(office, title), seconds)
