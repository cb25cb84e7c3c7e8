#include "app/dialogs/ExternalReferencesDialog.h"

#include "app/FileDialogs.h"
#include "app/Gui.h"
#include "core/Model.h"
#include "core/dialogs/DialogStyle.h"
#include "core/dialogs/DialogText.h"
#include "platform/Paths.h"

#include <FL/Fl_Box.H>
#include <FL/Fl_Button.H>
#include <FL/Fl_Multi_Browser.H>

namespace nalt {

namespace {

using namespace dialog;

constexpr int width = 560;
constexpr int height = 330;
constexpr int stateWidth = 120;
constexpr int countWidth = 90;

const char* stateInWords(const ExternalReferenceInfo& info)
{
  if (!info.loaded) return "not loaded";
  return info.changed ? "changed on disk" : "loaded";
}

std::string usesInWords(int count)
{
  return count == 1 ? "1 reference" : std::to_string(count) + " references";
}

/// A line of the list. Behind "@." nothing in a path is taken for a layout code.
std::string lineOf(const ExternalReferenceInfo& info)
{
  return "@." + info.path + "\t@." + stateInWords(info) + "\t@." + usesInWords(info.references);
}

} // namespace

ExternalReferencesDialog::ExternalReferencesDialog(Gui& gui)
    : DialogWindow(width, height, "External References"), gui_(gui)
{
  const int inner = width - 2 * margin;
  const int listHeight = height - 2 * margin - buttonHeight - groupGap - rowHeight - rowGap;
  browser_ = new Fl_Multi_Browser(margin, margin, inner, listHeight);
  browser_->textsize(textSize);
  browser_->tooltip("The files that this model shows, with how often it refers to them");
  columns_[0] = inner - stateWidth - countWidth - 24;
  columns_[1] = stateWidth;
  browser_->column_widths(columns_);
  browser_->column_char('\t');
  actions_.connect(*browser_, [this] { updateButtons(); });
  found_ = addDialogText(margin, margin + listHeight + rowGap, inner, "", FL_ALIGN_LEFT, /*plain=*/true);
  const auto buttons =
      addDialogButtons(width, height, actions_,
                       {{"&Load", [this] { load(); }, false, "Load what is selected, anew if it is loaded already"},
                        {"&Unload", [this] { unload(); }, false, "Don't show what is selected any more"},
                        {"&Browse...", [this] { browse(); }, false, "Let what is selected refer to another file"},
                        {"&Close", [this] { hide(); }, /*isDefault=*/true}});
  load_ = buttons[0];
  unload_ = buttons[1];
  browse_ = buttons[2];
  end();
  resizable(browser_);
  size_range(480, 220);
}

void ExternalReferencesDialog::follow()
{
  if (shown()) fill();
}

void ExternalReferencesDialog::fill()
{
  const std::vector<std::string> before = selectedPaths();
  const Model* model = gui_.currentModel();
  shown_ = model ? externalReferencesOf(*model) : std::vector<ExternalReferenceInfo>();
  browser_->clear();
  int line = 0;
  for (const ExternalReferenceInfo& info : shown_) {
    browser_->add(lineOf(info).c_str());
    browser_->select(++line, std::ranges::find(before, info.path) != before.end() ? 1 : 0);
  }
  updateButtons();
}

std::vector<std::string> ExternalReferencesDialog::selectedPaths() const
{
  std::vector<std::string> paths;
  for (std::size_t n = 0; n < shown_.size(); ++n)
    if (browser_->selected(static_cast<int>(n) + 1)) paths.push_back(shown_[n].path);
  return paths;
}

void ExternalReferencesDialog::updateButtons()
{
  const std::vector<std::string> paths = selectedPaths();
  const bool idle = !gui_.files().busy();
  setActive(*load_, idle && !paths.empty());
  setActive(*unload_, idle && !paths.empty());
  setActive(*browse_, idle && paths.size() == 1);
  std::string text = shown_.empty() ? "This model has no external references." : "";
  if (!gui_.currentModel()) text = "No model is open.";
  for (const ExternalReferenceInfo& info : shown_) {
    if (paths.size() != 1 || info.path != paths.front()) continue;
    text = info.loaded ? "Loaded from " + info.foundPath : "Not loaded";
  }
  found_->copy_label(text.c_str());
}

void ExternalReferencesDialog::load()
{
  gui_.files().loadExternals(selectedPaths(), /*synchronous=*/false);
}

void ExternalReferencesDialog::unload()
{
  gui_.files().unloadExternals(selectedPaths());
  fill();
}

void ExternalReferencesDialog::browse()
{
  const std::vector<std::string> paths = selectedPaths();
  if (paths.size() != 1) return;
  FileDialogs chooser;
  const std::vector<std::string> chosen =
      chooser.chooseToRead("External Reference File", {{"OpenFlight", "*.flt"}}, 0, paths.front());
  if (!chosen.empty()) gui_.files().redirectExternals(paths.front(), chosen.front(), /*synchronous=*/false);
}

} // namespace nalt
