// Texts from models and scripts go through the path functions. Whatever they hold, these laws hold too.
#include "platform/Paths.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

using namespace nalt;

namespace {

void require(bool law)
{
  if (!law) std::abort();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
  const std::string_view text(reinterpret_cast<const char*>(data), size);

  require(folderPart(text) + fileNamePart(text) == text);
  require(nativePath(nativePath(text)) == nativePath(text));
  require(toBackslashes(text).size() == text.size());

  const std::string escaped = escapeForLua(text);
  require(escapeForLua(escaped) == escaped);

  const std::string absolute = makeAbsolute(text);
  require(isAbsolute(absolute) && makeAbsolute(absolute) == absolute);

  const std::string found = findFileIgnoringCase(text);
  require(found.empty() || findFileIgnoringCase(found) == found);
  return 0;
}
