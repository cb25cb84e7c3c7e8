#pragma once

#include <FL/Fl_RGB_Image.H>

#include <memory>

namespace nalt {

/// The built-in picture `name` (a file of data/icons) in `width` by `height` pixels. Null for an unknown name. Needs no
/// display.
std::unique_ptr<Fl_RGB_Image> makeIcon(const char* name, int width, int height);

/// The same, square, made once and kept for the whole run.
Fl_RGB_Image* icon(const char* name, int size);
/// How `icon` looks on a button that can't be pressed: without colour and half away.
Fl_RGB_Image* disabledIcon(const char* name, int size);

} // namespace nalt
