#include "platform/LetterCase.h"

#include <algorithm>
#include <clocale>
#include <cwchar>
#include <cwctype>

namespace nalt {

namespace {

/// The thread's own locale may be anything; file names are UTF-8 all the same.
class Utf8Locale {
public:
  Utf8Locale()
  {
    static const locale_t utf8 = newlocale(LC_CTYPE_MASK, "C.UTF-8", nullptr);
    before_ = uselocale(utf8);
  }
  ~Utf8Locale() { uselocale(before_); }
  Utf8Locale(const Utf8Locale&) = delete;
  Utf8Locale& operator=(const Utf8Locale&) = delete;

private:
  locale_t before_;
};

/// The next character of `text` in lower case, taken off its front; bytes that are no UTF-8 come back below zero.
long takeLower(std::string_view& text)
{
  std::mbstate_t state{};
  wchar_t character = 0;
  const std::size_t length = std::mbrtowc(&character, text.data(), text.size(), &state);
  if (length == 0 || length > text.size()) { // a zero byte, broken UTF-8, or a character cut short
    const long byte = -1 - static_cast<unsigned char>(text.front());
    text.remove_prefix(1);
    return byte;
  }
  text.remove_prefix(length);
  return static_cast<long>(std::towlower(static_cast<std::wint_t>(character)));
}

} // namespace

std::string toUpper(std::string_view text)
{
  std::string result(text);
  std::transform(result.begin(), result.end(), result.begin(),
                 [](char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; });
  return result;
}

bool equalsIgnoringCase(std::string_view a, std::string_view b)
{
  const Utf8Locale utf8;
  while (!a.empty() && !b.empty())
    if (takeLower(a) != takeLower(b)) return false;
  return a.empty() && b.empty();
}

} // namespace nalt
