#pragma once

#include "core/ExternalReferences.h"
#include "core/dialogs/DialogButtons.h"
#include "core/dialogs/DialogWindow.h"

#include <string>
#include <vector>

class Fl_Box;
class Fl_Button;
class Fl_Multi_Browser;

namespace nalt {

class Gui;

/// The external references of the current model: which are loaded, and where they lead.
class ExternalReferencesDialog : public DialogWindow {
public:
  explicit ExternalReferencesDialog(Gui& gui);

  /// Another model is current, references changed, or a file operation starts or ends.
  void follow();

protected:
  void opening() override { fill(); }

private:
  void fill();
  void updateButtons();
  std::vector<std::string> selectedPaths() const;
  void load();
  void unload();
  void browse();

  Gui& gui_;
  Actions actions_;
  Fl_Multi_Browser* browser_;
  Fl_Box* found_;
  Fl_Button* load_;
  Fl_Button* unload_;
  Fl_Button* browse_;
  std::vector<ExternalReferenceInfo> shown_;
  int columns_[3] = {0, 0, 0};
};

} // namespace nalt
