#include "app/dialogs/CommandListDialog.h"

#include "app/Gui.h"
#include "app/dialogs/CommandListText.h"
#include "core/Model.h"
#include "core/dialogs/DialogStyle.h"

#include <FL/Fl.H>
#include <FL/Fl_Hold_Browser.H>

namespace nalt {

namespace {

using namespace dialog;

constexpr int width = 280;
constexpr int height = 380;

} // namespace

CommandListDialog::CommandListDialog(Gui& gui) : DialogWindow(width, height, "Command List"), gui_(gui)
{
  const int listHeight = height - 2 * margin - buttonHeight - groupGap;
  browser_ = new Fl_Hold_Browser(margin, margin, width - 2 * margin, listHeight);
  browser_->textsize(textSize);
  browser_->tooltip("Double-click a command to go to the state right after it");
  actions_.connect(*browser_, [this] { picked(); });
  addDialogButtons(width, height, actions_, {{"&Close", [this] { hide(); }, /*isDefault=*/true}});
  end();
  resizable(browser_);
  size_range(200, 160);
}

void CommandListDialog::follow()
{
  if (shown()) fill();
}

void CommandListDialog::fill()
{
  browser_->clear();
  Model* model = gui_.currentModel();
  if (!model) return;
  for (const std::string& line : commandListLines(model->commandStack()))
    browser_->add(line.c_str());
  if (const int current = currentCommandLine(model->commandStack())) {
    browser_->value(current);
    browser_->make_visible(current);
  }
}

void CommandListDialog::picked()
{
  Model* model = gui_.currentModel();
  if (!model || gui_.files().busy() || !Fl::event_clicks() || Fl::event() != FL_RELEASE) return;
  Fl::event_clicks(0);
  goToCommandLine(model->commandStack(), browser_->value());
  gui_.updateWidgets();
}

void CommandListDialog::copySelected() const
{
  const int line = browser_->value();
  if (line == 0) return;
  const std::string text = plainCommandText(browser_->text(line));
  Fl::copy(text.c_str(), static_cast<int>(text.size()), /*destination=*/1);
}

int CommandListDialog::handle(int event)
{
  const bool isKey = event == FL_KEYDOWN || event == FL_SHORTCUT;
  if (isKey && Fl::event_state(FL_CTRL) && Fl::event_key() == 'c') {
    copySelected();
    return 1;
  }
  return DialogWindow::handle(event);
}

} // namespace nalt
