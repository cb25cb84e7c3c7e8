"""Drives the real program from outside: keys and mouse by xdotool, pictures from the X server.

A test is a script beside this one, test-NAME, that calls `run(test, ...)` with functions taking a Session.
"""
import os
import shutil
import subprocess
import sys
import tempfile
import time
from pathlib import Path

TIMEOUT = 30.0  # seconds that the program may take for anything
MAIN = r"^Nalt( - .*)?$"
WARNING = "^WARNING: $"
INFO = "^INFO: $"
SPLASH = "^Welcome to Nalt$"


class Failed(Exception):
    pass


def poll(what, condition, timeout=TIMEOUT):
    """Waits until `condition()` is true and gives its value; `what` says in the failure what was waited for."""
    end = time.monotonic() + timeout
    while True:
        value = condition()
        if value:
            return value
        if time.monotonic() > end:
            raise Failed(f"waited in vain for {what}")
        time.sleep(0.02)


def xdotool(*arguments):
    return subprocess.run(["xdotool", *map(str, arguments)], capture_output=True, text=True, check=False).stdout


class Picture:
    """What a part of the screen shows."""

    def __init__(self, x, y, w, h):
        self.w, self.h = w, h
        self.data = subprocess.run(["import", "-window", "root", "-crop", f"{w}x{h}+{x}+{y}", "-depth", "8", "rgb:-"],
                                   capture_output=True, check=True).stdout
        if len(self.data) != w * h * 3:
            raise Failed(f"the screen doesn't show all of {w}x{h}+{x}+{y}")

    @classmethod
    def of(cls, w, h, data):
        """From the bytes of its pixels instead."""
        picture = cls.__new__(cls)
        picture.w, picture.h, picture.data = w, h, data
        return picture

    def pixel(self, x, y):
        return tuple(self.data[(y * self.w + x) * 3:][:3])

    def count(self, wanted):
        """How many pixels fulfil wanted(r, g, b)."""
        # Most pixels share few colours.
        data = self.data
        colours = {}
        for i in range(0, len(data), 3):
            colour = data[i:i + 3]
            colours[colour] = colours.get(colour, 0) + 1
        return sum(number for colour, number in colours.items() if wanted(*colour))

    def share(self, wanted):
        return self.count(wanted) / (self.w * self.h)

    def __eq__(self, other):
        return self.data == other.data


class WindowManager:
    """For a part of a test: without one, windows have no frame and lie in the order in which they were used."""

    def __enter__(self):
        self.process = subprocess.Popen(["openbox"], stderr=subprocess.DEVNULL)
        poll("the window manager", lambda: "window id" in subprocess.run(
            ["xprop", "-root", "_NET_SUPPORTING_WM_CHECK"], capture_output=True, text=True, check=False).stdout)

    def __exit__(self, *_):
        self.process.terminate()
        self.process.wait()


