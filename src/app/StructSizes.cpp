#include "app/StructSizes.h"

#include "fltapi/OpcodeTable.h"

#include <cstdio>

namespace nalt {

void printStructSizes()
{
  std::puts("opcode\tsize");
  for (int opcode = 1; opcode <= fltapi::lastOpcode; ++opcode)
    std::printf("%d\t%u\n", opcode, static_cast<unsigned>(fltapi::opcodeLength(opcode)));
}

} // namespace nalt
