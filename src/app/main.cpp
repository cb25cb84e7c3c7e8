#include "app/CommandLine.h"
#include "app/Modeller.h"
#include "app/ScriptMode.h"
#include "app/StructSizes.h"
#include "app/Version.h"
#include "exchange/Formats.h"
#include "platform/Paths.h"
#include "platform/Signals.h"

#include <libxml/parser.h>
#include <malloc.h>
#include <osg/Notify>
#include <osgDB/Registry>

#include <cstdio>
#include <cstdlib>

namespace {

/// The software renderer asks for large buffers at every frame. Kept instead of given back each time, they cost up to
/// half of a frame less.
void keepLargeBuffers()
{
  constexpr int large = 256 * 1024 * 1024;
  mallopt(M_MMAP_THRESHOLD, large);
  mallopt(M_TRIM_THRESHOLD, large);
}

/// What scripts and the modeller both need.
void prepareLibraries()
{
  nalt::makeFailedWritesErrors();
  keepLargeBuffers();
  osg::setNotifyLevel(osg::FATAL);
  // In front of the system's own folders, or none of its plug-ins would be found.
  osgDB::Registry::instance()->getLibraryFilePathList().push_front(nalt::executableFolder());
  nalt::registerFormats();
  setenv("PFNFYLEVEL", "1", /*overwrite=*/1);
  xmlInitParser();
}

} // namespace

int main(int argc, char** argv)
{
  switch (nalt::runModeOf(argc, argv, std::getenv("NALT_DEBUG_STRUCT_SIZES") != nullptr)) {
  case nalt::RunMode::help:
    nalt::printHelp();
    return 0;
  case nalt::RunMode::version:
    std::puts(nalt::versionText);
    return 0;
  case nalt::RunMode::structSizes:
    nalt::printStructSizes();
    return 0;
  case nalt::RunMode::script:
    prepareLibraries();
    return nalt::runScriptMode(argc, argv);
  case nalt::RunMode::modeller:
    break;
  }
  prepareLibraries();
  return nalt::runModeller(argc, argv);
}
