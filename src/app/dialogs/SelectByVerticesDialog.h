#pragma once

#include "app/dialogs/SearchDialog.h"

namespace nalt {

/// Selects polygons by the number of their corners.
class SelectByVerticesDialog : public SearchDialog {
public:
  explicit SelectByVerticesDialog(Gui& gui);

protected:
  std::string select(Model& model) override;

private:
  Fl_Check_Button* fromCurrent_;
};

} // namespace nalt
