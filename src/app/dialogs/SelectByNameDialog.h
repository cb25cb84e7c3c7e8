#pragma once

#include "app/dialogs/SearchDialog.h"

namespace nalt {

/// Selects nodes by their names.
class SelectByNameDialog : public SearchDialog {
public:
  explicit SelectByNameDialog(Gui& gui);

protected:
  std::string select(Model& model) override;

private:
  Fl_Check_Button* caseSensitive_;
  Fl_Check_Button* addToSelection_;
};

} // namespace nalt
