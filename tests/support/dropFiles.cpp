// drop_files WINDOW X Y URI...: drops files on a window of another program, as a file manager does when the mouse
// button goes up at that point of the screen. Ends with 0 when the other program has taken them.
#include <X11/Xatom.h>
#include <X11/Xlib.h>

#include <cstdio>
#include <cstdlib>
#include <string>

namespace {

class Source {
public:
  Source(Display* display, Window target, long place, std::string text)
      : display_(display),
        target_(target),
        place_(place),
        text_(std::move(text)),
        window_(XCreateSimpleWindow(display, DefaultRootWindow(display), 0, 0, 1, 1, 0, 0, 0))
  {
    XSetSelectionOwner(display_, atom("XdndSelection"), window_, CurrentTime);
  }

  /// Whether the drop was finished by the other side.
  bool drop()
  {
    constexpr long version = 5;
    send("XdndEnter", {version << 24, static_cast<long>(atom("text/uri-list")), 0, 0});
    for (int i = 0; i < 2; ++i)
      send("XdndPosition", {0, place_, CurrentTime, static_cast<long>(atom("XdndActionCopy"))});
    if (!answered("XdndStatus")) return false;
    send("XdndDrop", {0, CurrentTime, 0, 0});
    return answered("XdndFinished");
  }

private:
  struct Words {
    long a, b, c, d;
  };

  Atom atom(const char* name) { return XInternAtom(display_, name, False); }

  void send(const char* message, Words words)
  {
    XEvent event{};
    event.xclient.type = ClientMessage;
    event.xclient.window = target_;
    event.xclient.message_type = atom(message);
    event.xclient.format = 32;
    event.xclient.data.l[0] = static_cast<long>(window_);
    event.xclient.data.l[1] = words.a;
    event.xclient.data.l[2] = words.b;
    event.xclient.data.l[3] = words.c;
    event.xclient.data.l[4] = words.d;
    XSendEvent(display_, target_, False, NoEventMask, &event);
    XFlush(display_);
  }

  /// Gives the text to whom asks until `message` comes.
  bool answered(const char* message)
  {
    while (true) {
      XEvent event;
      XNextEvent(display_, &event);
      if (event.type == SelectionRequest) giveText(event.xselectionrequest);
      if (event.type == ClientMessage && event.xclient.message_type == atom(message)) return true;
    }
  }

  void giveText(const XSelectionRequestEvent& request)
  {
    XChangeProperty(display_, request.requestor, request.property, request.target, 8, PropModeReplace,
                    reinterpret_cast<const unsigned char*>(text_.data()), static_cast<int>(text_.size()));
    XEvent reply{};
    reply.xselection.type = SelectionNotify;
    reply.xselection.requestor = request.requestor;
    reply.xselection.selection = request.selection;
    reply.xselection.target = request.target;
    reply.xselection.property = request.property;
    reply.xselection.time = request.time;
    XSendEvent(display_, request.requestor, False, NoEventMask, &reply);
    XFlush(display_);
  }

  Display* display_;
  Window target_;
  long place_;
  std::string text_;
  Window window_;
};

} // namespace

int main(int argc, char** argv)
{
  Display* display = argc > 4 ? XOpenDisplay(nullptr) : nullptr;
  if (!display) {
    std::fputs("usage: drop_files WINDOW X Y URI...\n", stderr);
    return 2;
  }
  std::string text;
  for (int i = 4; i < argc; ++i)
    text += std::string(argv[i]) + "\r\n";
  const long place = std::atol(argv[2]) << 16 | std::atol(argv[3]);
  Source source(display, std::strtoul(argv[1], nullptr, 0), place, text);
  return source.drop() ? 0 : 1;
}
