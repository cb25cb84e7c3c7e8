#include "app/Commands.h"
#include "app/Gui.h"
#include "app/dialogs/Dialogs.h"

namespace nalt::commands {

void preferences(Gui& gui)
{
  gui.dialogs().openPreferences();
}

void sensitivity(Gui& gui)
{
  gui.dialogs().openSensitivity();
}

void commandList(Gui& gui)
{
  gui.dialogs().openCommandList();
}

void externalReferences(Gui& gui)
{
  gui.dialogs().openExternalReferences();
}

void selectByName(Gui& gui)
{
  gui.dialogs().openSelectByName();
}

void selectByVertices(Gui& gui)
{
  gui.dialogs().openSelectByVertices();
}

void previewDof(Gui& gui)
{
  gui.dialogs().openDofPreview();
}

void previewAnimation(Gui& gui)
{
  gui.dialogs().openAnimationPreview();
}

void help(Gui& gui)
{
  gui.dialogs().openHelp();
}

} // namespace nalt::commands
