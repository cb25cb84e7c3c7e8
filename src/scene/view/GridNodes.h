#pragma once

#include "core/Grid.h"

#include <osg/Geode>
#include <osg/Group>
#include <osg/ref_ptr>

namespace nalt {

/// How the lines of a grid and the model cover each other.
enum class GridDepth { zBuffer, alwaysOnTop, neverOnTop };

/// The lines of a grid for one viewport: a geode of thin ones and a geode of thick ones, both made anew whenever the
/// grid changes.
class GridNodes {
public:
  GridNodes();

  void rebuild(const Grid& grid);
  void setDepth(GridDepth depth);
  /// Hangs the lines below `root`, or takes them away.
  void show(osg::Group& root, bool shown);

  osg::Geode* thinLines() { return thin_.get(); }
  osg::Geode* thickLines() { return thick_.get(); }

private:
  osg::ref_ptr<osg::Geode> thin_ = new osg::Geode;
  osg::ref_ptr<osg::Geode> thick_ = new osg::Geode;
};

} // namespace nalt
