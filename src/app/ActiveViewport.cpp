#include "app/ActiveViewport.h"

#include "app/Gui.h"
#include "core/Model.h"
#include "scene/view/Viewport.h"

namespace nalt {

Viewport* activeViewport(const Gui& gui)
{
  const Model* model = gui.currentModel();
  return model ? dynamic_cast<Viewport*>(model->activeViewport()) : nullptr;
}

} // namespace nalt
