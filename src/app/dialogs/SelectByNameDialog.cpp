#include "app/dialogs/SelectByNameDialog.h"

#include "app/dialogs/SearchText.h"
#include "core/Model.h"
#include "core/selection/SelectOperations.h"

#include <FL/Fl_Check_Button.H>

namespace nalt {

SelectByNameDialog::SelectByNameDialog(Gui& gui)
    : SearchDialog(gui, "Select By Name", "Names:", "Names with blanks between them; a name in quotes may hold blanks")
{
  caseSensitive_ = addCheck("Case Sensitive", "Capital and small letters differ", false);
  addToSelection_ = addCheck("Add To Selection", "Keep what is selected now", false);
  finish();
}

std::string SelectByNameDialog::select(Model& model)
{
  const NameSearch search = {namesIn(text()), caseSensitive_->value() != 0, addToSelection_->value() != 0};
  if (search.names.empty()) return "Enter at least one name.";
  if (!selectByName(model, search, /*undoable=*/true)) return "Nothing has that name.";
  return selectedInWords(model.selections().size());
}

} // namespace nalt
