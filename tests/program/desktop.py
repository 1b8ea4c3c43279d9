"""A desktop of its own for a test: a virtual display with a window manager, and the program on it, seen through the
accessibility interface and used with keys and mouse, as a person with a screen reader does."""
import contextlib
import os
import pathlib
import re
import signal
import subprocess
import sys
import tempfile
import time

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib  # noqa: E402

# In seconds; what is waited for comes at once, but the machine may be busy.
PATIENCE = 60
SCREEN = (1280, 1024)
# What the window manager puts around a window, in pixels.
MOST_BORDER, MOST_TITLE = 10, 40
# The main window shows a maximised document in its title; messages have the program's name alone.
MAIN = "ZentilConf - "


class Failure(AssertionError):
    """What was waited for has not come."""


def until(question, what):
    """Waits until question() gives something, and returns it."""
    end = time.monotonic() + PATIENCE
    events = GLib.MainContext.default()
    while True:
        # What programs have told since the last look, that they have begun or ended among it.
        while events.iteration(False):
            pass
        answer = question()
        if answer:
            return answer
        if time.monotonic() > end:
            raise Failure(f"In vain: {what}")
        time.sleep(0.05)


def on_own_bus():
    """Begins the script again within message buses of its own, unless it is there already. The socket of the
    accessibility bus stands in the runtime folder: with one each, several scripts may run at once."""
    if "ZENTILCONF_OWN_BUS" in os.environ:
        return
    with tempfile.TemporaryDirectory(prefix="zentilconf-bus.") as runtime:
        environment = os.environ | {"ZENTILCONF_OWN_BUS": "1", "XDG_RUNTIME_DIR": runtime, "HOME": runtime}
        session = ["dbus-run-session", "--", sys.executable, *sys.argv]
        sys.exit(subprocess.run(session, env=environment).returncode)


