#include "platform/SixAxisDevice.h"

#include "tests/support/Scoped.h"
#include "tests/support/TempFolder.h"

#include <gtest/gtest.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <cstdint>
#include <cstring>

namespace nalt {
namespace {

/// Stands in for the daemon.
class Daemon {
public:
  explicit Daemon(const std::string& path) : listener_(socket(AF_UNIX, SOCK_STREAM, 0))
  {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    std::strncpy(address.sun_path, path.c_str(), sizeof(address.sun_path) - 1);
    EXPECT_EQ(bind(listener_, reinterpret_cast<const sockaddr*>(&address), sizeof(address)), 0);
    EXPECT_EQ(listen(listener_, 1), 0);
  }
  ~Daemon()
  {
    close(listener_);
    hangUp();
  }
  void accept() { client_ = ::accept(listener_, nullptr, nullptr); }
  void send(const void* data, std::size_t size) { EXPECT_EQ(write(client_, data, size), static_cast<ssize_t>(size)); }
  void hangUp()
  {
    if (client_ >= 0) close(client_);
    client_ = -1;
  }

private:
  int listener_;
  int client_ = -1;
};

class SixAxisDeviceTest : public testing::Test {
protected:
  tests::TempFolder folder;
  Daemon daemon{folder / "spnav.sock"};
  tests::ScopedEnvironment socket{"SPNAV_SOCKET", folder / "spnav.sock"};
  SixAxisDevice device;
  void SetUp() override { daemon.accept(); }
};

TEST(SixAxisDevice, WithoutADaemonThereIsNothingAndNoComplaint)
{
  const tests::ScopedEnvironment socket("SPNAV_SOCKET", "/nonexistent/spnav.sock");
  SixAxisDevice device;
  EXPECT_FALSE(device.isConnected());
  EXPECT_EQ(device.descriptor(), -1);
  EXPECT_FALSE(device.poll());
}

TEST_F(SixAxisDeviceTest, MotionsAndButtonsArriveInOrder)
{
  EXPECT_TRUE(device.isConnected());
  EXPECT_FALSE(device.poll());
  const std::int32_t motion[8] = {0, 1, -2, 3, 4, -5, 6, 16};
  const std::int32_t press[8] = {1, 31};
  const std::int32_t release[8] = {2, 31};
  daemon.send(motion, sizeof(motion));
  daemon.send(press, sizeof(press));
  daemon.send(release, sizeof(release));

  auto event = device.poll();
  ASSERT_TRUE(event && std::holds_alternative<SixAxisMotion>(*event));
  EXPECT_EQ(std::get<SixAxisMotion>(*event).translation, (std::array{1, -2, -3}));
  EXPECT_EQ(std::get<SixAxisMotion>(*event).rotation, (std::array{-4, 5, 6}));
  event = device.poll();
  ASSERT_TRUE(event && std::holds_alternative<SixAxisButton>(*event));
  EXPECT_EQ(std::get<SixAxisButton>(*event).number, 31);
  EXPECT_TRUE(std::get<SixAxisButton>(*event).pressed);
  event = device.poll();
  ASSERT_TRUE(event && std::holds_alternative<SixAxisButton>(*event));
  EXPECT_FALSE(std::get<SixAxisButton>(*event).pressed);
  EXPECT_FALSE(device.poll());
}

TEST_F(SixAxisDeviceTest, WhatIsNoMessageIsPassedOver)
{
  daemon.send("abcde", 5);
  EXPECT_FALSE(device.poll());
  EXPECT_TRUE(device.isConnected());
}

TEST_F(SixAxisDeviceTest, UnknownMessagesArePassedOver)
{
  const std::int32_t unknown[8] = {77};
  const std::int32_t press[8] = {1, 2};
  daemon.send(unknown, sizeof(unknown));
  daemon.send(press, sizeof(press));
  const auto event = device.poll();
  ASSERT_TRUE(event);
  EXPECT_EQ(std::get<SixAxisButton>(*event).number, 2);
}

TEST_F(SixAxisDeviceTest, ADaemonThatGoesAwayEndsTheConnection)
{
  daemon.hangUp();
  EXPECT_FALSE(device.poll());
  EXPECT_FALSE(device.isConnected());
}

} // namespace
} // namespace nalt
