#include "app/dialogs/SelectByVerticesDialog.h"

#include "app/dialogs/SearchText.h"
#include "core/Model.h"
#include "core/NumberText.h"
#include "core/selection/SelectOperations.h"

#include <FL/Fl_Check_Button.H>

namespace nalt {

SelectByVerticesDialog::SelectByVerticesDialog(Gui& gui)
    : SearchDialog(gui, "Select Polygons By Number Of Vertices", "Number Of Vertices:", "How many corners they have")
{
  fromCurrent_ = addCheck("Select From Current", "Only among what is selected now, if anything is", true);
  finish();
}

std::string SelectByVerticesDialog::select(Model& model)
{
  const auto count = wholeNumberFromText(text());
  if (!count || *count < 0) return "Enter a whole number.";
  if (!selectByNumberOfVertices(model, *count, fromCurrent_->value() != 0, /*undoable=*/true))
    return "No polygon has so many.";
  return selectedInWords(model.selections().size());
}

} // namespace nalt
