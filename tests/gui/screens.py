#!/usr/bin/env python3
"""screens.py KIND PROGRAM PICTURES: what test-screens runs on a screen of that kind."""
import sys

from nalt_gui import WARNING, check, equal, poll, run


def everything_fits_on_a_small_screen(session):
    cube = session.make_model("cube.flt")
    session.start(cube)
    session.wait_for_title(f"Nalt - {cube}")
    x, y, w, h = session.geometry(session.main)
    check(x >= 0 and y >= 0 and x + w <= 800 and y + h <= 600, f"the window is at {x}, {y}, {w} by {h}")
    session.key("shift+f", "ctrl+a")
    session.picture_file("window-800x600")
    session.key("ctrl+q")
    equal(session.wait_for_exit(), 0, "the exit status")


def without_opengl_the_program_says_so_and_stays(session):
    cube = session.make_model("cube.flt")
    session.launch(cube)
    session.main = session.window(r"^Nalt( - .*)?$")
    while session.windows(WARNING) or session.windows("^Welcome to Nalt$"):
        if session.windows(WARNING):
            session.picture_file("window-without-opengl")
            session.key("Return", window=session.windows(WARNING)[-1])
    session.wait_for_title(f"Nalt - {cube}")
    session.focus_main()
    session.key("ctrl+n")
    session.wait_for_title("Nalt - untitled.flt")
    session.key("ctrl+q")
    equal(session.wait_for_exit(), 0, "the exit status")


kind = sys.argv.pop(1)
run({"small": everything_fits_on_a_small_screen, "no-opengl": without_opengl_the_program_says_so_and_stays}[kind])
