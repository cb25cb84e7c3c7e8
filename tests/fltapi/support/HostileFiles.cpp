#include "tests/fltapi/support/HostileFiles.h"

#include "tests/fltapi/support/FltBytes.h"
#include "tests/fltapi/support/RecordLayouts.h"

namespace nalt::tests::flt {

namespace {

std::string repeated(const std::string& bytes, int count)
{
  std::string all;
  all.reserve(bytes.size() * static_cast<std::size_t>(count));
  for (int i = 0; i < count; ++i)
    all += bytes;
  return all;
}

const std::string start = header() + padded(32, 4228) + VertexPool().records();

void addLengths(std::vector<HostileFile>& files)
{
  for (const int length : {0, 1, 2, 3}) {
    const auto bad = Bytes().i16(2).i16(length).str();
    const auto text = "record length " + std::to_string(length) + " is below 4";
    files.push_back({"length-" + std::to_string(length) + "-in-a-level", start + push + bad, false, text});
    files.push_back({"length-" + std::to_string(length) + "-in-a-subface",
                     start + push + face("p1") + pushSubface + bad, false, text});
    files.push_back({"length-" + std::to_string(length) + "-in-the-palette", header() + bad, true, {}});
  }
  const auto beyond = Bytes().i16(2).i16(400).text("g1", 8).str();
  files.push_back(
      {"length-beyond-the-end", start + push + beyond, false, "record length 400 reaches behind the end of the file"});
  files.push_back({"continuation-beyond-the-end",
                   start + push + group("g1") + comment("a") + Bytes().i16(23).i16(400).str(), false,
                   "record length 400 reaches behind the end of the file"});
  files.push_back(
      {"head-cut-off", start + push + group("g1") + std::string(2, '\0'), false, "the file ends inside a record"});
}

void addNesting(std::vector<HostileFile>& files)
{
  constexpr int many = 100000;
  const std::string deep = "Its nodes are nested too deeply.";
  files.push_back({"pushes", start + repeated(push, many), true, {}});
  files.push_back({"pushes-and-pops", start + repeated(push, many) + repeated(pop, many), true, {}});
  files.push_back({"pushes-with-groups", start + push + repeated(group("g") + push, many), false, deep});
  files.push_back({"subface-pushes", start + push + face("p") + repeated(pushSubface, many), true, {}});
  files.push_back({"subface-pushes-with-faces", start + push + repeated(face("p") + pushSubface, many), false, deep});
  files.push_back({"pops", start + repeated(pop, many), true, {}});
  files.push_back({"pops-in-a-level", start + push + group("g1") + repeated(pop, many) + group("g2"), true, {}});
  files.push_back({"extension-pushes", start + push + group("g1") + repeated(padded(21, 24), many), true, {}});
  files.push_back({"attribute-pushes", start + push + group("g1") + repeated(padded(122, 8), many), true, {}});
}

void addInstances(std::vector<HostileFile>& files)
{
  files.push_back({"instance-of-itself",
                   file(instanceDefinition(1) + level(instanceReference(1)) + instanceReference(1)),
                   true,
                   {}});
  files.push_back({"instance-of-nothing", file(instanceReference(1) + instanceReference(65535)), true, {}});
  // Each body shows the next one: walked by recursion without a bound, it takes the stack.
  std::string chain, bombs;
  constexpr int links = 30000;
  for (int i = links; i > 0; --i)
    chain += instanceDefinition(i) + level(instanceReference(i - 1));
  files.push_back({"chain-of-instances", file(chain + instanceReference(links)), true, {}});
  // Each body shows the next one twice: walked each time, it takes forever.
  constexpr int doublings = 60;
  for (int i = 1; i <= doublings; ++i)
    bombs += instanceDefinition(i) + level(group("g") + level(instanceReference(i - 1) + instanceReference(i - 1)));
  files.push_back({"doubled-instances", file(bombs + instanceReference(doublings)), true, {}});
  files.push_back({"definitions-of-one-number",
                   file(repeated(instanceDefinition(1) + level(object("o")), 1000) + instanceReference(1)),
                   true,
                   {}});
}

void addLyingCounts(std::vector<HostileFile>& files)
{
  const auto in = [](const std::string& content) { return file(group("g1") + level(content)); };
  const auto palette = [](const std::string& record) {
    return header() + padded(32, 4228) + record + level(group("g"));
  };
  const auto twoObjects = level(object("o1") + object("o2"));
  for (const int masks : {-1, 0, 2, 0x7fffffff}) {
    for (const int words : {-1, 0, 2, 0x7fffffff}) {
      files.push_back({"switch-of-" + std::to_string(masks) + "-masks-of-" + std::to_string(words),
                       in(switchNode("sw", masks, words, {5}) + twoObjects),
                       true,
                       {}});
    }
  }
  files.push_back(
      {"switch-that-grows",
       in(switchNode("sw", 16000, 1, std::vector<std::uint32_t>(16000, 1)) + level(repeated(object("o"), 40000))),
       {},
       {}});
  files.push_back(
      {"pool-of-too-many",
       in(node(84, "m1") + record(85, Bytes().u32(0xffffffff).u32(0x80000000).zeros(24)) + level(sampleRecord(86))),
       true,
       {}});
  files.push_back(
      {"pool-of-nothing", in(node(84, "m1") + record(85, Bytes().u32(0xffffffff).u32(0).zeros(24))), true, {}});
  for (const int width : {-1, 0, 3, 4, 8}) {
    files.push_back(
        {"primitive-of-width-" + std::to_string(width),
         in(node(84, "m1") + sampleRecord(85) + level(record(86, Bytes().i16(4).i16(width).u32(0xffffffff).zeros(7)))),
         true,
         {}});
  }
  files.push_back(
      {"name-table", palette(record(114, Bytes().i32(0x7fffffff).u16(1).i32(-1).u16(1).text("x", 20))), true, {}});
  files.push_back({"name-table-of-zeros", palette(record(114, Bytes().i32(9).zeros(300))), true, {}});
  files.push_back({"hull", in(record(107, Bytes().i32(0x7fffffff).zeros(100))), {}, {}});
  files.push_back({"hull-of-a-group",
                   file(group("g") + record(107, Bytes().i32(0x7fffffff).zeros(100)) + level(object("o"))),
                   true,
                   {}});
  files.push_back({"curve", in(record(126, Bytes().text("cv", 8).i32(0).i32(4).i32(0x7fffffff).zeros(33))), true, {}});
  files.push_back({"sequence", palette(record(129, Bytes().zeros(1332).i32(0x7fffffff).zeros(13))), true, {}});
  files.push_back({"color-names",
                   header() + record(32, Bytes().zeros(4224).i32(0x7fffffff).u16(0xffff).zeros(6)) + level(group("g")),
                   true,
                   {}});
  files.push_back({"color-names-of-no-length",
                   header() + record(32, Bytes().zeros(4224).i32(3).zeros(60)) + level(group("g")),
                   true,
                   {}});
  files.push_back({"layers",
                   in(face("p") + record(52, Bytes().u32(0xffffffff).zeros(9)) +
                      level(vertexList({}) + record(53, Bytes().u32(0xffffffff).zeros(9)))),
                   true,
                   {}});
  files.push_back({"shader-counts",
                   palette(record(133, Bytes().i32(0).i32(2).text("s", 1024).u32(0xffffffff).u32(0xffffffff))),
                   true,
                   {}});
  files.push_back({"palette-length",
                   header() + record(67, Bytes().u32(0xffffffff)) + plainVertex(1, 2, 3) +
                       level(polygon("p", {8, 12, 0xffffffff, 0xfffffff0, 7})),
                   true,
                   {}});
  files.push_back(
      {"mapping-of-a-strange-type", palette(padded(112, 700, Bytes().zeros(28).i32(0x7fffffff).i32(-1))), true, {}});
}

void addPalettes(std::vector<HostileFile>& files)
{
  VertexPool pool;
  const auto at = pool.add(plainVertex(1, 2, 3));
  const auto some = object("o1") + level(polygon("p1", {at, at, at}));
  files.push_back({"two-vertex-palettes", header() + pool.records() + pool.records() + level(some), true, {}});
  files.push_back({"no-vertex-palette", header() + plainVertex(1, 2, 3) + level(some), true, {}});
  files.push_back({"vertex-palette-of-a-group",
                   header() + pool.records() + level(group("g1") + pool.records() + level(some)),
                   true,
                   {}});
  files.push_back({"header-in-a-level",
                   header() + pool.records() + level(header() + pool.records() + level(some) + some),
                   true,
                   {}});
  files.push_back({"vertices-of-a-polygon",
                   header() + pool.records() + level(face("p1") + plainVertex(1, 2, 3) + level(vertexList({at}))),
                   true,
                   {}});
}

} // namespace

std::vector<HostileFile> headsOfRecords(int many)
{
  std::vector<HostileFile> files;
  for (const auto& layout : recordLayouts()) {
    if (layout.opcode == 1) continue;
    const auto heads = repeated(record(layout.opcode), many);
    const auto name = std::to_string(layout.opcode);
    files.push_back({"heads-of-" + name + "-at-the-header", start + heads, {}, {}});
    files.push_back({"heads-of-" + name + "-in-a-level", start + push + heads, {}, {}});
  }
  files.push_back({"heads-of-unknown-kinds", start + repeated(record(4711), many), true, {}});
  return files;
}

std::vector<HostileFile> hostileFiles()
{
  const std::string noHeader = "Failed creating header record while reading ";
  std::vector<HostileFile> files = {
      {"nothing", "", false, noHeader},
      {"three-bytes", std::string(3, '\1'), false, noHeader},
      {"zeros", std::string(1000, '\0'), false, noHeader},
      {"group-first", group("g1") + header(), false, noHeader},
      {"push-first", push + header(), false, noHeader},
      {"header-cut-off", header().substr(0, 100), false, noHeader},
      {"header-of-nothing", record(1), true, {}},
      {"header-of-a-name", record(1, Bytes().text("db", 8)), true, {}},
      {"text", "solid a plain text that is no model at all\n", false, noHeader},
      {"ancillary-in-a-level", start + level(comment("stray")), false,
       "Non-primary record found as child (31, CommentRecord)."},
      {"subface-push-in-a-level", start + level(pushSubface), false,
       "Non-primary record found as child (19, PushSubfaceRecord)."},
  };
  addLengths(files);
  addNesting(files);
  addInstances(files);
  addLyingCounts(files);
  addPalettes(files);
  for (auto& heads : headsOfRecords(10000))
    files.push_back(std::move(heads));
  return files;
}

} // namespace nalt::tests::flt
