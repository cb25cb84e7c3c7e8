#pragma once

#include "core/selection/RecordedChange.h"
#include "tests/scene/view/ViewportFixture.h"
#include "tests/support/MakeRecords.h"

namespace nalt {

using tests::make;

/// Two triangles below one object, shown in one viewport.
class SmallScene : public ViewportFixture {
protected:
  void SetUp() override
  {
    ViewportFixture::SetUp();
    object = make<fltapi::ObjectRecord>(*model->fltFile()->header());
    first = makeFace();
    second = makeFace();
    model->sync()->translateAll();
  }
  fltapi::FaceRecord* makeFace() { return tests::makeFace(*object, {{0, 0, 0}, {4, 0, 0}, {0, 4, 0}}); }
  void select(fltapi::PrimNodeRecord& node)
  {
    model->selections().select(selectionOf(node), recordedChange("", "", false));
  }

  fltapi::ObjectRecord* object = nullptr;
  fltapi::FaceRecord* first = nullptr;
  fltapi::FaceRecord* second = nullptr;
};

} // namespace nalt
