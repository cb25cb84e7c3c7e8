#include "app/EventHandler.h"

#include "tests/core/RecordingShell.h"

#include <FL/Fl.H>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace nalt {
namespace {

class EventHandlerTest : public testing::Test {
protected:
  EventHandlerTest() : before_(Shell::install(&shell)) {}
  ~EventHandlerTest() override
  {
    Fl::e_text = nullptr;
    Shell::install(before_);
  }

  RecordingShell shell;
  EventHandler handler;

private:
  Shell* before_;
};

} // namespace

TEST_F(EventHandlerTest, SwallowsFocusAndDragAndDropOfItsOwn)
{
  for (const int event : {FL_FOCUS, FL_UNFOCUS, FL_DND_ENTER, FL_DND_DRAG, FL_DND_LEAVE, FL_DND_RELEASE})
    EXPECT_EQ(handler.handle(event), 1) << event;
}

TEST_F(EventHandlerTest, OpensWhatIsDroppedOnIt)
{
  char lines[] = "file:///a.flt\nfile:///b.flt\n";
  Fl::e_text = lines;
  EXPECT_EQ(handler.handle(FL_PASTE), 1);
  EXPECT_THAT(shell.dropped, testing::ElementsAre(lines));
}

TEST_F(EventHandlerTest, LeavesShortcutsAloneWhileThereIsNoMenu)
{
  EXPECT_EQ(handler.handle(FL_SHORTCUT), 0);
}

TEST_F(EventHandlerTest, IsInForceFromItsInstallationToItsEnd)
{
  EXPECT_EQ(EventHandler::get(), nullptr);
  {
    EventHandler other;
    other.install();
    EXPECT_EQ(EventHandler::get(), &other);
    EXPECT_NE(Fl::event_dispatch(), nullptr);
  }
  EXPECT_EQ(EventHandler::get(), nullptr);
  EXPECT_EQ(Fl::event_dispatch(), nullptr);
}

} // namespace nalt
