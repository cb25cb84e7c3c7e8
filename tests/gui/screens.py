#!/usr/bin/env python3
"""screens.py PROGRAM PICTURES: what test-screens and its kin run on screens of several sizes: every window, dialog and
menu is opened, lies on the screen, and leaves a picture for people to look at."""
import re
import struct
import subprocess
import time

from nalt_gui import MAIN, SPLASH, WARNING, Picture, WindowManager, check, equal, poll, run, xdotool


def screen_size():
    text = subprocess.run(["xdpyinfo"], capture_output=True, text=True, check=True).stdout
    return tuple(int(number) for number in re.search(r"dimensions:\s+(\d+)x(\d+)", text).groups())


WIDTH, HEIGHT = screen_size()
SMALL, LARGE = WIDTH < 1000, WIDTH > 1800
PREFIX = "small-" if SMALL else "large-" if LARGE else ""

MENUS = "fevsmtpcih"  # the letters of the menu bar
SUBMENUS = ("fp", "vu", "vv", "tx", "tc", "ts", "tt", "tm", "ta")
# Below View, Viewport, in their order.
VIEWPORT_SUBMENUS = ("viewpoint", "appearance", "lighting", "grid", "hiding")


def shot(session, name):
    session.picture_file(PREFIX + name)


def remember_maximized(session):
    """Settings as a maximized window leaves them, without preferences."""
    path = session.home / ".config/Nalt/nalt.cfg"
    path.parent.mkdir(parents=True, exist_ok=True)
    path.write_bytes(struct.pack(">d4ib", 2.4, 100, 100, 1362, 740, 1).ljust(4128, b"\0"))


def launch(session, *files):
    if LARGE:
        remember_maximized(session)
    session.launch(*files)
    session.main = session.window(MAIN)


def start(session, *files):
    launch(session, *files)
    session.close_splash()
    session.focus_main()
    if files:
        session.wait_for_title(f"Nalt - {files[-1]}")
    if LARGE:
        poll("a window as wide as the screen", lambda: session.geometry(session.main)[2] >= WIDTH - 4)


def place(window):
    """x, y, w, h without the window manager's frame."""
    text = subprocess.run(["xwininfo", "-id", str(window)], capture_output=True, text=True, check=True).stdout
    return tuple(int(re.search(rf"{name}:\s+(-?\d+)", text).group(1))
                 for name in ("Absolute upper-left X", "Absolute upper-left Y", "Width", "Height"))


def on_screen(window):
    x, y, w, h = place(window)
    check(x >= 0 and y >= 0 and x + w <= WIDTH and y + h <= HEIGHT,
          f"{xdotool('getwindowname', window).strip()} is at {x}, {y}, {w} by {h}")


def picture_of_dialog(session, title, name):
    window = session.window(f"^{title}$")
    poll(f"{title} to be drawn", lambda: still(window))
    on_screen(window)
    shot(session, name)
    return window


def still(window):
    x, y, w, h = place(window)
    first = Picture(x, y, w, h)
    return len(set(first.data)) > 2 and first == Picture(x, y, w, h)


def close(session, title):
    window = session.window(f"^{title}$")

    def gone():
        session.key("Escape", window=window)  # the window manager may still be about to give the focus elsewhere
        time.sleep(0.1)
        return window not in session.windows(f"^{title}$")
    poll(f"{title} to go", gone)
    session.focus_main()


def everything_fits(session):
    """The main window as it is without a model, and with one."""
    start(session)
    shot(session, "window-empty")
    session.key("ctrl+q")
    equal(session.wait_for_exit(), 0, "the exit status")
    start(session, session.make_model("cube.flt"))
    on_screen(session.main)
    session.key("shift+f", "ctrl+a")
    poll("what is selected", lambda: still(session.main))
    shot(session, "window")
    session.key("ctrl+q")
    equal(session.wait_for_exit(), 0, "the exit status")


def menus_open(session):
    start(session, session.make_model("cube.flt"), session.make_model("second.flt"))
    session.key("shift+f", "ctrl+a")
    for letter in MENUS:
        open_menu(session, "menu-" + letter, "alt+" + letter)
    for letters in SUBMENUS:
        open_menu(session, "menu-" + letters, "alt+" + letters[0], *letters[1:])
    for number, name in enumerate(VIEWPORT_SUBMENUS):
        open_menu(session, "menu-viewport-" + name, "alt+v", "v", "Right", *["Down"] * number)
    before = windows_on_screen()
    x, y = session.view_centre()
    xdotool("keydown", "alt", "keydown", "ctrl")
    session.click(x, y, button=3)
    xdotool("keyup", "alt", "keyup", "ctrl")
    poll("the pop-up menu", lambda: windows_on_screen() > before)
    picture_of_menu(session, before, "menu-popup")


