#include "app/Modeller.h"

#include "app/DatabaseHost.h"
#include "app/DropReceiver.h"
#include "app/EventHandler.h"
#include "app/FileLists.h"
#include "app/Gui.h"
#include "app/GuiWidgets.h"
#include "app/MainWindow.h"
#include "app/Session.h"
#include "app/Splash.h"
#include "core/Preferences.h"
#include "platform/Display.h"
#include "platform/Paths.h"
#include "scene/view/SixAxisController.h"

#include <FL/Fl.H>
#include <FL/Fl_Double_Window.H>
#include <FL/Fl_Tooltip.H>

#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

namespace nalt {

namespace {

constexpr double splashTime = 3.0; // seconds
constexpr int tooltipSize = 11;

void prepareFltk()
{
  Fl::scheme("plastic");
  Fl::get_system_colors();
  Fl_Tooltip::size(tooltipSize);
  Fl::gl_visual(FL_RGB | FL_DOUBLE | FL_DEPTH);
}

/// Plain grounds instead of the scheme's stripes, which each look at the system's colours brings back.
void dropStripes(Fl_Window& window)
{
  Fl::scheme_bg_ = nullptr;
  window.image(nullptr);
}

/// With no destructors: a worker that nobody waits for may still use what they would take away.
[[noreturn]] void leaveAtOnce()
{
  std::fflush(nullptr);
  std::_Exit(0);
}

void openCommandLine(Gui& gui, int argc, char** argv)
{
  std::vector<std::string> paths;
  for (int i = 1; i < argc; ++i)
    paths.push_back(nativePath(makeAbsolute(argv[i])));
  const FileLists lists = sortFiles(paths);
  gui.openFiles(lists.open);
  while (gui.files().busy()) {
    if (gui.splash()) gui.splash()->raise();
    Fl::wait();
  }
  gui.importFiles(lists.import);
  while (gui.files().busy())
    Fl::wait();
  if (gui.splash()) gui.splash()->raise(); // without a window manager the first picture of a model covers it
}

} // namespace

int runModeller(int argc, char** argv)
{
  if (!displayAvailable()) {
    std::fprintf(stderr, "Nalt: no display to open a window on; scripts run without one: nalt script.lua\n");
    return 0;
  }
  prepareFltk();
  buildMainWindow();
  {
    Gui gui(/*headless=*/false);
    EventHandler events;
    events.install();
    installDropReceiver(events);
    const DatabaseHost host(gui);
    const Session session = restoreSession(gui);
    if (session.result.newerVersion) removeHelpServerFiles(SettingsFile::get().path());
    gui.updateWidgets();
    Fl_Double_Window& window = *GuiWidgets::get().mainWindow;
    window.show(1, argv);
    dropStripes(window);
    if (Preferences::get().splash) {
      gui.setSplash(std::make_unique<Splash>());
      gui.splash()->show(splashTime);
    }
    Fl::check();
    if (session.result.newerVersion)
      gui.warning("Existing settings file is from a newer version, writing default settings.");
    placeMainWindow(session);
    Fl::check();
    startSixAxisController();
    openCommandLine(gui, argc, argv);
    Fl::run();
    if (gui.abandonedWork()) leaveAtOnce();
  }
  destroyMainWindow();
  return 0;
}

} // namespace nalt
