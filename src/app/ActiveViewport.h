#pragma once

namespace nalt {

class Gui;
class Viewport;

/// The viewport that keys and menus are about now; null without one.
Viewport* activeViewport(const Gui& gui);

} // namespace nalt
