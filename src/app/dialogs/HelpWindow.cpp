#include "app/dialogs/HelpWindow.h"

#include "core/dialogs/DialogStyle.h"
#include "core/dialogs/DialogWindow.h"
#include "core/drawing/Icons.h"

#include <FL/Fl.H>
#include <FL/Fl_Box.H>
#include <FL/Fl_Button.H>
#include <FL/Fl_Help_View.H>
#include <FL/Fl_Hold_Browser.H>
#include <FL/Fl_Input.H>

#include <algorithm>

namespace nalt {

namespace {

using namespace dialog;

constexpr int width = 890;
constexpr int height = 620;
constexpr int listWidth = 220;
constexpr int fieldWidth = 220;
constexpr int pageTextSize = 14;

} // namespace

HelpWindow::HelpWindow(std::vector<ManualChapter> chapters)
    : Fl_Double_Window(width, height, "Nalt Help"), chapters_(std::move(chapters))
{
  const int top = margin + rowHeight + rowGap + 4;
  back_ = new Fl_Button(margin, margin, 70, rowHeight, "&Back");
  back_->labelsize(textSize);
  back_->tooltip("The chapter that was shown before");
  back_->clear_visible_focus();
  actions_.connect(*back_, [this] { goBack(); });
  found_ = new Fl_Box(margin + 80, margin, width - 2 * margin - 80 - fieldWidth - 70, rowHeight);
  found_->labelsize(textSize);
  found_->align(FL_ALIGN_INSIDE | FL_ALIGN_LEFT | FL_ALIGN_CLIP);
  field_ = new Fl_Input(width - margin - fieldWidth, margin, fieldWidth, rowHeight, "Search:");
  field_->labelsize(textSize);
  field_->textsize(textSize);
  field_->tooltip("Return finds the next place in all chapters");
  field_->when(FL_WHEN_ENTER_KEY_ALWAYS);
  actions_.connect(*field_, [this] { search(); });

  list_ = new Fl_Hold_Browser(margin, top, listWidth, height - top - margin);
  list_->textsize(textSize);
  for (const ManualChapter& chapter : chapters_)
    list_->add(chapter.title.c_str());
  actions_.connect(*list_, [this] {
    if (list_->value() > 0) showChapter(list_->value() - 1);
  });
  const int pageX = margin + listWidth + fieldGap;
  page_ = new Fl_Help_View(pageX, top, width - margin - pageX, height - top - margin);
  page_->textsize(pageTextSize);
  page_->box(FL_DOWN_BOX);
  page_->link(linkUsed);
  end();
  resizable(page_);
  size_range(520, 320);
  xclass("nalt");
  const auto picture = makeIcon("nalt", 64, 64);
  icon(picture.get());
  callback([](Fl_Widget* self, void*) { self->hide(); });
}

HelpWindow::~HelpWindow()
{
  Fl::remove_timeout(showWanted, this);
}

void HelpWindow::open()
{
  if (!shown()) placeOver(*this, Fl::first_window());
  show();
  if (shown_ < 0) showChapter(0);
  page_->take_focus();
}

void HelpWindow::showChapter(int chapter)
{
  if (chapter < 0 || chapter >= static_cast<int>(chapters_.size()) || chapter == shown_) return;
  if (shown_ >= 0) before_.push_back(shown_);
  shown_ = chapter;
  searchedFrom_ = 0;
  page_->value(pageOf(chapters_[static_cast<std::size_t>(chapter)]).c_str());
  list_->value(chapter + 1);
  setActive(*back_, !before_.empty());
}

void HelpWindow::goBack()
{
  if (before_.empty()) return;
  const int chapter = before_.back();
  before_.pop_back();
  shown_ = -1;
  showChapter(chapter);
}

/// FLTK gives the name of the page without its place in the page.
const char* HelpWindow::linkUsed(Fl_Widget* view, const char* target)
{
  auto* window = dynamic_cast<HelpWindow*>(view->window());
  if (window && target) window->followLink(target);
  return nullptr; // the view itself loads nothing
}

/// The view still looks at the page that is left, so the new one has to wait a moment.
void HelpWindow::followLink(const std::string& target)
{
  const std::string name = "/" + target.substr(target.find_last_of('/') + 1);
  const auto chapter =
      std::ranges::find_if(chapters_, [&](const ManualChapter& candidate) { return candidate.file.ends_with(name); });
  if (chapter == chapters_.end()) return;
  wanted_ = static_cast<int>(chapter - chapters_.begin());
  Fl::add_timeout(0, showWanted, this);
}

void HelpWindow::showWanted(void* self)
{
  auto& window = *static_cast<HelpWindow*>(self);
  window.showChapter(window.wanted_);
}

void HelpWindow::search()
{
  const std::string wanted = field_->value();
  if (wanted.empty() || shown_ < 0) return;
  found_->label("");
  const int place = page_->find(wanted.c_str(), searchedFrom_);
  if (place >= 0) {
    searchedFrom_ = place + 1;
    return;
  }
  const int chapter = findInManual(chapters_, wanted, shown_ + 1);
  if (chapter < 0) {
    found_->label("Not found.");
    return;
  }
  if (chapter == shown_) found_->label("From the start of this chapter again.");
  searchedFrom_ = 0;
  showChapter(chapter);
  searchedFrom_ = std::max(0, page_->find(wanted.c_str(), 0) + 1);
}

int HelpWindow::handle(int event)
{
  const bool isShortcut = event == FL_SHORTCUT && Fl::event_state(FL_CTRL) && Fl::event_key() == 'f';
  if (!isShortcut) return Fl_Double_Window::handle(event);
  field_->take_focus();
  return 1;
}

} // namespace nalt
