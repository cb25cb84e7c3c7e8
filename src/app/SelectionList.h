#pragma once

#include "core/selection/SelectionMode.h"

#include <FL/Fl_Multi_Browser.H>
#include <osg/ref_ptr>

#include <cstddef>
#include <vector>

namespace fltapi {
class PrimNodeRecord;
class Record;
} // namespace fltapi

namespace nalt {

class Model;
class Selection;

/// Names what is selected, an element a line. A double click selects that element alone.
///
/// Of a very long selection only the number of elements is told: a click must not wait for names that nobody reads.
class SelectionList : public Fl_Multi_Browser {
public:
  static constexpr std::size_t longest = 10'000;

  SelectionList(int x, int y, int w, int h);
  ~SelectionList() override;

  /// Shows the selection of `model`, which may be null, when the program next has nothing else to do.
  void follow(Model* model);

  int handle(int event) override;

private:
  struct Line {
    SelectionMode mode;
    osg::ref_ptr<fltapi::PrimNodeRecord> node;
    osg::ref_ptr<fltapi::Record> vertex; ///< of corners and edges
  };

  static void refill(void* self);
  void fill();
  void addLines(const Selection& selection);
  void selectLine(int line);

  Model* model_ = nullptr;
  std::vector<Line> lines_;
};

} // namespace nalt
