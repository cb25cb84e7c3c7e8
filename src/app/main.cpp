#include "platform/Signals.h"

#include <cstdio>
#include <string_view>

int main(int argc, char** argv)
{
  if (argc == 2 && std::string_view(argv[1]) == "--version") {
    std::puts("Nalt " NALT_VERSION);
    return 0;
  }
  nalt::makeFailedWritesErrors();
  return 0;
}
