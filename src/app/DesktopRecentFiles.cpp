#include "app/DesktopRecentFiles.h"

#include "app/FileLists.h"
#include "platform/AtomicFile.h"
#include "platform/FolderLock.h"
#include "platform/Folders.h"
#include "platform/Paths.h"

#include <libxml/parser.h>
#include <libxml/tree.h>

#include <array>
#include <charconv>
#include <ctime>
#include <filesystem>
#include <memory>

namespace nalt {

namespace {

constexpr const char* listName = "recently-used.xbel";
constexpr const char* bookmarkSpace = "http://www.freedesktop.org/standards/desktop-bookmarks";
constexpr const char* mimeSpace = "http://www.freedesktop.org/standards/shared-mime-info";
constexpr const char* owner = "http://freedesktop.org";
constexpr const char* mimeType = "model/x-openflight";
constexpr const char* program = "Nalt";
constexpr const char* command = "'nalt %f'";

using Document = std::unique_ptr<xmlDoc, decltype(&xmlFreeDoc)>;

const xmlChar* xml(const char* text)
{
  return reinterpret_cast<const xmlChar*>(text);
}

bool isNamed(const xmlNode& node, const char* name)
{
  return node.type == XML_ELEMENT_NODE && xmlStrEqual(node.name, xml(name)) != 0;
}

std::string attribute(xmlNode& node, const char* name)
{
  xmlChar* const value = xmlGetProp(&node, xml(name));
  std::string text = value ? reinterpret_cast<const char*>(value) : "";
  xmlFree(value);
  return text;
}

void setAttribute(xmlNode& node, const char* name, const std::string& value)
{
  xmlSetProp(&node, xml(name), xml(value.c_str()));
}

/// The first child with that name for which `test` holds; null when there is none.
template <class Test>
xmlNode* findChild(xmlNode& parent, const char* name, const Test& test)
{
  for (xmlNode* child = parent.children; child; child = child->next)
    if (isNamed(*child, name) && test(*child)) return child;
  return nullptr;
}

template <class Test>
xmlNode& childWith(xmlNode& parent, xmlNs* space, const char* name, const Test& test)
{
  if (xmlNode* found = findChild(parent, name, test)) return *found;
  return *xmlNewChild(&parent, space, xml(name), nullptr);
}

bool any(const xmlNode&)
{
  return true;
}

xmlNs* spaceOf(xmlNode& root, const char* uri, const char* prefix)
{
  xmlNs* const known = xmlSearchNsByHref(root.doc, &root, xml(uri));
  return known ? known : xmlNewNs(&root, xml(uri), xml(prefix));
}

Document emptyList()
{
  Document document(xmlNewDoc(xml("1.0")), xmlFreeDoc);
  xmlNode* const root = xmlNewNode(nullptr, xml("xbel"));
  xmlDocSetRootElement(document.get(), root);
  setAttribute(*root, "version", "1.0");
  return document;
}

/// Null for a file that is no such list: it isn't ours to mend.
Document readList(const std::string& path)
{
  std::error_code error;
  if (!std::filesystem::exists(path, error)) return emptyList();
  constexpr int options = XML_PARSE_NONET | XML_PARSE_NOERROR | XML_PARSE_NOWARNING;
  Document document(xmlReadFile(path.c_str(), nullptr, options), xmlFreeDoc);
  const xmlNode* root = document ? xmlDocGetRootElement(document.get()) : nullptr;
  if (!root || !isNamed(*root, "xbel")) document.reset();
  return document;
}

std::string timeText(std::chrono::system_clock::time_point time)
{
  const std::time_t seconds = std::chrono::system_clock::to_time_t(time);
  std::tm fields{};
  gmtime_r(&seconds, &fields);
  std::array<char, 32> text{};
  std::strftime(text.data(), text.size(), "%Y-%m-%dT%H:%M:%SZ", &fields);
  return text.data();
}

void countUse(xmlNode& application, const std::string& time)
{
  const std::string before = attribute(application, "count");
  int count = 0;
  std::from_chars(before.data(), before.data() + before.size(), count);
  setAttribute(application, "name", program);
  setAttribute(application, "exec", command);
  setAttribute(application, "modified", time);
  setAttribute(application, "count", std::to_string(count + 1));
}

void note(xmlNode& root, const std::string& path, const std::string& time)
{
  xmlNs* const bookmarks = spaceOf(root, bookmarkSpace, "bookmark");
  xmlNs* const mime = spaceOf(root, mimeSpace, "mime");
  // Programs differ in what they write as "%20" and the like.
  xmlNode& bookmark = childWith(root, nullptr, "bookmark", [&](xmlNode& node) {
    const std::string href = attribute(node, "href");
    return href.starts_with("file:") && pathOfUri(href) == path;
  });
  if (attribute(bookmark, "href").empty()) setAttribute(bookmark, "href", uriOfPath(path));
  if (attribute(bookmark, "added").empty()) setAttribute(bookmark, "added", time);
  setAttribute(bookmark, "modified", time);
  setAttribute(bookmark, "visited", time);
  xmlNode& info = childWith(bookmark, nullptr, "info", any);
  xmlNode& metadata =
      childWith(info, nullptr, "metadata", [](xmlNode& node) { return attribute(node, "owner") == owner; });
  setAttribute(metadata, "owner", owner);
  xmlNode& type = childWith(metadata, mime, "mime-type", any);
  if (attribute(type, "type").empty()) setAttribute(type, "type", mimeType);
  xmlNode& applications = childWith(metadata, bookmarks, "applications", any);
  countUse(childWith(applications, bookmarks, "application",
                     [](xmlNode& node) { return attribute(node, "name") == program; }),
           time);
}

bool writeList(const std::string& path, xmlDoc& document)
{
  xmlChar* text = nullptr;
  int size = 0;
  xmlDocDumpFormatMemoryEnc(&document, &text, &size, "UTF-8", /*format=*/1);
  if (!text) return false;
  AtomicFile file(path);
  const bool written = file.write(text, static_cast<std::size_t>(size)) && file.commit();
  xmlFree(text);
  return written;
}

} // namespace

bool noteInRecentList(const std::string& listPath, const std::string& path, std::chrono::system_clock::time_point now)
{
  const FolderLock lock(folderPart(listPath));
  if (!lock.held()) return false;
  const Document document = readList(listPath);
  if (!document) return false;
  note(*xmlDocGetRootElement(document.get()), path, timeText(now));
  return writeList(listPath, *document);
}

void noteOnDesktop(const std::string& path)
{
  const std::string folder = dataFolder();
  if (!folder.empty() && isAbsolute(path)) noteInRecentList(folder + "/" + listName, path);
}

} // namespace nalt
