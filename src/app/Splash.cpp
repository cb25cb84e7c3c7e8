#include "app/Splash.h"

#include "app/SplashScreenWindow.h"
#include "core/KeyboardFocus.h"
#include "core/Model.h"
#include "core/Shell.h"

#include <FL/Fl.H>

namespace nalt {

namespace {

constexpr double checkInterval = 0.5; // seconds

}

Splash::Splash() = default;

Splash::~Splash()
{
  Fl::remove_timeout(tick, this);
}

void Splash::show(double seconds)
{
  window_ = std::make_unique<SplashScreenWindow>();
  window_->show();
  shownAt_ = std::chrono::steady_clock::now();
  seconds_ = seconds;
  Fl::add_timeout(checkInterval, tick, this);
}

void Splash::raise()
{
  if (window_ && window_->shown()) window_->show();
}

void Splash::tick(void* self)
{
  auto* splash = static_cast<Splash*>(self);
  const std::chrono::duration<double> elapsed = std::chrono::steady_clock::now() - splash->shownAt_;
  if (elapsed.count() < splash->seconds_)
    Fl::repeat_timeout(checkInterval, tick, self);
  else
    splash->dismiss();
}

void Splash::dismiss()
{
  window_.reset();
  // The keys go back to the viewport that had them.
  const Model* model = Shell::get().currentModel();
  if (model && model->activeViewport() && !isTyping()) giveKeysTo(model->activeViewport()->widget());
}

} // namespace nalt
