#pragma once

#include <osg/Group>
#include <osg/ref_ptr>

namespace nalt {

// What hangs below these groups is drawn as lines and points over the whole scene: black, and white in dashes over it.

osg::ref_ptr<osg::Group> blackHighlightGroup();
osg::ref_ptr<osg::Group> whiteHighlightGroup();

} // namespace nalt
