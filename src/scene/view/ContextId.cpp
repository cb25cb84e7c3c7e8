#include "scene/view/ContextId.h"

#include <osg/DisplaySettings>

namespace nalt {

unsigned nextContextId()
{
  static unsigned next = 0;
  const unsigned id = next++;
  // Scene objects keep one slot for each context; without this they grow when they are first drawn.
  osg::DisplaySettings::instance()->setMaxNumberOfGraphicsContexts(next);
  return id;
}

} // namespace nalt
