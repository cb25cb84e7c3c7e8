#pragma once

#include <FL/Fl_Group.H>

#include <vector>

namespace nalt {

/// A row of widgets that stay as they are while there is room, and grow narrower together where there isn't enough.
class NarrowingGroup : public Fl_Group {
public:
  NarrowingGroup(int x, int y, int w, int h) : Fl_Group(x, y, w, h) {}

  /// Takes the present places of the children as those that they have with enough room. To be called when all of them
  /// are there.
  void keepPlaces();
  void resize(int x, int y, int w, int h) override;

private:
  struct Place {
    int x, y, w, h; ///< from the group's corner
  };
  std::vector<Place> places_;
  int wide_ = 0; ///< room that all of them need
};

} // namespace nalt
