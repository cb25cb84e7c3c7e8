#include "app/MenuTable.h"
#include "app/ToolBars.h"
#include "core/drawing/Icons.h"
#include "scene/view/ViewportActions.h"

#include <FL/Enumerations.H>
#include <gtest/gtest.h>

#include <map>
#include <set>
#include <string>

namespace nalt {

TEST(MenuTable, EverySubmenuIsEnded)
{
  int depth = 0;
  for (const MenuRow& row : menuRows()) {
    if (row.kind == MenuRow::Kind::submenu) ++depth;
    if (row.kind == MenuRow::Kind::end) --depth;
    EXPECT_GE(depth, 0);
  }
  EXPECT_EQ(depth, 0);
}

TEST(MenuTable, NoTwoEntriesShareAShortcut)
{
  std::map<int, std::string> owners;
  for (const MenuRow& row : menuRows()) {
    if (row.shortcut == 0) continue;
    const auto [place, isNew] = owners.emplace(row.shortcut, row.label);
    EXPECT_TRUE(isNew) << row.label << " and " << place->second;
  }
}

TEST(MenuTable, NoEntryTakesAKeyOfTheViewports)
{
  std::set<int> keys;
  for (const ViewportAction& action : viewportActions())
    keys.insert(action.key);
  for (const MenuRow& row : menuRows())
    if (row.shortcut != 0) {
      EXPECT_FALSE(keys.contains(row.shortcut)) << row.label;
    }
}

TEST(MenuTable, LabelsAreUniqueInTheirSubmenu)
{
  std::vector<std::set<std::string>> open(1);
  for (const MenuRow& row : menuRows()) {
    if (row.label && *row.label != 0) {
      EXPECT_TRUE(open.back().insert(row.label).second) << row.label;
    }
    if (row.kind == MenuRow::Kind::submenu) open.emplace_back();
    if (row.kind == MenuRow::Kind::end) open.pop_back();
  }
}

TEST(ToolBars, EveryButtonHasAPicture)
{
  for (const auto bar : {upperToolBar(), leftToolBar()})
    for (const ToolButton& button : bar)
      EXPECT_TRUE(icon(button.icon, 24)) << button.tooltip;
}

TEST(ToolBars, HoldTheirGroupsInOnePiece)
{
  for (const auto bar : {upperToolBar(), leftToolBar()}) {
    std::set<std::string> closed;
    std::string group;
    for (const ToolButton& button : bar) {
      if (group == button.group) continue;
      EXPECT_TRUE(closed.insert(button.group).second) << button.group;
      group = button.group;
    }
  }
  EXPECT_EQ(upperToolBar().size(), 26U);
  EXPECT_EQ(leftToolBar().size(), 43U);
}

} // namespace nalt
