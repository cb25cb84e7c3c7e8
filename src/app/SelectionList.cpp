#include "app/SelectionList.h"

#include "core/Model.h"
#include "fltapi/AllRecords.h"

#include <FL/Fl.H>

#include <string>

namespace nalt {

namespace {

using fltapi::PrimNodeRecord;
using fltapi::VertexBaseRecord;
using fltapi::VertexListRecord;

std::string nameOf(SelectionMode mode, PrimNodeRecord& node, VertexBaseRecord* vertex)
{
  auto* list = vertex ? node.findChild<VertexListRecord>() : nullptr;
  if (list && mode == SelectionMode::vertex) return nalt::nameOf(FltVertex{list, vertex});
  if (list && mode == SelectionMode::edge) return nalt::nameOf(FltEdge{list, vertex, nullptr});
  return node.getName();
}

std::string countOf(std::size_t count)
{
  std::string text = std::to_string(count);
  for (auto place = static_cast<int>(text.size()) - 3; place > 0; place -= 3)
    text.insert(static_cast<std::size_t>(place), ",");
  return text;
}

} // namespace

SelectionList::SelectionList(int x, int y, int w, int h) : Fl_Multi_Browser(x, y, w, h)
{
  format_char(0); // a name may begin with any letter
  column_char(0);
  clear_visible_focus();
}

SelectionList::~SelectionList()
{
  Fl::remove_timeout(refill, this);
}

void SelectionList::follow(Model* model)
{
  if (model != model_) {
    clear();
    lines_.clear(); // keeps no record of a model that may be about to go
  }
  model_ = model;
  if (!Fl::has_timeout(refill, this)) Fl::add_timeout(0.0, refill, this);
}

void SelectionList::refill(void* self)
{
  static_cast<SelectionList*>(self)->fill();
}

void SelectionList::fill()
{
  clear();
  lines_.clear();
  if (!model_) return;
  const Selections& selections = model_->selections().current();
  if (selections.size() > longest) {
    add(("(" + countOf(selections.size()) + " elements)").c_str());
    return;
  }
  for (const auto& [mode, selection] : selections.families())
    addLines(*selection);
}

void SelectionList::addLines(const Selection& selection)
{
  const SelectionMode mode = selection.mode();
  selection.forEach([&](PrimNodeRecord& node, VertexBaseRecord* vertex) {
    add(nameOf(mode, node, vertex).c_str());
    lines_.push_back({mode, &node, vertex});
  });
}

void SelectionList::selectLine(int line)
{
  if (!model_ || line < 1 || line > static_cast<int>(lines_.size())) return;
  const Line chosen = lines_[static_cast<std::size_t>(line - 1)];
  const Selection* family = model_->selections().current().find(chosen.mode);
  if (!family) return;
  std::unique_ptr<Selection> alone = family->clone();
  alone->discard([&](const PrimNodeRecord& node, const fltapi::Record* vertex) {
    return &node != chosen.node || vertex != chosen.vertex;
  });
  SelectionChange change;
  change.byHand = true;
  if (!alone->empty()) model_->selections().select(std::move(alone), change);
}

int SelectionList::handle(int event)
{
  const bool second = event == FL_PUSH && Fl::event_button() == FL_LEFT_MOUSE && Fl::event_clicks() > 0;
  const int result = Fl_Multi_Browser::handle(event);
  if (second) selectLine(value());
  return result;
}

} // namespace nalt
