#include "app/SettingsLayout.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <limits>
#include <type_traits>

namespace nalt {

namespace {

constexpr std::size_t versionSize = 8;
constexpr std::size_t windowStart = versionSize;
constexpr std::size_t windowSize = 4120;
constexpr std::size_t windowPlaceSize = 17; // of the window block, what stands before the recent files
constexpr std::size_t preferencesStart = windowStart + windowSize;
constexpr std::size_t preferencesSize = 88;
constexpr std::size_t morePreferencesSize = 80;
constexpr std::size_t viewportStart = preferencesStart + preferencesSize + morePreferencesSize;
constexpr std::size_t viewportSize = 192;
constexpr std::size_t fileSize = viewportStart + viewportSize;
constexpr std::size_t recentFieldSize = 1024;

template <class T>
using Bits = std::conditional_t<sizeof(T) == 8, std::uint64_t, std::uint32_t>;

template <class T>
Bits<T> swapped(Bits<T> bits)
{
  if constexpr (sizeof(T) == 8) {
    return __builtin_bswap64(bits);
  } else {
    return __builtin_bswap32(bits);
  }
}

/// Puts values at offsets of a file in the making.
class Writer {
public:
  explicit Writer(std::string& bytes) : bytes_(bytes) {}

  void value(std::size_t at, bool value) { bytes_[at] = value ? 1 : 0; }
  template <class T>
  void value(std::size_t at, T value)
  {
    const auto bits = swapped<T>(std::bit_cast<Bits<T>>(value));
    std::memcpy(bytes_.data() + at, &bits, sizeof bits);
  }
  void text(std::size_t at, const std::string& text, std::size_t fieldSize)
  {
    const auto kept = std::min(text.size(), fieldSize - 1);
    std::memcpy(bytes_.data() + at, text.data(), kept);
  }

private:
  std::string& bytes_;
};

/// Takes values from offsets; what the file doesn't hold stays as it is.
class Reader {
public:
  explicit Reader(std::string_view bytes) : bytes_(bytes) {}

  void value(std::size_t at, bool& value) const
  {
    if (at < bytes_.size()) value = bytes_[at] != 0;
  }
  template <class T>
  void value(std::size_t at, T& value) const
  {
    if (at + sizeof(T) > bytes_.size()) return;
    Bits<T> bits;
    std::memcpy(&bits, bytes_.data() + at, sizeof bits);
    const auto read = std::bit_cast<T>(swapped<T>(bits));
    if constexpr (std::is_floating_point_v<T>) {
      if (!std::isfinite(read)) return;
    }
    value = read;
  }
  void text(std::size_t at, std::string& text, std::size_t fieldSize) const
  {
    if (at + fieldSize > bytes_.size()) return;
    text.assign(bytes_.data() + at, ::strnlen(bytes_.data() + at, fieldSize - 1));
  }

private:
  std::string_view bytes_;
};

// Each block is laid out once, for both directions.

template <class Archive, class Window>
void windowBlock(Archive& archive, Window& window)
{
  archive.value(windowStart, window.x);
  archive.value(windowStart + 4, window.y);
  archive.value(windowStart + 8, window.width);
  archive.value(windowStart + 12, window.height);
  archive.value(windowStart + 16, window.maximized);
  auto at = windowStart + 24;
  for (auto& file : window.recentFiles) {
    archive.text(at, file, recentFieldSize);
    at += recentFieldSize;
  }
}

template <class Archive, class Values>
void preferencesBlock(Archive& archive, Values& values)
{
  constexpr auto start = preferencesStart;
  archive.value(start, values.zoomViewpointToModel);
  archive.value(start + 8, values.tolerance);
  archive.value(start + 16, values.sensitivity.pan);
  archive.value(start + 20, values.sensitivity.zoom);
  archive.value(start + 24, values.sensitivity.rotate);
  archive.value(start + 28, values.sensitivity.autoPan);
  archive.value(start + 29, values.sensitivity.autoZoom);
  archive.value(start + 32, values.pickTolerance);
  archive.value(start + 36, values.viewportCount);
  archive.value(start + 40, values.maxCommands);
  archive.value(start + 48, values.captureWidth);
  archive.value(start + 52, values.captureHeight);
  archive.value(start + 56, values.saveLatestVersion);
  archive.value(start + 57, values.loadExternals);
  archive.value(start + 64, values.gizmoSize);
  archive.value(start + 72, values.splash);
  archive.value(start + 73, values.showGizmos);
  archive.value(start + 76, values.parameterPrecision);
  archive.value(start + 80, values.uniformScale);
  constexpr auto more = start + preferencesSize;
  archive.value(more, values.convertNotAvailableToZero);
  archive.value(more + 1, values.reloadTextures);
  archive.value(more + 2, values.reloadExternals);
  archive.value(more + 3, values.reloadShaders);
  archive.value(more + 4, values.relativeTexturePaths);
}

/// The viewport's values stand one behind the other without gaps.
template <class Archive>
class Packed {
public:
  Packed(Archive& archive, std::size_t start) : archive_(archive), at_(start) {}

