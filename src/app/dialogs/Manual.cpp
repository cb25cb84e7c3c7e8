#include "app/dialogs/Manual.h"

#include "app/dialogs/KeyTable.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <regex>
#include <string_view>
#include <utility>

namespace nalt {

namespace {

constexpr const char* contents = "index.html";
constexpr std::string_view placeOfKeys = "<!-- keys -->";

std::string contentOf(const std::string& path)
{
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

std::string lowerCase(std::string text)
{
  std::ranges::transform(text, text.begin(),
                         [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; });
  return text;
}

} // namespace

std::string manualFolder(const std::string& programFolder)
{
  if (programFolder.empty()) return "";
  for (const char* place : {"manual/", "../share/nalt/manual/", "../../docs/manual/"}) {
    std::error_code ignored;
    const std::string folder = programFolder + place;
    if (std::filesystem::is_regular_file(folder + contents, ignored)) return folder;
  }
  return "";
}

std::vector<ManualChapter> manualChapters(const std::string& folder)
{
  std::vector<ManualChapter> chapters;
  const std::string page = contentOf(folder + contents);
  if (page.empty()) return chapters;
  chapters.push_back({"Contents", folder + contents});
  static const std::regex link("<li><a href=\"([a-z-]+\\.html)\">([^<]*)</a>");
  for (std::sregex_iterator found(page.begin(), page.end(), link), end; found != end; ++found)
    chapters.push_back({(*found)[2], folder + (*found)[1].str()});
  return chapters;
}

std::string pageOf(const ManualChapter& chapter)
{
  std::string page = contentOf(chapter.file);
  if (const auto place = page.find(placeOfKeys); place != std::string::npos)
    page.replace(place, placeOfKeys.size(), keyTables());
  return page;
}

std::string plainText(const std::string& html)
{
  std::string text;
  bool inTag = false;
  for (const char c : html) {
    if (c == '<') inTag = true;
    if (!inTag) text += c == '\n' ? ' ' : c;
    if (c == '>') inTag = false;
  }
  for (const auto& [entity, sign] : {std::pair{"&lt;", "<"}, {"&gt;", ">"}, {"&quot;", "\""}, {"&amp;", "&"}}) {
    for (auto at = text.find(entity); at != std::string::npos; at = text.find(entity, at + 1))
      text.replace(at, std::string(entity).size(), sign);
  }
  return text;
}

int findInManual(const std::vector<ManualChapter>& chapters, const std::string& wanted, int first)
{
  const int count = static_cast<int>(chapters.size());
  const std::string lower = lowerCase(wanted);
  for (int i = 0; i < count; ++i) {
    const int chapter = (first + i) % count;
    const std::string text = plainText(pageOf(chapters[static_cast<std::size_t>(chapter)]));
    if (lowerCase(text).find(lower) != std::string::npos) return chapter;
  }
  return -1;
}

} // namespace nalt
