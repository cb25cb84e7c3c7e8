#include "app/dialogs/KeyTable.h"

#include "app/MenuTable.h"
#include "scene/view/ViewportActions.h"

#include <FL/Enumerations.H>

#include <array>
#include <vector>

namespace nalt {

namespace {

struct KeyName {
  int key;
  const char* name;
};

constexpr std::array keyNames = {
    KeyName{' ', "Space"},
    KeyName{FL_Tab, "Tab"},
    KeyName{FL_Delete, "Delete"},
    KeyName{FL_KP + '+', "keypad +"},
    KeyName{FL_KP + '-', "keypad -"},
    KeyName{'&', "&amp;"},
};

std::string nameOf(int key, bool capital)
{
  for (const KeyName& row : keyNames)
    if (row.key == key) return row.name;
  if (key > FL_F && key <= FL_F_Last) return "F" + std::to_string(key - FL_F);
  const bool isLetter = key >= 'a' && key <= 'z';
  return {static_cast<char>(isLetter && capital ? key - 'a' + 'A' : key)};
}

/// A menu label as it is read.
std::string textOf(const char* label)
{
  std::string text;
  for (const char* c = label; *c; ++c)
    if (*c != '&') text += *c;
  while (text.ends_with(' '))
    text.pop_back();
  return text;
}

std::string rowOf(const std::string& key, const std::string& text)
{
  return "<tr><td>" + key + "</td><td>" + text + "</td></tr>\n";
}

std::string menuKeys()
{
  std::string html;
  std::vector<std::string> path;
  for (const MenuRow& row : menuRows()) {
    if (row.kind == MenuRow::Kind::submenu) path.push_back(textOf(row.label));
    if (row.kind == MenuRow::Kind::end) path.pop_back();
    if (row.kind != MenuRow::Kind::entry || !row.run || row.shortcut == 0 || path.empty()) continue;
    const std::string label = *row.label ? textOf(row.label) : row.shortcut == (FL_CTRL | 'z') ? "Undo" : "Redo";
    html += rowOf(keyInWords(row.shortcut), path.back() + " &gt; " + label);
  }
  return html;
}

std::string viewportKeys()
{
  std::string html;
  for (const ViewportAction& action : viewportActions()) {
    if (!action.run || action.key == 0) continue;
    std::string keys = keyInWords(action.key);
    if (action.otherKey) keys += ", " + keyInWords(action.otherKey);
    html += rowOf(keys, (action.group ? action.group + std::string(" &gt; ") : std::string()) + action.label);
  }
  return html;
}

} // namespace

std::string keyInWords(int key)
{
  const bool modified = key & (FL_CTRL | FL_ALT | FL_SHIFT);
  std::string text;
  if (key & FL_CTRL) text += "Ctrl+";
  if (key & FL_ALT) text += "Alt+";
  if (key & FL_SHIFT) text += "Shift+";
  return text + nameOf(key & FL_KEY_MASK, modified);
}

std::string keyTables()
{
  return "<h2>In all windows</h2>\n<table border=\"1\">\n" + menuKeys() +
         "</table>\n<h2>In a viewport</h2>\n<table border=\"1\">\n" + viewportKeys() + "</table>\n";
}

} // namespace nalt
