#include "platform/Paths.h"

#include <algorithm>
#include <filesystem>

namespace nalt {

namespace {

constexpr std::string_view separators = "/\\";
constexpr std::ptrdiff_t tooManySeparators = 1000;

std::string replaceSeparators(std::string_view text, char from, char to)
{
  std::string result(text);
  if (std::count(text.begin(), text.end(), from) < tooManySeparators)
    std::replace(result.begin(), result.end(), from, to);
  return result;
}

/// Takes `step` off the front of `path`, with the separators behind it, if it is the first part of the path.
bool takeStep(std::string_view& path, std::string_view step)
{
  if (!path.starts_with(step)) return false;
  const std::string_view rest = path.substr(step.size());
  if (!rest.empty() && separators.find(rest.front()) == std::string_view::npos) return false;
  path = rest.substr(std::min(rest.find_first_not_of(separators), rest.size()));
  return true;
}

} // namespace

std::string toBackslashes(std::string_view text)
{
  return replaceSeparators(text, '/', '\\');
}

std::string nativePath(std::string_view text)
{
  return replaceSeparators(text, '\\', '/');
}

std::string folderPart(std::string_view path)
{
  return std::string(path.substr(0, path.find_last_of(separators) + 1)); // npos + 1 is 0
}

std::string fileNamePart(std::string_view path)
{
  return std::string(path.substr(path.find_last_of(separators) + 1));
}

bool isAbsolute(std::string_view path)
{
  return path.starts_with('/') || (path.size() > 1 && path[1] == ':');
}

std::string makeAbsolute(std::string_view path)
{
  std::error_code error;
  std::filesystem::path folder = std::filesystem::current_path(error);
  if (isAbsolute(path) || error) return std::string(path);

  for (;;)
    if (takeStep(path, ".."))
      folder = folder.parent_path();
    else if (!takeStep(path, "."))
      break;

  std::string result = folder.string();
  if (!path.empty() && !result.ends_with('/')) result += '/';
  return result.append(path);
}

std::string escapeForLua(std::string_view text)
{
  std::string result;
  for (std::size_t i = 0; i < text.size();) {
    const std::size_t end = std::min(text.find_first_not_of('\\', i), text.size());
    result.append(text.substr(i, end - i));
    if (end - i == 1) result += '\\';
    i = std::min(text.find('\\', end), text.size());
    result.append(text.substr(end, i - end));
  }
  return result;
}

std::string executableFolder()
{
  std::error_code error;
  return folderPart(std::filesystem::read_symlink("/proc/self/exe", error).string());
}

} // namespace nalt
