#include "app/ProgressWindow.h"

#include "app/GuiWidgets.h"
#include "core/Model.h"

#include <FL/Fl_Box.H>
#include <FL/Fl_Progress.H>
#include <FL/fl_draw.H>

#include <algorithm>
#include <cmath>

namespace nalt {

namespace {

constexpr int width = 360;
constexpr int height = 76;
constexpr int margin = 14;
constexpr int textSize = 12;

} // namespace

ProgressWindow::ProgressWindow() : Fl_Double_Window(width, height, "Progress")
{
  label_ = new Fl_Box(margin, 10, width - 2 * margin, 20);
  label_->labeltype(plainLabel());
  label_->labelsize(textSize);
  label_->align(FL_ALIGN_INSIDE | FL_ALIGN_LEFT | FL_ALIGN_CLIP);
  bar_ = new Fl_Progress(margin, 40, width - 2 * margin, 20);
  bar_->minimum(0.0F);
  bar_->maximum(100.0F);
  bar_->selection_color(fl_rgb_color(47, 116, 192));
  bar_->labelsize(11);
  end();
  smallestLabel_ = label_->w();
  set_non_modal();
  callback([](Fl_Widget*, void*) {}); // it goes when the work is done, not before
}

void ProgressWindow::begin(const std::string& text)
{
  fl_font(FL_HELVETICA, textSize);
  int w = 0;
  int h = 0;
  fl_measure(text.c_str(), w, h, /*draw_symbols=*/0);
  const int labelWidth = std::max(smallestLabel_, w + 2 * label_->x());
  label_->size(labelWidth, label_->h());
  bar_->size(labelWidth, bar_->h());
  size(labelWidth + 2 * margin, height);
  label_->copy_label(text.c_str());
  bar_->value(0.0F);
  bar_->copy_label("0%");
  centreOverMainWindow(*this);
  show();
}

void ProgressWindow::setProgress(double percent)
{
  const auto whole = static_cast<float>(std::floor(std::clamp(percent, 0.0, 100.0)));
  if (whole == bar_->value()) return;
  bar_->value(whole);
  bar_->copy_label((std::to_string(static_cast<int>(whole)) + "%").c_str());
  bar_->redraw();
}

void ProgressWindow::end()
{
  label_->label(nullptr);
  hide();
}

} // namespace nalt
