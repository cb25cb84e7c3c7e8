#include "core/ModelGroup.h"

#include "tests/core/RecordingShell.h"

#include <FL/Fl.H>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace nalt {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// Notes the events that it gets.
class NotingButton : public Fl_Widget {
public:
  NotingButton(int x, int y, int w, int h) : Fl_Widget(x, y, w, h) {}
  void draw() override {}
  int handle(int event) override
  {
    events.push_back(event);
    return answer;
  }

  std::vector<int> events;
  int answer = 1;
};

/// Tabs that fill the group lie over the button at its upper right corner, as in the main window.
class ModelGroupTest : public testing::Test {
protected:
  ModelGroupTest() : before_(Shell::install(&shell))
  {
    group.end();
    group.add(button);
    group.add(tabs);
    group.setCloseButton(&button);
  }
  ~ModelGroupTest() override
  {
    group.remove(button);
    group.remove(tabs);
    Shell::install(before_);
  }

  int send(int event, int x, int y)
  {
    Fl::e_x = x;
    Fl::e_y = y;
    return group.handle(event);
  }

  RecordingShell shell;
  ModelGroup group{0, 0, 200, 100};
  NotingButton button{180, 0, 15, 15};
  NotingButton tabs{0, 0, 200, 100};

private:
  Shell* before_;
};

TEST_F(ModelGroupTest, APressOnTheCloseButtonGoesToItThoughTheTabsLieOverIt)
{
  EXPECT_EQ(send(FL_PUSH, 185, 5), 1);
  EXPECT_EQ(send(FL_RELEASE, 50, 50), 1) << "wherever the mouse is by then";
  EXPECT_THAT(button.events, ElementsAre(FL_PUSH, FL_RELEASE));
  EXPECT_THAT(tabs.events, IsEmpty());
}

TEST_F(ModelGroupTest, TheAnswerIsThatOfTheButton)
{
  button.answer = 0;
  EXPECT_EQ(send(FL_PUSH, 185, 5), 0);
}

TEST_F(ModelGroupTest, APressElsewhereGoesToTheTabs)
{
  send(FL_PUSH, 50, 5);
  EXPECT_THAT(tabs.events, testing::Contains(FL_PUSH));
  EXPECT_THAT(button.events, IsEmpty());
  send(FL_RELEASE, 185, 5);
  EXPECT_THAT(button.events, testing::Not(testing::Contains(FL_RELEASE))) << "it wasn't pressed";
}

TEST_F(ModelGroupTest, AHiddenButtonGetsNothing)
{
  button.hide();
  send(FL_PUSH, 185, 5);
  EXPECT_THAT(button.events, testing::Not(testing::Contains(FL_PUSH)));
}

TEST_F(ModelGroupTest, OneReleaseFollowsOnePress)
{
  send(FL_PUSH, 185, 5);
  send(FL_RELEASE, 185, 5);
  button.events.clear();
  send(FL_RELEASE, 50, 50);
  EXPECT_THAT(button.events, testing::Not(testing::Contains(FL_RELEASE)));
}

TEST_F(ModelGroupTest, DroppedFilesGoToTheShell)
{
  static char text[] = "file:///a.flt\r\n";
  Fl::e_text = text;
  EXPECT_EQ(group.handle(FL_PASTE), 1);
  EXPECT_THAT(shell.dropped, ElementsAre("file:///a.flt\r\n"));
}

} // namespace
} // namespace nalt
