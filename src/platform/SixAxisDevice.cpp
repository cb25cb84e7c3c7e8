#include "platform/SixAxisDevice.h"

#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <cerrno>
#include <cstdint>
#include <cstdlib>
#include <cstring>

namespace nalt {

namespace {

constexpr const char* usualSocket = "/var/run/spnav.sock";
constexpr int motion = 0;
constexpr int press = 1;
constexpr int letGo = 2;

std::string socketPath()
{
  const char* named = std::getenv("SPNAV_SOCKET");
  return named && *named ? named : usualSocket;
}

} // namespace

SixAxisDevice::SixAxisDevice() : SixAxisDevice(socketPath()) {}

SixAxisDevice::SixAxisDevice(const std::string& socketPath)
{
  sockaddr_un address{};
  address.sun_family = AF_UNIX;
  if (socketPath.size() >= sizeof(address.sun_path)) return;
  std::memcpy(address.sun_path, socketPath.c_str(), socketPath.size() + 1);
  descriptor_ = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0);
  if (descriptor_ < 0) return;
  if (connect(descriptor_, reinterpret_cast<const sockaddr*>(&address), sizeof(address)) != 0) close();
}

SixAxisDevice::~SixAxisDevice()
{
  close();
}

void SixAxisDevice::close()
{
  if (descriptor_ >= 0) ::close(descriptor_);
  descriptor_ = -1;
}

std::optional<SixAxisDevice::Event> SixAxisDevice::poll()
{
  while (isConnected()) {
    const ssize_t count = read(descriptor_, message_.data() + received_, message_.size() - received_);
    if (count < 0 && errno == EINTR) continue;
    if (count < 0 && (errno == EAGAIN || errno == EWOULDBLOCK)) return std::nullopt;
    if (count <= 0) {
      close();
      return std::nullopt;
    }
    received_ += static_cast<std::size_t>(count);
    if (received_ < message_.size()) continue;
    received_ = 0;

    // Eight numbers: the kind, then for motions three translations, three rotations and a time. The daemon's z goes
    // away from the user, which also turns the sense of the other two rotations round.
    std::array<std::int32_t, 8> numbers{};
    static_assert(sizeof(numbers) == sizeof(message_));
    std::memcpy(numbers.data(), message_.data(), message_.size());
    if (numbers[0] == motion)
      return SixAxisMotion{{numbers[1], numbers[2], -numbers[3]}, {-numbers[4], -numbers[5], numbers[6]}};
    if (numbers[0] == press || numbers[0] == letGo) return SixAxisButton{numbers[1], numbers[0] == press};
  }
  return std::nullopt;
}

} // namespace nalt
