#!/usr/bin/env python3
"""screens.py PROGRAM PICTURES: what test-screens runs on a small screen."""
from nalt_gui import check, equal, run


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


run(everything_fits_on_a_small_screen)
