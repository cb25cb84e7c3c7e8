#pragma once

#include <osg/NodeCallback>

namespace nalt {

/// Leaves out what would cover less than the scene view's small feature size, but only below the node it is set on: a
/// grid or a handle must never vanish for being small.
class SmallFeatureCullingCallback : public osg::NodeCallback {
public:
  void operator()(osg::Node* node, osg::NodeVisitor* visitor) override;
};

} // namespace nalt