class Session:
    """One test: a home folder of its own, and the program when it is started."""

    def __init__(self, program, pictures, name):
        self.program, self.pictures, self.name = program, Path(pictures), name
        self.folder = Path(tempfile.mkdtemp(prefix="nalt-gui-"))
        self.home = self.folder / "home"
        # FLTK's own file dialogs are the same everywhere.
        options = self.home / ".fltk/fltk.org"
        options.mkdir(parents=True)
        (options / "fltk.prefs").write_text("; FLTK preferences file format 1.0\n; vendor: fltk.org\n"
                                            "; application: fltk\n\n[.]\n\n[./options]\n\nFNFCUsesGTK:0\n")
        self.process = None

    def __enter__(self):
        return self

    def __exit__(self, kind, value, trace):
        if kind and self.process:
            self.picture_file(f"{self.name}-failed")
        if kind:
            for key in ("ctrl", "shift", "alt"):  # a test that failed in the middle of a drag leaves nothing pressed
                xdotool("keyup", key)
            for button in (1, 2, 3):
                xdotool("mouseup", button)
        if self.process and self.process.poll() is None:
            self.process.kill()
            self.process.wait()
        shutil.rmtree(self.folder, ignore_errors=True)

    # ---- the program --------------------------------------------------------------------------------------------------

    def make_model(self, name, *arguments):
        path = self.folder / name
        path.parent.mkdir(exist_ok=True)
        subprocess.run([Path(self.program).parent / "make_model", path, *arguments], check=True)
        return path

    def launch(self, *files):
        environment = {**os.environ, "HOME": str(self.home)}
        for folder in ("XDG_CONFIG_HOME", "XDG_DATA_HOME"):
            environment.pop(folder, None)
        self.output = open(self.folder / "output", "w+")
        self.process = subprocess.Popen([self.program, *map(str, files)], env=environment, cwd=self.folder,
                                        stdout=self.output, stderr=subprocess.STDOUT)

    def start(self, *files):
        """Starts the program and waits until it can be used."""
        self.launch(*files)
        self.main = self.window(MAIN)
        self.close_splash()
        self.focus_main()

    def start_with_message(self, *files):
        """The same when the program has something to say about `files`, which then waits for an answer."""
        self.launch(*files)
        self.main = self.window(MAIN)
        self.window(WARNING)

    def close_splash(self):
        self.move(20, 20, self.window(SPLASH))
        if self.windows(SPLASH):  # it also goes by itself, and a click would then meet the model behind it
            xdotool("click", 1)
        self.wait_until_gone(SPLASH)

    def wait_for_exit(self):
        poll("the program's end", lambda: self.process.poll() is not None)
        return self.process.returncode

    def text_output(self):
        self.output.seek(0)
        return self.output.read()

    # ---- windows ------------------------------------------------------------------------------------------------------

    def windows(self, title):
        if self.process.poll() is not None:
            raise Failed(f"the program ended with status {self.process.returncode}: {self.text_output()}")
        return [int(line) for line in
                xdotool("search", "--all", "--onlyvisible", "--pid", self.process.pid, "--name", title).split()]

    def window(self, title):
        """The window with that title, when it is there."""
        window = poll(f"a window with the title {title}", lambda: self.windows(title))[-1]
        places = [self.geometry(window)]

        def rests():  # a window manager moves it when it is there already
            time.sleep(0.03)
            places.append(self.geometry(window))
            return places[-1] == places[-2]
        poll(f"the window {title} to find its place", rests)
        return window

    def wait_until_gone(self, title):
        poll(f"the window with the title {title} to go", lambda: not self.windows(title))

    def title(self):
        return xdotool("getwindowname", self.main).strip()

    def wait_for_title(self, title):
        poll(f"the title {title}", lambda: self.title() == title)

    @staticmethod
    def geometry(window):
        """x, y, w, h"""
        values = dict(line.split("=") for line in xdotool("getwindowgeometry", "--shell", window).split()
                      if "=" in line)
        return tuple(int(values.get(key, 0)) for key in ("X", "Y", "WIDTH", "HEIGHT"))

    # ---- mouse and keys -----------------------------------------------------------------------------------------------

    def move(self, x, y, window=None):
        xdotool("mousemove", "--window", window or self.main, x, y)

    def click(self, x, y, button=1, window=None):
        self.move(x, y, window)
        xdotool("click", button)

    def drag(self, start, end, button, modifiers=()):
        """Presses at `start` and releases at `end`, points of the main window, with steps on the way."""
        for key in modifiers:
            xdotool("keydown", key)
        self.move(*start)
        xdotool("mousedown", button)
        for step in range(1, 6):
            self.move(start[0] + (end[0] - start[0]) * step // 5, start[1] + (end[1] - start[1]) * step // 5)
            time.sleep(0.03)  # FLTK joins motions that come in one go
        xdotool("mouseup", button)
        for key in modifiers:
            xdotool("keyup", key)

    def key(self, *keys, window=None):
        """Keys go to the window with the focus; without a window manager that is the one below the mouse."""
        if window:
            xdotool("windowfocus", "--sync", window)
        xdotool("key", *keys)

    def answer(self, title, key):
        """Presses `key` in the dialog with that title and waits for the dialog to go; another one may follow it."""
        window = self.window(title)
        self.key(key, window=window)
        poll(f"the window with the title {title} to go", lambda: window not in self.windows(title))
        self.focus_main()

    def answer_last(self, title, key):
        """The same for an answer that ends the program."""
        self.key(key, window=self.window(title))

    def focus_main(self):
        xdotool("windowfocus", "--sync", self.main)

    def choose_file(self, title, path):
        """Enters `path` in the file dialog with that title."""
        window = self.window(title)
        xdotool("windowfocus", "--sync", window)
        clipboard = ["xclip", "-selection", "clipboard"]
        owner = subprocess.Popen([*clipboard, "-quiet"], stdin=subprocess.PIPE, stderr=subprocess.DEVNULL, text=True)
        owner.stdin.write(str(path))
        owner.stdin.close()
        poll("the clipboard", lambda: subprocess.run([*clipboard, "-o"], capture_output=True, text=True,
                                                     check=False).stdout == str(path))
        # The dialog fills its field when it has read the folder; what is typed before that is lost.
        def entered():
            xdotool("key", "ctrl+a", "ctrl+v")
            time.sleep(0.2)
            xdotool("key", "Return")
            time.sleep(0.2)
            return not self.windows(title)
        poll(f"the file dialog {title} to take {path}", entered)
        owner.terminate()
        owner.wait()
        self.focus_main()

    # ---- pictures -----------------------------------------------------------------------------------------------------

    # The viewport of a model in a main window of the size it has at first.
    VIEW = (75, 77, 1076, 555)

    def picture(self, x, y, w, h):
        """A part of the main window."""
        x0, y0, _, _ = self.geometry(self.main)
        return Picture(x0 + x, y0 + y, w, h)

    def view(self):
        """The middle of the viewport, clear of frame and axes."""
        x, y, w, h = self.VIEW
        return self.picture(x + 200, y + 20, w - 400, h - 40)

    def view_centre(self):
        x, y, w, h = self.VIEW
        return x + w // 2, y + h // 2

    def picture_file(self, name):
        """Leaves a picture of the whole screen for people to look at."""
        subprocess.run(["import", "-window", "root", self.pictures / f"{name}.png"], check=False)


def check(condition, message):
    if not condition:
        raise Failed(message)


def equal(found, wanted, what):
    check(found == wanted, f"{what} is {found!r}, not {wanted!r}")


def run(*tests):
    """Runs the tests with the program and the folder for pictures from the command line; ends the process."""
    program, pictures = sys.argv[1:3]
    failures = 0
    for test in tests:
        started = time.monotonic()
        try:
            with Session(os.path.abspath(program), pictures, test.__name__.replace("_", "-")) as session:
                test(session)
            print(f"ok      {test.__name__} ({time.monotonic() - started:.1f} s)", flush=True)
        except Failed as failure:
            failures += 1
            print(f"FAILED  {test.__name__}: {failure}", flush=True)
    sys.exit(1 if failures else 0)
