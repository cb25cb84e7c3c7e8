#include "app/Tooltip.h"

#include <FL/Fl_Widget.H>

#include <set>

namespace nalt {

void setTooltip(Fl_Widget& widget, const std::string& text)
{
  if (widget.tooltip() && text == widget.tooltip()) return;
  static std::set<std::string> texts;
  widget.tooltip(texts.insert(text).first->c_str());
}

} // namespace nalt
