#pragma once

#include <chrono>
#include <memory>

namespace nalt {

class SplashScreenWindow;

/// Shows the splash window for a while and takes it away. Needs a display.
class Splash {
public:
  Splash();
  ~Splash();

  void show(double seconds);
  /// Puts the window on top again if it is still there.
  void raise();

private:
  static void tick(void* self);
  void dismiss();

  std::unique_ptr<SplashScreenWindow> window_;
  std::chrono::steady_clock::time_point shownAt_;
  double seconds_ = 0.0;
};

} // namespace nalt
