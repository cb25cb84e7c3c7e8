#pragma once

#include "fltapi/Bytes.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <osg/Vec2f>
#include <osg/Vec3d>
#include <osg/Vec3f>
#include <osg/Vec4f>
#include <span>
#include <string>
#include <type_traits>
#include <utility>

/// A record class describes its content once, in a table with one line for each field:
///
///   struct GroupFields : NodeFields {
///     Field<std::int16_t> relativePriority{*this, 12, "relative priority"};
///   };
///
/// The table serves getters and setters (`record.get(GroupRecord::fields.relativePriority)`), the content of a new
/// record, the byte order of files, and everybody who wants to walk the fields by name. It is built at compile time.
namespace fltapi {

enum class FieldKind : std::uint8_t { signedInteger, unsignedInteger, real, text, bytes };

/// The values of a field in a new record: one for each component, the first one for all components beyond the third.
using FieldDefault = std::array<double, 3>;

constexpr FieldDefault all(double value)
{
  return {value, value, value};
}

struct FieldInfo {
  const char* name = "";
  std::uint16_t offset = 0; ///< from the start of the record, head included
  std::uint16_t count = 0;  ///< components
  std::uint8_t width = 1;   ///< bytes of one component; what is wider than 1 is swapped
  FieldKind kind = FieldKind::bytes;
  std::uint16_t firstVersion = 0; ///< format version from which on files hold the field
  FieldDefault initial{};

  constexpr std::size_t end() const { return offset + std::size_t{width} * count; }
};

/// All fields of one record class, in the order of their declaration.
class FieldTable {
public:
  constexpr void add(const FieldInfo& field) { rows_[count_++] = field; }
  constexpr std::span<const FieldInfo> rows() const { return {rows_.data(), count_}; }

private:
  std::array<FieldInfo, 52> rows_{};
  std::size_t count_ = 0;
};

/// Four color bytes in the order alpha, blue, green, red; never swapped.
struct PackedColor {
  std::uint8_t a = 255, b = 255, g = 255, r = 255;
  friend bool operator==(const PackedColor&, const PackedColor&) = default;
};

/// Marks a text of N bytes, ended by a 0 or by its last byte. Read and written as std::string.
template <std::size_t N>
struct Text {};

/// How one value type lies in a record.
template <class T>
struct FieldTraits {
  using Value = T;
  static constexpr std::uint16_t count = 1;
  static constexpr std::uint8_t width = sizeof(T);
  static constexpr FieldKind kind = std::is_floating_point_v<T> ? FieldKind::real
                                    : std::is_signed_v<T>       ? FieldKind::signedInteger
                                                                : FieldKind::unsignedInteger;
  static T load(const std::byte* p) { return loadAt<T>(p); }
  static void store(std::byte* p, T value) { storeAt(p, value); }
};

template <class T, std::size_t N>
struct FieldTraits<std::array<T, N>> : FieldTraits<T> {
  using Value = std::array<T, N>;
  static constexpr std::uint16_t count = N;
  static Value load(const std::byte* p) { return loadAt<Value>(p); }
  static void store(std::byte* p, const Value& value) { storeAt(p, value); }
};

template <class Vector, class Component, std::uint16_t N>
struct VectorTraits {
  using Value = Vector;
  static constexpr std::uint16_t count = N;
  static constexpr std::uint8_t width = sizeof(Component);
  static constexpr FieldKind kind = FieldKind::real;
  static Vector load(const std::byte* p)
  {
    Vector value;
    std::memcpy(value.ptr(), p, sizeof(Component) * N);
    return value;
  }
  static void store(std::byte* p, const Vector& value) { std::memcpy(p, value.ptr(), sizeof(Component) * N); }
};
template <>
struct FieldTraits<osg::Vec3d> : VectorTraits<osg::Vec3d, double, 3> {};
template <>
struct FieldTraits<osg::Vec3f> : VectorTraits<osg::Vec3f, float, 3> {};
template <>
struct FieldTraits<osg::Vec4f> : VectorTraits<osg::Vec4f, float, 4> {};
template <>
struct FieldTraits<osg::Vec2f> : VectorTraits<osg::Vec2f, float, 2> {};

template <>
struct FieldTraits<PackedColor> {
  using Value = PackedColor;
  static constexpr std::uint16_t count = 4;
  static constexpr std::uint8_t width = 1;
  static constexpr FieldKind kind = FieldKind::bytes;
  static PackedColor load(const std::byte* p) { return loadAt<PackedColor>(p); }
  static void store(std::byte* p, PackedColor value) { storeAt(p, value); }
};

template <std::size_t N>
struct FieldTraits<Text<N>> {
  using Value = std::string;
  static constexpr std::uint16_t count = N;
  static constexpr std::uint8_t width = 1;
  static constexpr FieldKind kind = FieldKind::text;
  static std::string load(const std::byte* p)
  {
    const auto* text = reinterpret_cast<const char*>(p);
    return {text, ::strnlen(text, N)};
  }
  /// At most N - 1 characters; the rest of the field becomes 0.
  static void store(std::byte* p, const std::string& value)
  {
    const auto kept = std::min(value.size(), N - 1);
    std::memcpy(p, value.data(), kept);
    std::memset(p + kept, 0, N - kept);
  }
};

/// One field: where it lies and what type it has. Entering itself in the class's table is all that its construction
/// does.
template <class T>
class Field {
public:
  using Traits = FieldTraits<T>;
  using Value = typename Traits::Value;

  constexpr Field(FieldTable& table, std::uint16_t offset, const char* name, FieldDefault initial = {},
                  std::uint16_t firstVersion = 0)
      : offset_(offset)
  {
    table.add({name, offset, Traits::count, Traits::width, Traits::kind, firstVersion, initial});
  }
  constexpr std::size_t offset() const { return offset_; }
  constexpr std::size_t end() const { return offset_ + std::size_t{Traits::width} * Traits::count; }

private:
  std::uint16_t offset_;
};

/// A class without fields of its own.
struct NoFields : FieldTable {};

/// What nearly every node record begins with.
struct NodeFields : FieldTable {
  Field<Text<8>> id{*this, 4, "id"};
};
inline constexpr NodeFields nodeFields{};

/// The part of a swap that a class has to know about.
struct SwapScope {
  bool fromFile = false;  ///< the content is big-endian now; else it is about to become so
  int version = 0;        ///< of the file; it limits what is swapped only when reading
  std::size_t length = 0; ///< bytes of the record that are in the scope's byte order, head included
};

/// Reverses the fields in `content` (a whole record, head included) that lie inside the scope.
void swapFields(const FieldTable& table, std::byte* content, const SwapScope& scope);
/// Writes the table's initial values; the content must be zero before.
void fillDefaults(const FieldTable& table, std::byte* content, std::size_t length);

/// The same swap for the records that come in millions: the table is known at compile time, so the loop unrolls.
template <const auto& table>
void swapFieldsUnrolled(std::byte* content, const SwapScope& scope)
{
  [&]<std::size_t... I>(std::index_sequence<I...>)
  {
    (
        [&] {
          constexpr FieldInfo row = table.rows()[I];
          if constexpr (row.width > 1) {
            if (row.end() <= scope.length && (!scope.fromFile || scope.version >= row.firstVersion)) {
              swapRun(content + row.offset, row.width, row.count);
            }
          }
        }(),
        ...);
  }
  (std::make_index_sequence<table.rows().size()>{});
}

} // namespace fltapi
