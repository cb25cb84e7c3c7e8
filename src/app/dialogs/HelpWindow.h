#pragma once

#include "app/dialogs/Manual.h"
#include "core/dialogs/DialogButtons.h"

#include <FL/Fl_Double_Window.H>

#include <string>
#include <vector>

class Fl_Box;
class Fl_Button;
class Fl_Help_View;
class Fl_Hold_Browser;
class Fl_Input;

namespace nalt {

/// The user's manual: its chapters on the left, the page on the right, a field to search in all of them above.
class HelpWindow : public Fl_Double_Window {
public:
  explicit HelpWindow(std::vector<ManualChapter> chapters);
  ~HelpWindow() override;

  /// Shows the window, at first with the contents.
  void open();
  int handle(int event) override;

private:
  void showChapter(int chapter);
  void followLink(const std::string& target);
  static void showWanted(void* self);
  void goBack();
  void search();
  static const char* linkUsed(Fl_Widget* view, const char* target);

  std::vector<ManualChapter> chapters_;
  Actions actions_;
  Fl_Hold_Browser* list_;
  Fl_Help_View* page_;
  Fl_Input* field_;
  Fl_Button* back_;
  Fl_Box* found_;
  std::vector<int> before_; ///< the chapters that were shown, the last one last
  int shown_ = -1;
  int wanted_ = -1;      ///< by the link that was used
  int searchedFrom_ = 0; ///< place in the text of the page behind the last thing found
};

} // namespace nalt