class Desktop:
    """Has to be made within a message bus of its own; see on_own_bus()."""

    def __init__(self, folder):
        self.folder = pathlib.Path(folder)
        self._ended = contextlib.ExitStack()
        for name in ("home", "config", "data", "run"):
            (self.folder / name).mkdir(mode=0o700)
        os.environ.update(
            HOME=str(self.folder / "home"),
            XDG_CONFIG_HOME=str(self.folder / "config"),
            XDG_DATA_HOME=str(self.folder / "data"),
            XDG_RUNTIME_DIR=str(self.folder / "run"),
            QT_LINUX_ACCESSIBILITY_ALWAYS_ON="1",
            LC_ALL="C.UTF-8",
        )
        for name in ("WAYLAND_DISPLAY", "QT_QPA_PLATFORM", "QT_SCALE_FACTOR"):
            os.environ.pop(name, None)
        self.start_display()
        # A program that asks for the accessibility bus before that stands does without it.
        until(self._has_accessibility_bus, "the accessibility bus")
        Atspi.get_desktop(0).get_child_count()

    def start_display(self):
        """A virtual display with a window manager, which programs use that are started from now on. Returns the process
        of the display."""
        reading, writing = os.pipe()
        # Otherwise the display begins anew whenever its last client leaves, and turns away who comes just then: the
        # window manager, while it is asked for.
        display = self.start(
            "Xvfb", "-displayfd", str(writing), "-noreset", "-nolisten", "tcp",
            "-screen", "0", f"{SCREEN[0]}x{SCREEN[1]}x24",
            pass_fds=[writing],
        )
        os.close(writing)
        with os.fdopen(reading) as number:
            os.environ["DISPLAY"] = f":{number.readline().strip()}"
        self.start("openbox")
        until(lambda: self.xdotool("get_desktop", check=False).returncode == 0, "the window manager")
        return display

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self._ended.close()

    def start(self, *command, **options):
        with open(self.folder / f"{pathlib.Path(command[0]).name}.log", "ab") as log:
            process = subprocess.Popen(command, stdout=log, stderr=log, **options)
        self._ended.callback(self.end, process)
        return process

    @staticmethod
    def end(process):
        if process.poll() is None:
            process.send_signal(signal.SIGTERM)
        process.wait(PATIENCE)

    @staticmethod
    def _has_accessibility_bus():
        bus = ["--session", "--dest", "org.a11y.Bus", "--object-path", "/org/a11y/bus"]
        call = ["gdbus", "call", *bus, "--method", "org.a11y.Bus.GetAddress"]
        return subprocess.run(call, capture_output=True).returncode == 0

    @staticmethod
    def xdotool(*arguments, check=True):
        return subprocess.run(["xdotool", *arguments], check=check, capture_output=True, text=True, timeout=PATIENCE)

    def keys(self, *names):
        until(self._has_focus, "a window with the focus")
        self.xdotool("key", "--clearmodifiers", *names)

    def _has_focus(self):
        """Whether keys get to a window: when one closes, it takes the window manager a moment to choose another, and
        that one a moment to hear of it."""
        focused = self.xdotool("getwindowfocus", "getwindowname", check=False).stdout.rstrip("\n")
        root = Atspi.get_desktop(0)
        for application in (root.get_child_at_index(index) for index in range(root.get_child_count())):
            for index in range(application.get_child_count() if application else 0):
                window = application.get_child_at_index(index)
                if window and window.get_state_set().contains(Atspi.StateType.ACTIVE):
                    return window.get_name() == focused
        return False

    def type(self, text):
        until(self._has_focus, "a window with the focus")
        self.xdotool("type", "--clearmodifiers", "--delay", "5", text)

    def click(self, node, times=1, button=1):
        until(lambda: self._point_at(node), f'"{node.get_name()}" stands still')
        self.xdotool("click", "--repeat", str(times), "--delay", "20", str(button))

    def _point_at(self, node):
        """Moves the mouse there. @return whether it is: a window tells of its controls before the window manager has
        given it a place, and for a moment tells of the place before."""
        extents = self._extents(node)
        x, y, width, height = extents
        # Of what has a mark that one, not the empty end of the row.
        marked = node.get_role() in (Atspi.Role.CHECK_BOX, Atspi.Role.RADIO_BUTTON, Atspi.Role.LIST_ITEM)
        self.xdotool("mousemove", str(x + (8 if marked else width // 2)), str(y + height // 2))
        below = re.search(r"window:(\d+)", self.xdotool("getmouselocation").stdout)[1]
        shown = self.xdotool("getwindowgeometry", "--shell", below, check=False).stdout
        frame = [int(number) for number in re.findall(r"^(?:X|Y|WIDTH|HEIGHT)=(-?\d+)", shown, re.M)]
        around = node
        while around and not self._fits(self._extents(around), frame):
            around = around.get_parent()
        return around is not None and self._extents(node) == extents

    @staticmethod
    def _fits(window, frame):
        """Whether a window of these extents has this frame, which is what the display knows of it."""
        if len(frame) < 4:
            return False
        sides = (window[0] - frame[0], frame[0] + frame[2] - window[0] - window[2])
        ends = (window[1] - frame[1], frame[1] + frame[3] - window[1] - window[3])
        return all(0 <= side <= MOST_BORDER for side in sides) and all(0 <= end <= MOST_TITLE for end in ends)

    @staticmethod
    def _extents(node):
        extents = node.get_extents(Atspi.CoordType.SCREEN)
        return extents.x, extents.y, extents.width, extents.height

    def picture(self, path):
        """What is on the screen now, for whoever looks for the cause of a failure."""
        subprocess.run(["import", "-window", "root", str(path)], check=False, capture_output=True)


class Program:
    """One run of the program."""

    def __init__(self, desktop, command, *files):
        self.desktop = desktop
        self.process = desktop.start(str(command), *map(str, files))
        until(self._application, "the program on the accessibility bus")

    def _application(self):
        root = Atspi.get_desktop(0)
        root.clear_cache()
        for index in range(root.get_child_count()):
            child = root.get_child_at_index(index)
            if child and child.get_process_id() == self.process.pid:
                child.clear_cache()
                return child
        return None

    def windows(self):
        """The top-level windows that are shown, by title."""
        application = self._application()
        if not application:
            return {}
        shown = [application.get_child_at_index(i) for i in range(application.get_child_count())]
        return {window.get_name(): window for window in shown if window and self._is_showing(window)}

    @staticmethod
    def _is_showing(node):
        return node.get_state_set().contains(Atspi.StateType.SHOWING)

    def window(self, title):
        """The window of that title, or the main window, once it is there."""
        return until(
            lambda: next((window for name, window in self.windows().items() if self._is_title(name, title)), None),
            f'a window "{title}"; there are {list(self.windows())}',
        )

    def await_closed(self, title):
        until(lambda: not any(self._is_title(name, title) for name in self.windows()), f'"{title}" closes')

    @staticmethod
    def _is_title(name, title):
        return name.startswith(MAIN) if title == MAIN else name == title

    def nodes(self, root):
        """All nodes below root that are shown, in their order. Of the documents only the active one is: the others
        stand behind it."""
        for index in range(root.get_child_count()):
            child = root.get_child_at_index(index)
            if child and self._is_showing(child) and not self._is_document_behind(child):
                yield child
                yield from self.nodes(child)

    def _is_document_behind(self, node):
        # The window that is active, whatever it is, has the document's name in its title or is no document's.
        if node.get_role_name() != "frame" or node.get_parent().get_role_name() == "application":
            return False
        return f"[{node.get_name()}]" not in self.window(MAIN).get_name()

    def find(self, title, role, name=None, nth=0):
        """The nth node of that role and name in the window of that title, once it is there."""

        def look():
            found = [
                node
                for node in self.nodes(self.window(title))
                if node.get_role_name() == role and (name is None or node.get_name() == name)
            ]
            return found[nth] if len(found) > nth else None

        return until(look, f'{role} "{name}" in "{title}"')

    def press(self, title, caption, role="push button"):
        button = self.find(title, role, caption)
        if not button.get_state_set().contains(Atspi.StateType.ENABLED):
            raise Failure(f'"{caption}" in "{title}" is disabled')
        self.desktop.click(button)

    def answer(self, title, caption):
        """Presses a button that closes its window, and waits until that has gone."""
        self.press(title, caption)
        self.await_closed(title)

    def text_of(self, title, name):
        node = self.find(title, "text", name)
        return Atspi.Text.get_text(node, 0, Atspi.Text.get_character_count(node))

    def fill(self, title, name, text):
        """Types text in place of what a field shows."""
        self.desktop.click(self.find(title, "text", name))
        self.desktop.keys("ctrl+a", "Delete")
        self.desktop.type(text)
        until(lambda: self.text_of(title, name) == text, f'"{name}" shows "{text}"')

    def is_checked(self, title, name, role="check box"):
        return self.find(title, role, name).get_state_set().contains(Atspi.StateType.CHECKED)

    def check(self, title, name, role="check box"):
        before = self.is_checked(title, name, role)
        self.desktop.click(self.find(title, role, name))
        until(lambda: self.is_checked(title, name, role) != before, f'"{name}" is toggled')

    def choose(self, title, name, entry):
        """Opens a drop-down list by mouse and finds an entry by its first letters."""
        self.desktop.click(self.find(title, "combo box", name))
        self.desktop.type(entry)
        self.desktop.keys("Return")

    def menu(self, *captions):
        """Chooses a menu entry by mouse."""
        self.desktop.click(self.find(MAIN, "menu item", captions[0]))
        for caption in captions[1:]:
            entry = until(lambda caption=caption: self._open_entry(caption), f'menu entry "{caption}"')
            if not entry.get_state_set().contains(Atspi.StateType.ENABLED):
                raise Failure(f'"{caption}" is disabled')
            self.desktop.click(entry)

    def _open_entry(self, caption):
        """An entry of a menu that is open. A menu's entries have a size before they are shown, so all count that stand
        on the screen below the menu bar."""
        application = self._application()
        for index in range(application.get_child_count()):
            child = application.get_child_at_index(index)
            if child and child.get_role_name() == "popup menu" and self._is_showing(child):
                for entry in self.nodes(child):
                    if entry.get_role_name() == "menu item" and entry.get_name() == caption:
                        return entry
        for node in self.nodes(self.window(MAIN)):
            if node.get_role_name() == "popup menu":
                for entry in self.nodes(node):
                    if entry.get_role_name() == "menu item" and entry.get_name() == caption:
                        return entry
        return None

    def rows(self):
        """The texts of the active document's rows that can be seen."""
        shown = self.find(MAIN, "list", "Configuration lines")
        return [shown.get_child_at_index(i).get_name() for i in range(shown.get_child_count())]

    def row(self, text):
        return self.find(MAIN, "list item", text)

    def await_end(self):
        until(lambda: self.process.poll() is not None, "the program ends")
        return self.process.returncode
