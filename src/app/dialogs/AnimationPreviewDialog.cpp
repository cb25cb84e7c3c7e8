#include "app/dialogs/AnimationPreviewDialog.h"

#include "app/Gui.h"
#include "core/Model.h"
#include "core/dialogs/DialogStyle.h"
#include "core/dialogs/DialogText.h"
#include "fltapi/AllRecords.h"

#include <FL/Fl.H>
#include <FL/Fl_Box.H>
#include <FL/Fl_Button.H>
#include <FL/Fl_Multi_Browser.H>

#include <algorithm>

namespace nalt {

namespace {

using namespace dialog;
using fltapi::GroupRecord;

constexpr int width = 380;
constexpr int height = 280;
constexpr double tickLength = 1.0 / 30; // seconds

std::string lineOf(const GroupRecord& group)
{
  const auto course = animationOf(group);
  std::string text = "@." + group.getName();
  if (course) text += ": " + std::to_string(course->children) + " children, " + course->inWords();
  return text;
}

} // namespace

AnimationPreviewDialog::AnimationPreviewDialog(Gui& gui) : DialogWindow(width, height, "Preview Animation"), gui_(gui)
{
  const int inner = width - 2 * margin;
  const int listHeight = height - 2 * margin - buttonHeight - groupGap - rowHeight - rowGap;
  browser_ = new Fl_Multi_Browser(margin, margin, inner, listHeight);
  browser_->textsize(textSize);
  browser_->tooltip("The animated groups to play; all of them when none is selected");
  state_ = addDialogText(margin, margin + listHeight + rowGap, inner, "");
  const auto buttons = addDialogButtons(width, height, actions_,
                                        {{"&Play", [this] { play(); }, /*isDefault=*/true, "Play from the start"},
                                         {"&Stop", [this] { stop(); }, false, "Show everything as before"},
                                         {"&Close", [this] { hide(); }}});
  play_ = buttons[0];
  stop_ = buttons[1];
  end();
  resizable(browser_);
  size_range(320, 200);
}

AnimationPreviewDialog::~AnimationPreviewDialog()
{
  stop();
}

void AnimationPreviewDialog::closed()
{
  stop();
  file_ = nullptr;
  groups_.clear();
}

Model* AnimationPreviewDialog::model() const
{
  for (int n = 0; file_ && n < gui_.modelCount(); ++n)
    if (gui_.modelAt(n)->fltFile() == file_) return gui_.modelAt(n);
  return nullptr;
}

void AnimationPreviewDialog::follow()
{
  if (!shown()) return;
  const Model* current = gui_.currentModel();
  fltapi::FltFile* const file = current ? current->fltFile() : nullptr;
  const std::vector<GroupRecord*> groups = file ? animatedGroups(*file) : std::vector<GroupRecord*>();
  if (file_ == file && std::equal(groups.begin(), groups.end(), groups_.begin(), groups_.end())) return;
  stop();
  fill();
}

void AnimationPreviewDialog::fill()
{
  const Model* current = gui_.currentModel();
  file_ = current ? current->fltFile() : nullptr;
  groups_.clear();
  browser_->clear();
  for (GroupRecord* group : file_ ? animatedGroups(*file_) : std::vector<GroupRecord*>()) {
    groups_.emplace_back(group);
    browser_->add(lineOf(*group).c_str());
  }
  updateButtons();
}

void AnimationPreviewDialog::updateButtons()
{
  setActive(*play_, !groups_.empty());
  setActive(*stop_, preview_ != nullptr);
  if (preview_) {
    state_->label("Playing");
  } else if (groups_.empty()) {
    state_->label(file_ ? "This model has no animated groups." : "No model is open.");
  } else {
    state_->label("Stopped");
  }
}

void AnimationPreviewDialog::play()
{
  stop();
  Model* const played = model();
  if (!played || !played->sync()) return;
  std::vector<GroupRecord*> wanted;
  for (std::size_t n = 0; n < groups_.size(); ++n)
    if (browser_->selected(static_cast<int>(n) + 1)) wanted.push_back(groups_[n]);
  if (wanted.empty()) wanted.assign(groups_.begin(), groups_.end());
  preview_ = std::make_unique<AnimationPreview>(*played->sync(), wanted);
  started_ = osg::Timer::instance()->tick();
  tick();
  updateButtons();
}

void AnimationPreviewDialog::stop()
{
  Fl::remove_timeout(tickOf, this);
  if (!preview_) return;
  Model* const played = model();
  if (!played) preview_->abandon();
  preview_ = nullptr;
  if (played) played->redrawViewports();
  updateButtons();
}

void AnimationPreviewDialog::tickOf(void* self)
{
  static_cast<AnimationPreviewDialog*>(self)->tick();
}

void AnimationPreviewDialog::tick()
{
  Model* const played = model();
  if (!played || !preview_) return;
  const double seconds = osg::Timer::instance()->delta_s(started_, osg::Timer::instance()->tick());
  if (preview_->isOver(seconds)) {
    stop();
    return;
  }
  if (preview_->show(seconds)) played->redrawViewports();
  Fl::add_timeout(tickLength, tickOf, this);
}

} // namespace nalt
