#include "platform/WindowManager.h"

#include <X11/Xatom.h>
#include <X11/Xlib.h>

#include <algorithm>
#include <span>

namespace nalt {

namespace {

constexpr const char* stateName = "_NET_WM_STATE";
constexpr const char* horizontallyName = "_NET_WM_STATE_MAXIMIZED_HORZ";
constexpr const char* verticallyName = "_NET_WM_STATE_MAXIMIZED_VERT";
constexpr long addState = 1;
constexpr long fromApplication = 1;
constexpr long mostAtoms = 64;

Atom atom(Display* display, const char* name)
{
  return XInternAtom(display, name, False);
}

} // namespace

void maximizeWindow(_XDisplay* display, unsigned long window)
{
  XEvent event{};
  event.xclient.type = ClientMessage;
  event.xclient.window = window;
  event.xclient.message_type = atom(display, stateName);
  event.xclient.format = 32;
  event.xclient.data.l[0] = addState;
  event.xclient.data.l[1] = static_cast<long>(atom(display, horizontallyName));
  event.xclient.data.l[2] = static_cast<long>(atom(display, verticallyName));
  event.xclient.data.l[3] = fromApplication;
  XSendEvent(display, DefaultRootWindow(display), False, SubstructureNotifyMask | SubstructureRedirectMask, &event);
}

bool isWindowMaximized(_XDisplay* display, unsigned long window)
{
  Atom type = 0;
  int format = 0;
  unsigned long count = 0;
  unsigned long left = 0;
  unsigned char* data = nullptr;
  const int result = XGetWindowProperty(display, window, atom(display, stateName), 0, mostAtoms, False, XA_ATOM, &type,
                                        &format, &count, &left, &data);
  if (result != Success || !data) return false;
  const std::span<const Atom> states(reinterpret_cast<const Atom*>(data), type == XA_ATOM ? count : 0);
  const auto has = [&](const char* name) {
    return std::find(states.begin(), states.end(), atom(display, name)) != states.end();
  };
  const bool maximized = has(horizontallyName) && has(verticallyName);
  XFree(data);
  return maximized;
}

} // namespace nalt
