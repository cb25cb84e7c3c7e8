#include "app/Session.h"

#include "app/Gui.h"
#include "app/GuiWidgets.h"
#include "platform/Paths.h"
#include "platform/WindowManager.h"

#include <FL/Fl.H>
#include <FL/Fl_Double_Window.H>
#include <FL/x.H>

#include <algorithm>
#include <filesystem>

namespace nalt {

namespace {

constexpr int seenAtLeast = 40; // pixels of a window, both ways
constexpr const char* settingsName = "nalt.cfg";
constexpr const char* helpServerFolders[] = {
    ".metadata",        "org.eclipse.core.runtime", "org.eclipse.equinox.app", "org.eclipse.help.base",
    "org.eclipse.osgi", "org.eclipse.update"};

WindowSettings windowSettings(const Gui& gui)
{
  Fl_Double_Window& window = *GuiWidgets::get().mainWindow;
  WindowSettings settings;
  settings.x = window.x();
  settings.y = window.y();
  settings.width = window.w();
  settings.height = window.h();
  settings.maximized = window.shown() && isWindowMaximized(fl_display, fl_xid(&window));
  const std::vector<std::string>& recent = gui.recentFiles().paths();
  std::copy(recent.begin(), recent.end(), settings.recentFiles.begin());
  return settings;
}

/// Height of what the window manager puts above a window, 0 without one.
int titleBarHeight(Fl_Window& window)
{
  return window.decorated_h() - window.h();
}

/// A window that is larger than the screens together shrinks to the one that it is on, and one that lies beside them,
/// because a screen is gone, comes back.
void keepOnScreen(Fl_Window& window)
{
  int left = 0, top = 0, right = 0, bottom = 0;
  for (int i = 0; i < Fl::screen_count(); ++i) {
    int x = 0, y = 0, w = 0, h = 0;
    Fl::screen_work_area(x, y, w, h, i);
    left = std::min(left, x);
    top = std::min(top, y);
    right = std::max(right, x + w);
    bottom = std::max(bottom, y + h);
  }
  const bool fits = window.w() <= right - left && window.h() <= bottom - top;
  const bool isSeen = window.x() < right - seenAtLeast && window.x() + window.w() > left + seenAtLeast &&
                      window.y() < bottom - seenAtLeast && window.y() + window.h() > top + seenAtLeast;
  if (fits && isSeen) return;
  int x = 0, y = 0, w = 0, h = 0;
  Fl::screen_work_area(x, y, w, h, window.x(), window.y());
  const int newWidth = std::min(window.w(), w);
  const int newHeight = std::min(window.h(), h - titleBarHeight(window));
  window.resize(std::clamp(window.x(), x, x + w - newWidth), std::clamp(window.y(), y, y + h - newHeight), newWidth,
                newHeight);
}

} // namespace

Session restoreSession(Gui& gui)
{
  Session session;
  session.result = SettingsFile::get().read(session.settings);
  Preferences::get() = session.settings.preferences;
  gui.setViewportPreferences(session.settings.viewport);
  const auto& recent = session.settings.window.recentFiles;
  std::for_each(recent.rbegin(), recent.rend(), [&gui](const std::string& path) { gui.recentFiles().add(path); });
  return session;
}

void placeMainWindow(const Session& session)
{
  Fl_Double_Window& window = *GuiWidgets::get().mainWindow;
  const WindowSettings& settings = session.settings.window;
  if (session.result.hasWindow && settings.width > 0 && settings.height > 0) {
    window.resize(settings.x, settings.y, window.w(), window.h());
    window.resize(settings.x, settings.y, settings.width, settings.height);
  }
  keepOnScreen(window);
  if (session.result.hasWindow && settings.maximized)
    maximizeWindow(fl_display, fl_xid(&window));
  else if (window.y() < titleBarHeight(window))
    window.position(window.x(), titleBarHeight(window));
}

void saveSession(const Gui& gui)
{
  Settings settings;
  settings.window = windowSettings(gui);
  settings.preferences = Preferences::get();
  settings.viewport = gui.viewportPreferences();
  SettingsFile::get().write(settings);
}

void removeHelpServerFiles(const std::string& path)
{
  if (fileNamePart(path) != settingsName) return;
  const std::filesystem::path folder = folderPart(path);
  std::error_code ignored;
  std::filesystem::remove(folder / "config.ini", ignored);
  for (const char* name : helpServerFolders)
    std::filesystem::remove_all(folder / name, ignored);
}

} // namespace nalt
