#pragma once

#include <array>
#include <optional>
#include <variant>

namespace nalt {

/// How far the cap of a six-axis controller is pushed and turned, in the device's own units: x to the right, y up, z
/// toward the user, turns by the right-hand rule.
struct SixAxisMotion {
  std::array<int, 3> translation{};
  std::array<int, 3> rotation{}; ///< about x, y and z

  bool isZero() const { return translation == std::array<int, 3>{} && rotation == std::array<int, 3>{}; }
};

struct SixAxisButton {
  int number = 0;
  bool pressed = false;
};

/// The six-axis controller that the daemon of such devices (spacenavd) tells of. Most computers have none, which is no
/// trouble. The library below knows one connection a process, so there is at most one object at a time.
class SixAxisDevice {
public:
  /// Connects to the daemon, whose socket the environment may name in SPNAV_SOCKET. An object without a connection
  /// stays silent.
  SixAxisDevice();
  ~SixAxisDevice();
  SixAxisDevice(const SixAxisDevice&) = delete;
  SixAxisDevice& operator=(const SixAxisDevice&) = delete;

  bool isConnected() const { return descriptor_ >= 0; }
  /// To wait for news with; -1 without a connection.
  int descriptor() const { return descriptor_; }

  using Event = std::variant<SixAxisMotion, SixAxisButton>;
  /// The next motion or button; none when there is nothing new. Never waits. A daemon that goes away ends the
  /// connection.
  std::optional<Event> poll();

private:
  void close();

  int descriptor_ = -1;
};

} // namespace nalt
