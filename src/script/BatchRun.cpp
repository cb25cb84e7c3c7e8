#include "script/BatchRun.h"

#include "platform/Paths.h"
#include "script/ScriptRun.h"

#include <cstdio>
#include <iostream>

namespace nalt {

bool isScript(std::string_view path)
{
  return path.ends_with(".lua") || path.ends_with(".LUA");
}

int runBatch(int argc, char** argv)
{
  // Whoever reads the output through a pipe sees each line when it is written.
  std::setvbuf(stdout, nullptr, _IONBF, 0);
  std::setvbuf(stderr, nullptr, _IONBF, 0);

  const std::vector<std::string> arguments(argv + 2, argv + argc);
  const auto path = nativePath(makeAbsolute(argv[1]));
  std::string errorText;
  bool good = false;
  {
    ScriptRun run(/*batch=*/true);
    const ScriptRun::Activation activation(run);
    good = runScript(run, argv[1], errorText, {}, arguments, argv[0]);
    if (good) {
      std::cout << "Executed " << path << ".\n" << std::flush;
    } else {
      std::cerr << "FAILED TO EXECUTE " << path << ".\n" << errorText << '\n';
    }
  }
  return good ? 0 : -1;
}

} // namespace nalt