  template <class T>
  Packed& operator()(T& value)
  {
    archive_.value(at_, value);
    at_ += sizeof(T);
    return *this;
  }
  template <class Color>
  Packed& color(Color& color, int components)
  {
    for (int i = 0; i < components; ++i)
      (*this)(color.ptr()[i]);
    return *this;
  }

private:
  Archive& archive_;
  std::size_t at_;
};

template <class Archive, class Values>
void viewportBlock(Archive& archive, Values& values,
                   std::conditional_t<std::is_const_v<Values>, const int, int>& corner)
{
  Packed packed(archive, viewportStart);
  packed.color(values.backgroundTop, 3).color(values.backgroundBottom, 3);
  packed.color(values.gridColor, 4).color(values.gridAxisColor, 4);
  packed(values.gridSpacing)(values.thickLineNumber)(values.automaticClip);
  packed(values.nearClip)(values.farClip)(values.fieldOfView)(values.largeVertexSize);
  packed.color(values.largeVertexInner, 3).color(values.largeVertexOuter, 3);
  packed.color(values.lightAmbient, 3).color(values.lightDiffuse, 3).color(values.lightSpecular, 3);
  packed(corner);
  packed.color(values.normalsColor, 3);
  packed(values.normalsScale)(values.normalsOnlySelection)(values.normalsEverywhere);
  packed(values.smallFeatureCulling)(values.smallFeaturePixels);
}

/// A damaged file must not bring the program into a state that no dialog allows.
void keepSensible(Settings& read, const Settings& before)
{
  const auto within = [](auto& value, auto fallback, auto least, auto most) {
    if (!(value >= least && value <= most)) value = fallback;
  };
  constexpr int largest = std::numeric_limits<int>::max();
  auto& values = read.preferences;
  const auto& old = before.preferences;
  within(values.tolerance, old.tolerance, 0.0, std::numeric_limits<double>::max());
  within(values.sensitivity.pan, old.sensitivity.pan, 0, 100);
  within(values.sensitivity.zoom, old.sensitivity.zoom, 0, 100);
  within(values.sensitivity.rotate, old.sensitivity.rotate, 0, 100);
  within(values.pickTolerance, old.pickTolerance, 0, 1000);
  within(values.viewportCount, 1, 1, 4);
  within(values.maxCommands, old.maxCommands, 0, largest);
  within(values.captureWidth, 0, 0, 32768);
  within(values.captureHeight, 0, 0, 32768);
  within(values.gizmoSize, old.gizmoSize, 1.0, 1000.0);
  within(values.parameterPrecision, old.parameterPrecision, 1, 17);
  auto& view = read.viewport;
  within(view.thickLineNumber, before.viewport.thickLineNumber, 1, largest);
  within(view.gridSpacing, before.viewport.gridSpacing, std::numeric_limits<double>::min(), 1e300);
  within(view.fieldOfView, before.viewport.fieldOfView, 1.0, 179.0);
  within(view.largeVertexSize, before.viewport.largeVertexSize, 1.0, 255.0);
}

} // namespace

std::string encodeSettings(const Settings& settings)
{
  std::string bytes(fileSize, '\0');
  Writer writer(bytes);
  writer.value(0, settingsVersion);
  windowBlock(writer, settings.window);
  preferencesBlock(writer, settings.preferences);
  const int corner = static_cast<int>(settings.viewport.axesCorner);
  viewportBlock(writer, settings.viewport, corner);
  return bytes;
}

std::optional<double> encodedVersion(std::string_view bytes)
{
  if (bytes.size() < versionSize) return std::nullopt;
  std::uint64_t bits;
  std::memcpy(&bits, bytes.data(), sizeof bits);
  return std::bit_cast<double>(swapped<double>(bits)); // infinity counts as newer, what is no number doesn't
}

bool decodeSettings(std::string_view bytes, Settings& settings)
{
  const Reader reader(bytes);
  Settings read = settings;
  const bool hasWindow = bytes.size() >= windowStart + windowPlaceSize;
  if (hasWindow) {
    windowBlock(reader, read.window);
    read.window.x = std::max(0, read.window.x);
    read.window.y = std::max(0, read.window.y);
  }
  preferencesBlock(reader, read.preferences);
  int corner = static_cast<int>(read.viewport.axesCorner);
  viewportBlock(reader, read.viewport, corner);
  const bool known = corner >= static_cast<int>(AxesCorner::topLeft) && corner <= static_cast<int>(AxesCorner::none);
  if (known) read.viewport.axesCorner = static_cast<AxesCorner>(corner);
  keepSensible(read, settings);
  settings = read;
  return hasWindow;
}

} // namespace nalt