def windows_on_screen():
    """Their number, menus and frames among them."""
    return subprocess.run(["xwininfo", "-root", "-children"], capture_output=True, text=True, check=True).stdout.count(
        " 0x")


def open_menu(session, name, *keys):
    session.focus_main()
    before = last = windows_on_screen()
    for key in keys:
        xdotool("key", key)
        if key == "Down":  # one menu goes, another one comes
            continue
        poll(f"{key} to open a menu for {name}", lambda: windows_on_screen() > last)
        last = windows_on_screen()
    picture_of_menu(session, before, name)


def picture_of_menu(session, before, name):
    poll(f"{name} to be drawn", lambda: at_rest(session))
    shot(session, name)
    for _ in range(4):
        xdotool("key", "Escape")
    poll(f"{name} to go", lambda: windows_on_screen() == before)


def at_rest(session):
    x, y, _, _ = place(session.main)
    def part():
        return Picture(x + 150, y + 40, 400, 400)
    first = part()
    return first == part()


def dialogs_open(session):
    session.make_model("other.flt", "--count", "3")
    start(session, session.make_model("model.flt", "--external", "other.flt"))
    for keys, title, name in ((("alt+e", "e"), "Preferences", "preferences"),
                              (("ctrl+t",), "Sensitivity", "sensitivity"),
                              (("alt+s", "s"), "Select By Name", "select-by-name"),
                              (("alt+s", "v"), "Select Polygons By Number Of Vertices", "select-by-vertices"),
                              (("alt+f", "f"), "External References", "external-references"),
                              (("ctrl+o",), "Open File", "open"),
                              (("ctrl+shift+s",), "Save File", "save"),
                              (("e",), "Grid Spacing", "grid-spacing"),
                              (("d",), "Grid Offset", "grid-offset"),
                              (("F1",), "Nalt Help", "help"),
                              (("alt+h", "a"), "About Nalt", "about")):
        for key in keys:
            xdotool("key", key)
        picture_of_dialog(session, title, "dialog-" + name)
        close(session, title)


def viewport_preferences_open(session):
    start(session, session.make_model("model.flt"))
    session.key("c")
    window = session.window("^Viewport Preferences$")
    for x, name in ((50, "background"), (130, "frustum"), (190, "light"), (250, "visual-cues")):
        session.click(x, 27, window=window)
        session.move(300, 5, window)
        picture_of_dialog(session, "Viewport Preferences", "dialog-viewport-" + name)
    session.click(50, 27, window=window)
    session.click(146, 96, window=window)
    picture_of_dialog(session, "Top Color", "dialog-color")


def previews_open(session):
    start(session, session.make_model("dof.flt", "--dof"))
    session.key("shift+f", "ctrl+a", "ctrl+d", "ctrl+a", "ctrl+z")
    xdotool("key", "alt+v")
    xdotool("key", "c")
    picture_of_dialog(session, "Command List", "dialog-command-list")
    close(session, "Command List")
    xdotool("key", "alt+v")
    xdotool("key", "d")
    picture_of_dialog(session, "Preview DOF", "dialog-preview-dof")
    close(session, "Preview DOF")
    session.key("ctrl+w")
    session.wait_for_title("Nalt")
    turns = session.make_model("turns.flt", "--animated", "--count", "3")
    session.key("ctrl+o")
    session.choose_file("^Open File$", turns)
    session.wait_for_title(f"Nalt - {turns}")
    xdotool("key", "alt+v")
    xdotool("key", "a")
    picture_of_dialog(session, "Preview Animation", "dialog-preview-animation")


def splash_and_messages_open(session):
    launch(session)
    window = session.window(SPLASH)
    shot(session, "splash")
    on_screen(window)
    session.close_splash()
    session.focus_main()
    session.key("ctrl+o")
    session.choose_file("^Open File$", session.make_model("old.flt", "--version", "1570"))
    picture_of_dialog(session, WARNING.strip("^$"), "dialog-warning")
    session.answer(WARNING, "Return")
    session.key("shift+f", "ctrl+a", "Delete")
    poll("a changed model", lambda: session.title().endswith("*"))
    session.key("ctrl+w")
    picture_of_dialog(session, "Question", "dialog-question")
    session.answer("^Question$", "Escape")


if SMALL:
    run(everything_fits)  # and that's all
with WindowManager():
    run(everything_fits, menus_open, dialogs_open, viewport_preferences_open, previews_open,
        splash_and_messages_open)
