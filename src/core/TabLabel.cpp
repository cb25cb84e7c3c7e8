#include "core/TabLabel.h"

#include <algorithm>
#include <charconv>

namespace nalt {

namespace {

struct Numbered {
  std::string name;
  long long number;
};

/// Takes a label such as "a.flt <3>*" apart. Without a number in its place the number is 1.
Numbered parse(const std::string& label)
{
  const std::string bare = markedLabel(label, false);
  const auto open = bare.rfind(" <");
  if (open == std::string::npos || bare.back() != '>') return {bare, 1};
  long long number = 0;
  const char* first = bare.data() + open + 2;
  const char* last = bare.data() + bare.size() - 1;
  const auto [end, error] = std::from_chars(first, last, number);
  if (error != std::errc() || end != last || number < 1) return {bare, 1};
  return {bare.substr(0, open), number};
}

} // namespace

std::string tabLabel(const std::string& name, const std::vector<std::string>& labelsInUse)
{
  long long highest = 0;
  for (const std::string& label : labelsInUse) {
    const Numbered other = parse(label);
    if (other.name == name) highest = std::max(highest, other.number);
  }
  return highest == 0 ? name : name + " <" + std::to_string(highest + 1) + ">";
}

std::string markedLabel(const std::string& label, bool dirty)
{
  const auto star = label.find('*');
  if (dirty) return star == std::string::npos ? label + "*" : label;
  return label.substr(0, star);
}

} // namespace nalt
