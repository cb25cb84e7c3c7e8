#include "app/ScriptMode.h"

#include "app/DatabaseHost.h"
#include "app/Gui.h"
#include "app/SettingsFile.h"
#include "script/BatchRun.h"
#include "script/ScriptRun.h"

namespace nalt {

namespace {

void readPreferences()
{
  Settings settings;
  if (SettingsFile::get().read(settings).newerVersion) {
    Shell::get().warning("Existing settings file is from a newer version, writing default settings.");
  }
  Preferences::get() = settings.preferences;
}

} // namespace

int runScriptMode(int argc, char** argv)
{
  Gui gui(/*headless=*/true);
  const DatabaseHost host(gui);
  gui.setQuiet(/*quiet=*/true, /*batch=*/true);
  gui.setScriptOutput(scriptMessage);
  readPreferences();
  return runBatch(argc, argv);
}

} // namespace nalt
