#pragma once

#include "scene/image/NormalLines.h"
#include "scene/image/VertexNumbers.h"
#include "scene/view/ViewportPreferences.h"

#include <osg/Group>

namespace nalt {

class Selections;
struct ViewStyle;

/// What one viewport draws at the corners of the model on demand: their normals and their numbers. Brought up to date
/// before each picture; what didn't change costs next to nothing.
class CornerMarks {
public:
  osg::Group* root() { return root_.get(); }
  /// @param bits those of the viewport in the node masks
  void update(osg::Node& model, std::uint32_t bits, const ViewStyle& style, const ViewportPreferences& preferences,
              const Selections& selections);
  void clear();

private:
  void updateNormals(osg::Node& model, std::uint32_t bits, const ViewportPreferences& preferences,
                     const Selections& selections);

  osg::ref_ptr<osg::Group> root_ = new osg::Group;
  NormalLines normals_;
  VertexNumbers numbers_;
};

} // namespace nalt
