#pragma once

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

/// OpenFlight files made byte by byte. Knows nothing of the library that reads them, so that the two can be compared.
namespace nalt::tests::flt {

/// Big-endian numbers one behind the other.
class Bytes {
public:
  Bytes& u8(unsigned value) { return put(value, 1); }
  Bytes& u16(unsigned value) { return put(value, 2); }
  Bytes& i16(int value) { return put(static_cast<std::uint16_t>(value), 2); }
  Bytes& u32(std::uint32_t value) { return put(value, 4); }
  Bytes& i32(std::int32_t value) { return put(static_cast<std::uint32_t>(value), 4); }
  Bytes& f32(float value);
  Bytes& f64(double value);
  Bytes& vector(double x, double y, double z) { return f64(x).f64(y).f64(z); }
  /// `width` bytes: the text, cut or filled up with zeros.
  Bytes& text(std::string_view value, std::size_t width);
  Bytes& zeros(std::size_t count);
  Bytes& raw(std::string_view bytes);
  /// Fills up with zeros to `size` bytes.
  Bytes& upTo(std::size_t size);

  operator const std::string&() const { return bytes_; } // NOLINT(google-explicit-constructor): stands for its bytes
  const std::string& str() const { return bytes_; }
  std::size_t size() const { return bytes_.size(); }

private:
  Bytes& put(std::uint64_t value, int width);
  std::string bytes_;
};

/// Overwrites bytes of `where` from `offset` on.
void patch(std::string& where, std::size_t offset, const std::string& bytes);
std::uint32_t bigEndian(std::string_view bytes, std::size_t offset, int width);

// ---- records --------------------------------------------------------------------------------------------------------

inline constexpr std::size_t headSize = 4;

/// Head and content; `offset`s elsewhere count from the start of the head.
std::string record(int opcode, const std::string& content = {});
/// The same for a content that may be too long for one record: a first piece of 65528 bytes in all, then continuation
/// records with up to 65528 bytes of content.
std::string longRecord(int opcode, const std::string& content);
/// A record of `length` bytes, zero behind what `content` gives.
std::string padded(int opcode, std::size_t length, const std::string& content = {});

inline const std::string push = record(10);
inline const std::string pop = record(11);
inline const std::string pushSubface = record(19);
inline const std::string popSubface = record(20);
/// `content` between a push and a pop.
std::string level(const std::string& content);
std::string subfaces(const std::string& content);

/// A header as files of that version have it: 276 bytes below 15.7, 304 in 15.7, 324 from 15.8 on.
std::string header(int version = 1620);
/// A node with ID and zeros. The length is that of version 16.2 unless given.
std::string node(int opcode, const std::string& id, std::size_t length = 0);
std::string group(const std::string& id, std::size_t length = 44);
std::string object(const std::string& id);
/// A polygon as a modeller makes it: no color, no texture, no material.
std::string face(const std::string& id);
std::string longId(const std::string& name);
std::string comment(const std::string& text);
std::string matrix(const std::vector<float>& sixteen);
std::string instanceReference(int number);
std::string instanceDefinition(int number);
std::string external(const std::string& path);
/// @param masks words of each mask, one mask behind the other
std::string switchNode(const std::string& id, int maskCount, int wordsPerMask, const std::vector<std::uint32_t>& masks);

// ---- geometry -------------------------------------------------------------------------------------------------------

std::string plainVertex(double x, double y, double z);
std::string normalVertex(double x, double y, double z);
std::string normalTextureVertex(double x, double y, double z);
std::string textureVertex(double x, double y, double z);

/// The vertex palette of a file under construction.
class VertexPool {
public:
  /// The offset by which vertex lists refer to it.
  std::uint32_t add(const std::string& vertexRecord);
  /// The palette record with all vertices behind it.
  std::string records() const;

private:
  std::string vertices_;
};

std::string vertexList(const std::vector<std::uint32_t>& offsets);
/// A face with its vertex list and what may stand behind that in its level.
std::string polygon(const std::string& id, const std::vector<std::uint32_t>& offsets, const std::string& behind = {});
/// A whole file of header, color palette, pool and one level with `content`.
std::string file(const VertexPool& pool, const std::string& content, int version = 1620);
/// A whole file without vertices.
std::string file(const std::string& content, int version = 1620);

} // namespace nalt::tests::flt
