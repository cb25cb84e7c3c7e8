#include "platform/SixAxisDevice.h"

#include <spnav.h>
#include <sys/socket.h>

#include <cerrno>

namespace nalt {

namespace {

/// What the daemon has sent and nobody has read.
enum class Waiting { nothing, something, goodbye };

Waiting whatWaits(int descriptor)
{
  char first = 0;
  const ssize_t count = recv(descriptor, &first, 1, MSG_PEEK | MSG_DONTWAIT);
  if (count > 0 || (count < 0 && errno == EINTR)) return Waiting::something;
  return count < 0 && (errno == EAGAIN || errno == EWOULDBLOCK) ? Waiting::nothing : Waiting::goodbye;
}

/// The daemon's z goes away from the user, which also turns the sense of the other two rotations round.
SixAxisMotion motionOf(const spnav_event_motion& event)
{
  return {{event.x, event.y, -event.z}, {-event.rx, -event.ry, event.rz}};
}

} // namespace

SixAxisDevice::SixAxisDevice()
{
  if (spnav_open() == 0) descriptor_ = spnav_fd();
}

SixAxisDevice::~SixAxisDevice()
{
  close();
}

void SixAxisDevice::close()
{
  if (isConnected()) spnav_close();
  descriptor_ = -1;
}

std::optional<SixAxisDevice::Event> SixAxisDevice::poll()
{
  while (isConnected()) {
    spnav_event event{};
    switch (spnav_poll_event(&event)) {
    case SPNAV_EVENT_MOTION:
      return motionOf(event.motion);
    case SPNAV_EVENT_BUTTON:
      return SixAxisButton{event.button.bnum, event.button.press != 0};
    case 0:
      break; // nothing, or what the library doesn't know: more may wait behind it
    default:
      continue;
    }
    switch (whatWaits(descriptor_)) {
    case Waiting::nothing:
      return std::nullopt;
    case Waiting::something:
      break;
    case Waiting::goodbye:
      close();
      break;
    }
  }
  return std::nullopt;
}

} // namespace nalt
