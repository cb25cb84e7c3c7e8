#pragma once

#include "core/selection/RecordedChange.h"
#include "fltapi/AllRecords.h"
#include "fltapi/FltFile.h"
#include "tests/scene/view/ViewportFixture.h"

namespace nalt {

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
  template <class T>
  T* make(fltapi::PrimNodeRecord& parent)
  {
    auto* record = model->fltFile()->create<T>();
    parent.addChild(record, /*append=*/true);
    record->assignUniqueName();
    return record;
  }
  fltapi::FaceRecord* makeFace()
  {
    auto* face = make<fltapi::FaceRecord>(*object);
    auto* list = model->fltFile()->create<fltapi::VertexListRecord>();
    face->addChild(list, /*append=*/true);
    for (const osg::Vec3d& corner : {osg::Vec3d(0, 0, 0), osg::Vec3d(4, 0, 0), osg::Vec3d(0, 4, 0)}) {
      auto* vertex = model->fltFile()->create<fltapi::VertexRecord>();
      vertex->setPosition(corner);
      list->addVertex(vertex);
    }
    return face;
  }
  void select(fltapi::PrimNodeRecord& node)
  {
    model->selections().select(selectionOf(node), recordedChange("", "", false));
  }

  fltapi::ObjectRecord* object = nullptr;
  fltapi::FaceRecord* first = nullptr;
  fltapi::FaceRecord* second = nullptr;
};

} // namespace nalt
