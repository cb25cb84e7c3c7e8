#pragma once

#include <osg/Node>

namespace nalt {

/// A part of the scene that counts who comes by.
class VisitCount : public osg::Node {
public:
  void accept(osg::NodeVisitor& visitor) override
  {
    ++count;
    osg::Node::accept(visitor);
  }
  int count = 0;
};

} // namespace nalt
