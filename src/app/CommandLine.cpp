#include "app/CommandLine.h"

#include "platform/Paths.h"
#include "script/BatchRun.h"

#include <cstdio>
#include <string>
#include <string_view>

namespace nalt {

RunMode runModeOf(int argc, const char* const* argv, bool environmentAsksForSizes)
{
  const std::string_view first = argc > 1 ? argv[1] : "";
  if (first == "--help") return RunMode::help;
  if (first == "--version") return RunMode::version;
  if (environmentAsksForSizes) return RunMode::structSizes;
  if (argc > 1 && isScript(nativePath(makeAbsolute(argv[1])))) return RunMode::script;
  return RunMode::modeller;
}

void printHelp()
{
  std::puts("Usage: nalt [FILE...]                  open the modeller; .flt files are opened, others imported\n"
            "       nalt SCRIPT.lua [ARGUMENT...]  run a script with no window; no display is needed\n"
            "       nalt --help | --version\n"
            "\n"
            "Environment:\n"
            "  NALT_FILE_PATH            folders in which external references are looked for\n"
            "  NALT_LOG                  file that script runs append their output to\n"
            "  NALT_NO_LINE_FEED=ON      no line ends behind what scripts print\n"
            "  NALT_DEBUG_STRUCT_SIZES   print the sizes of records and end\n"
            "\n"
            "Exit status: 0, or 255 when a script failed.");
}

} // namespace nalt
