"""The cube that most tests look at: its colours, and where it is seen."""
from nalt_gui import poll, xdotool

STATUS_LINE = (0, 718, 600, 20)  # in the main window


def is_red(r, g, b):
    return r > 90 and r > 2 * g and r > 2 * b


def is_green(r, g, b):
    return g > 90 and g > 2 * r and g > 2 * b


def is_blue_side(r, g, b):
    return b > 90 and b > 2 * r and b > 2 * g


def is_line(r, g, b):
    return r < 30 and g < 30 and b < 30


def is_active_frame(r, g, b):
    return (r, g, b) == (255, 194, 51)


def is_grid(r, g, b):
    return abs(r - 76) < 6 and abs(g - 76) < 6 and abs(b - 76) < 6


def is_grid_axis(r, g, b):
    return abs(r - 204) < 4 and abs(g - 204) < 4 and abs(b - 204) < 4


def show_cube(session):
    """Seen from above in the only viewport, with the mouse over it; gives the picture."""
    cube = session.make_model("cube.flt")
    session.start(cube)
    session.wait_for_title(f"Nalt - {cube}")
    session.move(*session.view_centre())
    return shows(session, "the upper side of the cube", lambda view: view.share(is_red) > 0.05)


def shows(session, what, condition):
    """Waits for a picture of the viewport that fulfils the condition, and gives it."""
    return poll(what, lambda: (lambda view: view if condition(view) else None)(session.view()))


def upper_corners(session):
    """The left and the right one of the upper side, and the lower left one, as places of the main window."""
    x, y, _, _ = session.VIEW
    view = session.view()
    column, row = view.w // 2 + 15, view.h // 2 + 15  # beside what may be drawn in the middle
    rows = [r for r in range(view.h) if is_red(*view.pixel(column, r))]
    columns = [c for c in range(view.w) if is_red(*view.pixel(c, row))]
    left, right = x + 200 + columns[0], x + 200 + columns[-1]
    top, bottom = y + 20 + rows[0], y + 20 + rows[-1]
    return (left, top), (right, top), (left, bottom)


def click(session, place, *modifiers, button=1):
    session.move(*place)
    for key in modifiers:
        xdotool("keydown", key)
    xdotool("click", button)
    for key in modifiers:
        xdotool("keyup", key)


def pick_from_menu(session, submenu, entry, at=None):
    """Of the own menu of the viewport at a point (else the middle one), by numbers from 0. Separators don't count."""
    closed = session.view()
    session.move(*(at or session.view_centre()))
    session.key("Menu")
    shows(session, "the menu", lambda view: view != closed)
    # Keys get lost while the menu opens its windows.
    for key in ["Down"] * (submenu + 1) + ["Right"] + ["Down"] * entry:
        before = session.view()
        session.key(key)
        shows(session, f"{key} in the menu", lambda view: view != before)
    session.key("Return")
    session.move(*session.view_centre())
