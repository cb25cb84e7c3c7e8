#include "tests/fltapi/support/GeneratedFiles.h"

#include "tests/fltapi/support/FltBytes.h"
#include "tests/fltapi/support/RecordLayouts.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>

namespace nalt::tests::flt {

// ---- samples of records
// ----------------------------------------------------------------------------------------------

namespace {

/// Numbers that have a meaning for the layout of their record, or that only some values are kept of.
std::string sensible(int opcode, std::string bytes)
{
  const auto set = [&](std::size_t offset, const Bytes& value) { patch(bytes, offset, value); };
  switch (opcode) {
  case 1:
    set(12, Bytes().i32(1620));
    break;
  case 5:
    set(18, Bytes().u8(9)); // draw type
    break;
  case 52:
  case 53:
    set(4, Bytes().u32(opcode == 52 ? 0x40000000 : 0x82000000)); // one layer; two pairs
    break;
  case 85:
    set(4, Bytes().u32(0).u32(0)); // an empty pool
    break;
  case 86:
    set(4, Bytes().i16(4).i16(1).u32(4)); // four indices of a byte
    break;
  case 96:
    set(16, Bytes().i32(0).i32(1).i32(1));
    break;
  case 107:
    set(4, Bytes().i32(1));
    break;
  case 112:
    set(32, Bytes().i32(0).i32(0)); // a type without parameters, not warped
    break;
  case 114:
    set(4, Bytes().i32(1).u16(2).i32(10).u16(1).text("two", 4)); // one name, head counted
    break;
  case 126:
    set(20, Bytes().i32(0));
    break;
  case 129:
    set(1336, Bytes().i32(1));
    break;
  case 133:
    set(8, Bytes().i32(1));
    break;
  default:
    break;
  }
  return bytes;
}

} // namespace

std::string sampleRecord(int opcode)
{
  const auto& layout = layoutOf(opcode);
  auto bytes = padded(opcode, layout.length);
  for (std::size_t at = headSize; at < layout.length; ++at)
    bytes[at] = static_cast<char>((at * 37 + static_cast<std::size_t>(opcode) * 11) % 251 + 1);
  for (const auto& entry : layout.entries) {
    if (entry.kind != 'c') continue;
    for (auto at = entry.offset; at < entry.end(); ++at)
      bytes[at] = static_cast<char>('a' + at % 26);
  }
  return sensible(opcode, bytes);
}

// ---- files
// -----------------------------------------------------------------------------------------------------------

namespace {

constexpr std::array palettes = {83, 64, 66, 90, 93, 97, 102, 112, 113, 114, 128, 129, 133, 88};
constexpr std::array nodeAncillaries = {33, 31, 49, 50, 52, 60, 74, 94, 105, 106, 107, 108, 109, 116, 119, 132};
// With their steps the matrix would be found wrong and mended.
constexpr std::array steps = {76, 78, 79, 80, 81, 82};
constexpr std::array nodes = {2,  3,  4,  5,  7,  8,  9,   14,  55,  63,  73,  84,  86,  87,
                              89, 91, 92, 95, 96, 98, 100, 101, 111, 115, 126, 127, 130, 131};

template <class Opcodes>
std::string samples(const Opcodes& opcodes)
{
  std::string bytes;
  for (const int opcode : opcodes)
    bytes += sampleRecord(opcode);
  return bytes;
}

std::string everyKind()
{
  VertexPool pool;
  std::vector<std::uint32_t> offsets;
  for (const int opcode : {68, 69, 70, 71})
    offsets.push_back(pool.add(sampleRecord(opcode)));
  return sampleRecord(1) + sampleRecord(32) + samples(palettes) + pool.records() +
         level(group("g1") + samples(nodeAncillaries) +
               level(samples(nodes) + instanceDefinition(3) + level(object("o1")) + instanceReference(3) + group("g2") +
                     samples(steps) + level(face("p1") + level(vertexList(offsets)))));
}

/// As one writer of 16.0 files pads its records: four zero bytes behind most of them.
std::string paddedRecords()
{
  const auto longer = [](std::string record) {
    record += std::string(4, '\0');
    patch(record, 2, Bytes().u16(static_cast<unsigned>(record.size())));
    return record;
  };
  const auto paddedPush = padded(10, 8);
  const auto paddedPop = padded(11, 8);
  VertexPool pool;
  std::vector<std::uint32_t> offsets;
  for (const double x : {0.0, 1.0, 2.0})
    offsets.push_back(pool.add(plainVertex(x, x * x, 0)));
  return longer(header(1600)) + longer(padded(32, 4228)) + longer(sampleRecord(113)) + pool.records() + paddedPush +
         longer(group("g1")) + paddedPush + longer(object("o1")) + paddedPush + face("p1") + paddedPush +
         vertexList(offsets) + paddedPop + paddedPop + paddedPop + paddedPop;
}

std::string unknownAncillaries()
{
  std::string unknowns;
  for (const int opcode : {6, 44, 75, 77, 134, 142, 155, 200, 4711, 32767})
    unknowns += record(opcode, Bytes().text("kept byte for byte", 18).i32(opcode));
  return header() + unknowns + padded(32, 4228) + VertexPool().records() +
         level(group("g1") + unknowns + level(object("o1") + unknowns));
}

std::string textOf(std::size_t length)
{
  std::string text(length, ' ');
  for (std::size_t i = 0; i < length; ++i)
    text[i] = static_cast<char>('!' + i % 90);
  return text;
}

std::string longComment()
{
  return file(group("g1") + comment(textOf(200000)) + level(object("o1") + comment(textOf(65531))));
}

/// A light point with that many corners, alternating between two vertices.
std::string longVertexList(int corners)
{
  VertexPool pool;
  const std::array offsets = {pool.add(plainVertex(1, 2, 3)), pool.add(plainVertex(4, 5, 6))};
  std::vector<std::uint32_t> list;
  for (int i = 0; i < corners; ++i)
    list.push_back(offsets[static_cast<std::size_t>(i % 3 != 0)]);
  return file(pool, group("g1") + level(object("o1") + level(polygon("p1", list))));
}

std::string wideSwitch()
{
  std::string children;
  for (int i = 0; i < 40; ++i)
    children += object("o" + std::to_string(i));
  return file(switchNode("sw1", 3, 2, {0x00000001, 0x00000080, 0xffffffff, 0x000000ff, 0x55555555, 0x00000055}) +
              record(132, Bytes().u32(0).text("damaged", 8)) + level(children));
}

std::string nestedSubfaces()
{
  VertexPool pool;
  const auto a = pool.add(plainVertex(0, 0, 0)), b = pool.add(plainVertex(1, 0, 0)), c = pool.add(plainVertex(0, 1, 0));
  const auto plain = [&](const std::string& id) { return polygon(id, {a, b, c}); };
  return file(pool, object("o1") + level(plain("p1") + subfaces(plain("p2") + subfaces(plain("p3")) + plain("p4")) +
                                         plain("p5") + face("p6") + level("") + subfaces(plain("p7"))));
}

std::string nestedInstances()
{
  return file(instanceDefinition(1) + level(group("g1") + level(object("o1"))) + instanceDefinition(2) +
              level(group("g2") + level(instanceReference(1) + instanceReference(1))) + group("g3") +
              level(instanceReference(2)) + instanceReference(1));
}

std::string recursiveInstance()
{
  return file(instanceDefinition(1) + level(group("g1") + level(instanceReference(2))) + instanceDefinition(2) +
              level(group("g2") + level(instanceReference(1))) + instanceReference(1) + instanceReference(7));
}

std::string unreferencedInstance()
{
  return file(instanceDefinition(9) + comment("nobody shows this") + level(object("o1")) + group("g1"));
}

std::string doubleInstance()
{
  return file(instanceDefinition(4) + level(object("first")) + instanceDefinition(4) + level(object("second")) +
              instanceReference(4));
}

std::string replication()
{
  return file(group("g1") + record(60, Bytes().i16(3).i16(0)) +
              matrix({1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 10, 0, 0, 1}) + level(object("o1")));
}

std::string meshes()
{
  constexpr std::uint32_t positionsAndColors = 0x80000000 | 0x20000000 | 0x10000000 | 0x08000000 | 0x04000000;
  Bytes pool;
  pool.u32(3).u32(positionsAndColors);
  for (int i = 0; i < 3; ++i)
    pool.vector(i, i * i, 1).u32(0xff020304).f32(0).f32(0).f32(1).f32(0.5f).f32(0.25f).f32(2).f32(3);
  const auto primitive = [](int width) {
    Bytes content;
    content.i16(1).i16(width).u32(3);
    for (int i = 0; i < 3; ++i)
      width == 1 ? content.u8(static_cast<unsigned>(i)) : width == 2 ? content.i16(i) : content.i32(i);
    return record(86, content.upTo(12));
  };
  return file(object("o1") + level(sampleRecord(84) + comment("a mesh") + record(85, pool) +
                                   level(primitive(1) + primitive(2) + primitive(4)) + face("p1")));
}

std::string longUVList()
{
  constexpr int corners = 5000;
  VertexPool pool;
  const auto offset = pool.add(plainVertex(1, 2, 3));
  Bytes layers;
  layers.u32(0xc0000000);
  for (int i = 0; i < corners; ++i)
    layers.f32(static_cast<float>(i)).f32(0.5f).f32(static_cast<float>(-i)).f32(0.25f);
  return file(pool,
              object("o1") + level(polygon("p1", std::vector<std::uint32_t>(corners, offset), longRecord(53, layers))));
}

/// Files of earlier versions have shorter records. The polygon refers to one vertex of each kind.
std::string oldFile(int version)
{
  const auto cut = [](std::string record, std::size_t length) {
    record.resize(length);
    patch(record, 2, Bytes().u16(static_cast<unsigned>(length)));
    return record;
  };
  const bool noColorIndex = version < 1421;
  const bool noTail = version < 1580;
  VertexPool pool;
  const std::vector offsets = {pool.add(cut(plainVertex(1, 0, 0), noColorIndex ? 36 : 40)),
                               pool.add(cut(normalVertex(2, 0, 0), noColorIndex ? 48
                                                                   : noTail     ? 52
                                                                                : 56)),
                               pool.add(cut(normalTextureVertex(3, 1, 0), noColorIndex ? 56
                                                                          : noTail     ? 60
                                                                                       : 64)),
                               pool.add(cut(textureVertex(4, 2, 0), noColorIndex ? 44 : 48))};
  auto oldFace = face("p1");
  if (version < 1600) patch(oldFace, 78, Bytes().i16(0));
  if (noColorIndex) oldFace = cut(oldFace, 64);
  const auto lod = cut(sampleRecord(73), version < 1580 ? 72 : 80);
  return file(pool,
              group("g1", version < 1580 ? 32 : 44) +
                  level(lod + level(object("o1") + level(oldFace + level(vertexList(offsets))))),
              version);
}

std::string transformChain()
{
  const auto translate = record(78, Bytes().u32(0).vector(0, 0, 0).vector(1, 2, 3));
  const auto scale = record(79, Bytes().u32(0).vector(0, 0, 0).f32(2).f32(2).f32(2).u32(0));
  // Composed by pre-multiplication: the scale acts first.
  const std::vector<float> matrixOfBoth = {2, 0, 0, 0, 0, 2, 0, 0, 0, 0, 2, 0, 1, 2, 3, 1};
  return file(group("g1") + matrix(matrixOfBoth) + translate + scale + level(object("o1")));
}

std::string skippedSections()
{
  const auto pushExtension = padded(21, 24), popExtension = padded(22, 24);
  const auto extension = padded(100, 40, Bytes().text("ext", 8).text("site", 8));
  return file(group("g1") + pushExtension + extension + pushExtension + extension + popExtension + group("gone") +
              popExtension + comment("kept") + padded(122, 8) + record(139, Bytes().i32(5)) + record(123) +
              level(object("o1") + pushExtension + extension + popExtension));
}

std::string lightPoints()
{
  VertexPool pool;
  const auto at = pool.add(plainVertex(1, 2, 3));
  auto appearance = sampleRecord(128);
  patch(appearance, 264, Bytes().i32(7));
  auto animation = sampleRecord(129);
  patch(animation, 264, Bytes().i32(2));
  const auto indexed = record(130, Bytes().text("lp1", 8).i32(7).i32(2).u32(5).u32(0));
  return header() + padded(32, 4228) + appearance + animation + pool.records() +
         level(group("g1") + level(record(131, Bytes().text("lps1", 8).f32(1).i32(0).i32(0)) +
                                   level(indexed + level(vertexList({at}))) + indexed + comment("a light") +
                                   level(vertexList({at, at}))));
}

std::string textureMappings()
{
  constexpr std::array<std::pair<int, std::size_t>, 7> types = {
      {{0, 168}, {1, 400}, {2, 584}, {3, 168}, {4, 208}, {5, 360}, {6, 168}}};
  std::string mappings;
  int index = 0;
  for (const auto& [type, length] : types) {
    for (const int warped : {0, 1}) {
      auto mapping = padded(112, length + (warped ? 400 : 0), Bytes().i32(0).i32(index++).text("mapping", 20));
      for (auto at = std::size_t{40}; at < mapping.size(); ++at)
        mapping[at] = static_cast<char>(at % 251);
      patch(mapping, 32, Bytes().i32(type).i32(warped));
      mappings += mapping;
    }
  }
  return header() + padded(32, 4228) + mappings + VertexPool().records() + level(group("g1"));
}

std::string shaders()
{
  Bytes cg, glsl;
  cg.i32(0).i32(0).text("cg", 1024).text("a.vert", 1024).text("a.frag", 1024).i32(6146).i32(7000);
  cg.text("main", 256).text("other", 256);
  glsl.i32(1).i32(2).text("glsl", 1024).i32(2).i32(1).text("a", 1024).text("b", 1024).text("c", 1024);
  return header() + padded(32, 4228) + record(133, cg) + record(133, glsl) + sampleRecord(133) +
         VertexPool().records() + level(group("g1"));
}

std::string namesInPalettes()
{
  Bytes colors;
  colors.zeros(4224).i32(2);
  colors.u16(8 + 6).i16(0).i16(17).i16(0).text("olive", 6);
  colors.u16(8 + 8).i16(0).i16(900).i16(0).text("seaweed", 8);
  // Programs disagree on whether the length of a name counts its own six bytes.
  Bytes headCounted, textCounted;
  headCounted.i32(2).u16(9).i32(6 + 5).u16(3).text("four", 5).i32(6 + 4).u16(4).text("two", 4);
  textCounted.i32(2).u16(9).i32(5).u16(3).text("four", 5).i32(4).u16(4).text("two", 4);
  return header() + record(32, colors) + record(114, headCounted) + record(114, textCounted) + VertexPool().records() +
         level(group("g1"));
}

std::string trackplanes()
{
  Bytes content;
  content.i32(0);
  for (int k = 0; k < 10; ++k) {
    const auto start = content.size();
    content.vector(k, 1, 2).f32(3).f32(4).f32(5).upTo(start + 212).i32(k).i32(1).i32(1).upTo(start + 272);
  }
  for (int k = 0; k < 10; ++k) {
    const auto start = content.size();
    content.i32(k).i32(0).vector(k, 0, 0).vector(1, 0, 0).vector(0, 1, 0).u8(1).u8(0).u8(2).u8(0).f32(30);
    content.f64(10).f64(20).u8(1).u8(2).u8(3).u8(0).i32(0).f64(128).i32(15).upTo(start + 128);
  }
  return header() + padded(32, 4228) + record(83, content.upTo(4004)) + VertexPool().records() + level(group("g1"));
}

} // namespace

std::vector<NamedFile> generatedFiles()
{
  std::vector<NamedFile> files = {
      {"every-kind", everyKind()},
      {"padded-records", paddedRecords()},
      {"unknown-ancillaries", unknownAncillaries()},
      {"long-comment", longComment()},
      {"wide-switch", wideSwitch()},
      {"nested-subfaces", nestedSubfaces()},
      {"nested-instances", nestedInstances()},
      {"recursive-instance", recursiveInstance()},
      {"unreferenced-instance", unreferencedInstance()},
      {"double-instance", doubleInstance()},
      {"replication", replication()},
      {"meshes", meshes()},
      {"long-uv-list", longUVList()},
      {"transform-chain", transformChain()},
      {"skipped-sections", skippedSections()},
      {"light-points", lightPoints()},
      {"texture-mappings", textureMappings()},
      {"shaders", shaders()},
      {"names-in-palettes", namesInPalettes()},
      {"trackplanes", trackplanes()},
  };
  for (const int corners : {0, 1, 16382, 16383, 16384, 32764})
    files.push_back({"vertex-list-" + std::to_string(corners), longVertexList(corners)});
  for (const int version : {1420, 1520, 1540, 1560, 1570, 1580, 1600, 1610, 1620})
    files.push_back({"version-" + std::to_string(version), oldFile(version)});
  return files;
}

std::string generatedFile(const std::string& name)
{
  static const auto files = generatedFiles();
  const auto found = std::ranges::find(files, name, &NamedFile::name);
  if (found == files.end()) {
    ADD_FAILURE() << "no generated file " << name;
    return {};
  }
  return found->bytes;
}

} // namespace nalt::tests::flt
