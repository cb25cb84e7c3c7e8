#pragma once

#include <FL/Enumerations.H>

namespace nalt {

/// A plain ground in the widget's colour with a thin line round it, somewhat darker than that.
Fl_Boxtype softBox();

} // namespace nalt
