#include "app/NarrowingGroup.h"

#include <algorithm>
#include <cmath>

namespace nalt {

void NarrowingGroup::keepPlaces()
{
  places_.clear();
  wide_ = 0;
  for (int i = 0; i < children(); ++i) {
    const Fl_Widget& widget = *child(i);
    places_.push_back({widget.x() - x(), widget.y() - y(), widget.w(), widget.h()});
    wide_ = std::max(wide_, places_.back().x + places_.back().w);
  }
}

void NarrowingGroup::resize(int newX, int newY, int newW, int newH)
{
  Fl_Widget::resize(newX, newY, newW, newH);
  const double share = newW < wide_ ? static_cast<double>(newW) / wide_ : 1.0;
  const auto narrowed = [share](int length) { return static_cast<int>(std::lround(length * share)); };
  for (std::size_t i = 0; i < places_.size(); ++i) {
    const Place& place = places_[i];
    const int left = narrowed(place.x);
    child(static_cast<int>(i))->resize(newX + left, newY + place.y, narrowed(place.x + place.w) - left, place.h);
  }
}

} // namespace nalt
