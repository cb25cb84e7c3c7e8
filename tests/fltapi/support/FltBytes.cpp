#include "tests/fltapi/support/FltBytes.h"

#include "tests/fltapi/support/RecordLayouts.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <bit>

namespace nalt::tests::flt {

// ---- numbers
// ---------------------------------------------------------------------------------------------------------

Bytes& Bytes::put(std::uint64_t value, int width)
{
  for (int shift = 8 * (width - 1); shift >= 0; shift -= 8)
    bytes_ += static_cast<char>(value >> shift & 0xff);
  return *this;
}

Bytes& Bytes::f32(float value)
{
  return put(std::bit_cast<std::uint32_t>(value), 4);
}

Bytes& Bytes::f64(double value)
{
  return put(std::bit_cast<std::uint64_t>(value), 8);
}

Bytes& Bytes::text(std::string_view value, std::size_t width)
{
  const auto kept = value.substr(0, width);
  bytes_ += kept;
  return zeros(width - kept.size());
}

Bytes& Bytes::zeros(std::size_t count)
{
  bytes_.append(count, '\0');
  return *this;
}

Bytes& Bytes::raw(std::string_view bytes)
{
  bytes_ += bytes;
  return *this;
}

Bytes& Bytes::upTo(std::size_t size)
{
  bytes_.resize(std::max(size, bytes_.size()));
  return *this;
}

void patch(std::string& where, std::size_t offset, const std::string& bytes)
{
  ASSERT_LE(offset + bytes.size(), where.size());
  where.replace(offset, bytes.size(), bytes);
}

std::uint32_t bigEndian(std::string_view bytes, std::size_t offset, int width)
{
  std::uint32_t value = 0;
  for (int i = 0; i < width; ++i)
    value = value << 8 | static_cast<unsigned char>(bytes.at(offset + static_cast<std::size_t>(i)));
  return value;
}

// ---- records
// ---------------------------------------------------------------------------------------------------------

std::string record(int opcode, const std::string& content)
{
  EXPECT_LE(content.size() + headSize, 65535u);
  return Bytes().i16(opcode).u16(static_cast<unsigned>(content.size() + headSize)).raw(content);
}

std::string longRecord(int opcode, const std::string& content)
{
  if (content.size() + headSize <= 65535) return record(opcode, content);
  constexpr std::size_t firstContent = 65524;
  constexpr std::size_t laterContent = 65528;
  constexpr int continuation = 23;
  auto pieces = record(opcode, content.substr(0, firstContent));
  for (auto at = firstContent; at < content.size(); at += laterContent)
    pieces += record(continuation, content.substr(at, laterContent));
  return pieces;
}

std::string padded(int opcode, std::size_t length, const std::string& content)
{
  return record(opcode, Bytes().raw(content).upTo(length - headSize));
}

std::string level(const std::string& content)
{
  return push + content + pop;
}

std::string subfaces(const std::string& content)
{
  return pushSubface + content + popSubface;
}

std::string header(int version)
{
  const std::size_t length = version < 1570 ? 276 : version < 1580 ? 304 : 324;
  auto bytes = padded(1, length, Bytes().text("db", 8).i32(version).i32(1).text("Mon Jan  1 00:00:00 2001", 32));
  // Next numbers that no name in the tests reaches.
  for (const std::size_t offset : {52, 54, 56, 58, 124, 164, 166, 176, 178, 180, 182, 252, 254, 256, 258, 272, 274})
    patch(bytes, offset, Bytes().u16(9000));
  if (version >= 1580) patch(bytes, 300, Bytes().u16(9000).u16(9000));
  patch(bytes, 60, Bytes().u16(1));
  patch(bytes, 64, Bytes().u32(0x80000000));
  patch(bytes, 126, Bytes().u16(1).i32(100));
  return bytes;
}

std::string node(int opcode, const std::string& id, std::size_t length)
{
  return padded(opcode, length ? length : layoutOf(opcode).length, Bytes().text(id, 8));
}

std::string group(const std::string& id, std::size_t length)
{
  return node(2, id, length);
}

std::string object(const std::string& id)
{
  return node(4, id);
}

std::string face(const std::string& id)
{
  auto bytes = node(5, id);
  patch(bytes, 26, Bytes().i16(-1).i16(-1).i16(-1));
  patch(bytes, 44, Bytes().u32(0x60000000));
  patch(bytes, 56, Bytes().u32(0xffffffff).u32(0xffffffff).i16(-1));
  patch(bytes, 78, Bytes().i16(-1));
  return bytes;
}

std::string longId(const std::string& name)
{
  return record(33, Bytes().text(name, name.size() + 1));
}

std::string comment(const std::string& text)
{
  return longRecord(31, Bytes().text(text, text.size() + 1));
}

std::string matrix(const std::vector<float>& sixteen)
{
  Bytes content;
  for (const auto value : sixteen)
    content.f32(value);
  return record(49, content);
}

std::string instanceReference(int number)
{
  return record(61, Bytes().u16(0).i16(number));
}

std::string instanceDefinition(int number)
{
  return record(62, Bytes().u16(0).i16(number));
}

std::string external(const std::string& path)
{
  return record(63, Bytes().text(path, 200).u32(0).u32(0xff000000).i16(0).i16(0));
}

std::string switchNode(const std::string& id, int maskCount, int wordsPerMask, const std::vector<std::uint32_t>& masks)
{
  Bytes content;
  content.text(id, 8).i32(0).i32(0).i32(maskCount).i32(wordsPerMask);
  for (const auto word : masks)
    content.u32(word);
  return record(96, content);
}

// ---- geometry
// --------------------------------------------------------------------------------------------------------

namespace {

Bytes vertexStart(double x, double y, double z)
{
  constexpr unsigned noColor = 0x2000;
  return Bytes().u16(0).u16(noColor).vector(x, y, z);
}

constexpr std::uint32_t white = 0xffffffff;

} // namespace

std::string plainVertex(double x, double y, double z)
{
  return record(68, vertexStart(x, y, z).u32(white).u32(0));
}

std::string normalVertex(double x, double y, double z)
{
  return record(69, vertexStart(x, y, z).f32(0).f32(0).f32(1).u32(white).u32(0).u32(0));
}

std::string normalTextureVertex(double x, double y, double z)
{
  return record(70, vertexStart(x, y, z).f32(0).f32(0).f32(1).f32(0.25f).f32(0.75f).u32(white).u32(0).u32(0));
}

std::string textureVertex(double x, double y, double z)
{
  return record(71, vertexStart(x, y, z).f32(0.25f).f32(0.75f).u32(white).u32(0));
}

std::uint32_t VertexPool::add(const std::string& vertexRecord)
{
  const auto offset = 8 + vertices_.size();
  vertices_ += vertexRecord;
  return static_cast<std::uint32_t>(offset);
}

std::string VertexPool::records() const
{
  return record(67, Bytes().u32(static_cast<std::uint32_t>(8 + vertices_.size()))) + vertices_;
}

std::string vertexList(const std::vector<std::uint32_t>& offsets)
{
  Bytes content;
  for (const auto offset : offsets)
    content.u32(offset);
  return longRecord(72, content);
}

std::string polygon(const std::string& id, const std::vector<std::uint32_t>& offsets, const std::string& behind)
{
  return face(id) + level(vertexList(offsets) + behind);
}

std::string file(const VertexPool& pool, const std::string& content, int version)
{
  return header(version) + padded(32, 4228) + pool.records() + level(content);
}

std::string file(const std::string& content, int version)
{
  return file(VertexPool(), content, version);
}

} // namespace nalt::tests::flt
