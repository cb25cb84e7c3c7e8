#include "app/dialogs/DofPreviewDialog.h"

#include "app/Gui.h"
#include "core/Model.h"
#include "core/dialogs/DialogStyle.h"
#include "core/dialogs/DialogText.h"
#include "core/dialogs/Form.h"
#include "fltapi/AllRecords.h"

#include <FL/Fl_Box.H>
#include <FL/Fl_Button.H>
#include <FL/Fl_Choice.H>
#include <FL/Fl_Slider.H>
#include <FL/Fl_Value_Input.H>

#include <algorithm>
#include <cmath>
#include <osg/Node>

namespace nalt {

namespace {

using namespace dialog;
using fltapi::DofRecord;

constexpr int width = 400;
constexpr int labelWidth = 60;
constexpr int numberWidth = 76;
constexpr int decimals = 3;

double rounded(double value)
{
  const double scale = std::pow(10.0, decimals);
  return std::round(value * scale) / scale;
}

/// In the order of the tree, each once.
std::vector<osg::ref_ptr<DofRecord>> dofsOf(const fltapi::FltFile& file)
{
  std::vector<osg::ref_ptr<DofRecord>> dofs;
  if (!file.header()) return dofs;
  for (auto* record : file.header()->findDescendants(DofRecord::code, /*followInstances=*/true))
    if (std::ranges::find(dofs, record) == dofs.end()) dofs.emplace_back(static_cast<DofRecord*>(record));
  return dofs;
}

} // namespace

DofPreviewDialog::DofPreviewDialog(Gui& gui) : DialogWindow(width, 0, "Preview DOF"), gui_(gui)
{
  const int x = margin + labelWidth + fieldGap;
  const int fieldWidth = width - margin - x;
  int y = margin;
  addDialogText(margin, y, labelWidth, "DOF:", FL_ALIGN_RIGHT);
  choice_ = new Fl_Choice(x, y, fieldWidth, rowHeight);
  choice_->textsize(textSize);
  choice_->tooltip("The degree of freedom to move");
  actions_.connect(*choice_, [this] { showValues(); });
  y += rowHeight + groupGap;
  for (std::size_t n = 0; n < sliders_.size(); ++n) {
    const DofChannel& channel = dofChannels()[n];
    addDialogText(margin, y, labelWidth, channel.label, FL_ALIGN_RIGHT);
    auto* number = new Fl_Value_Input(x, y, numberWidth, rowHeight);
    number->textsize(textSize);
    actions_.connect(*number, [this, n] { move(n, numbers_[n]->clamp(numbers_[n]->value())); });
    numbers_[n] = number;
    const int sliderX = x + numberWidth + fieldGap;
    auto* slider = new Fl_Slider(sliderX, y, width - margin - sliderX, rowHeight);
    slider->type(FL_HOR_NICE_SLIDER);
    actions_.connect(*slider, [this, n] { move(n, rounded(sliders_[n]->value())); });
    sliders_[n] = slider;
    y += rowHeight + (n % 3 == 2 ? groupGap : rowGap);
  }
  size(width, y + buttonHeight + margin);
  const auto buttons = addDialogButtons(w(), h(), actions_,
                                        {{"&Reset", [this] { reset(); }, false, "Put this DOF back where it stood"},
                                         {"&Close", [this] { hide(); }, /*isDefault=*/true, "Put everything back"}});
  reset_ = buttons[0];
  end();
}

DofPreviewDialog::~DofPreviewDialog()
{
  stop();
}

void DofPreviewDialog::opening()
{
  start();
}

Model* DofPreviewDialog::model() const
{
  for (int n = 0; file_ && n < gui_.modelCount(); ++n)
    if (gui_.modelAt(n)->fltFile() == file_) return gui_.modelAt(n);
  return nullptr;
}

void DofPreviewDialog::start()
{
  Model* current = gui_.currentModel();
  file_ = current ? current->fltFile() : nullptr;
  if (current && current->sync()) preview_ = std::make_unique<DofPreview>(*current->sync());
  fillChoice(selectedDof());
}

/// The scene of a model that was closed is gone with all that was moved in it.
void DofPreviewDialog::stop()
{
  Model* const shown = model();
  if (!shown && preview_) preview_->abandon();
  preview_ = nullptr;
  if (shown) shown->redrawViewports();
  file_ = nullptr;
  dofs_.clear();
}

void DofPreviewDialog::follow()
{
  if (!shown()) return;
  const Model* current = gui_.currentModel();
  if (file_ != (current ? current->fltFile() : nullptr) || !model()) {
    stop();
    start();
    return;
  }
  if (dofsOf(*file_) != dofs_) fillChoice(dof());
}

DofRecord* DofPreviewDialog::selectedDof() const
{
  Model* current = gui_.currentModel();
  const Selection* selection = current ? current->selections().current().find(SelectionMode::dof) : nullptr;
  if (!selection || !file_) return nullptr;
  for (const auto& candidate : dofsOf(*file_))
    if (selection->containsNode(*candidate)) return candidate;
  return nullptr;
}

void DofPreviewDialog::fillChoice(const DofRecord* wanted)
{
  dofs_ = file_ ? dofsOf(*file_) : std::vector<osg::ref_ptr<DofRecord>>();
  choice_->clear();
  int place = 0;
  for (std::size_t n = 0; n < dofs_.size(); ++n) {
    // Names are free: a "/" in them makes no submenu.
    choice_->add("", 0, nullptr);
    choice_->replace(static_cast<int>(n), dofs_[n]->getName().c_str());
    if (dofs_[n] == wanted) place = static_cast<int>(n);
  }
  if (dofs_.empty()) choice_->add(file_ ? "This model has no DOF" : "No model is open");
  choice_->value(place);
  showValues();
}

DofRecord* DofPreviewDialog::dof() const
{
  const int place = choice_->value();
  return place >= 0 && place < static_cast<int>(dofs_.size()) ? dofs_[static_cast<std::size_t>(place)].get() : nullptr;
}

void DofPreviewDialog::showValues()
{
  DofRecord* const shown = preview_ ? dof() : nullptr;
  setActive(*choice_, shown != nullptr);
  setActive(*reset_, shown != nullptr);
  double size = 10;
  if (shown) {
    const osg::Node* node = model()->sync()->nodeOf(*shown);
    if (node && node->getBound().valid() && node->getBound().radius() > 0) size = node->getBound().radius() * 2;
  }
  const DofValues values = shown ? preview_->valuesOf(*shown) : DofValues{};
  for (std::size_t n = 0; n < sliders_.size(); ++n) {
    Fl_Value_Input& number = *numbers_[n];
    Fl_Slider& slider = *sliders_[n];
    setActive(number, shown != nullptr);
    setActive(slider, shown != nullptr);
    const DofBounds bounds = shown ? previewBounds(*shown, dofChannels()[n], size) : DofBounds{0, 1};
    number.range(bounds.least, bounds.most);
    number.precision(decimals);
    number.soft(0);
    number.value(values[n]);
    slider.bounds(bounds.least, bounds.most);
    slider.value(values[n]);
  }
}

void DofPreviewDialog::move(std::size_t channel, double value)
{
  DofRecord* const moved = dof();
  if (!preview_ || !moved || !model() || gui_.files().busy()) return; // a worker may be making records
  DofValues values = preview_->valuesOf(*moved);
  values[channel] = value;
  numbers_[channel]->value(value);
  sliders_[channel]->value(value);
  preview_->move(*moved, values);
  model()->redrawViewports();
}

void DofPreviewDialog::reset()
{
  DofRecord* const moved = dof();
  if (!preview_ || !moved || !model()) return;
  preview_->restore(*moved);
  model()->redrawViewports();
  showValues();
}

} // namespace nalt
