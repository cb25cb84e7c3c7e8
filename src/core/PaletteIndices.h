#pragma once

#include <array>
#include <cstdint>
#include <span>

namespace nalt {

class Model;

/// The palette entries that tools work with, one of each kind. The numbers are those of the commands.
enum class PaletteKind {
  colorIndex = 1,
  colorIntensity = 2,
  texture = 3,
  material = 4,
  textureMapping = 5,
  lightPointAppearance = 6,
  lightPointAnimation = 7,
  shader = 8,
};

/// One row for each kind.
struct PaletteKindInfo {
  PaletteKind kind;
  const char* commandName;
  const char* setter; ///< name of the script function that sets it
  int initial;
  int paletteOpcode; ///< of the palette's entries; 0 where every number in the range is an entry
  int smallest;
  int largest;
};
std::span<const PaletteKindInfo> paletteKinds();
const PaletteKindInfo& infoOf(PaletteKind kind);

struct RgbaColor {
  std::uint8_t r = 255, g = 255, b = 255, a = 255;
  friend bool operator==(const RgbaColor&, const RgbaColor&) = default;
};

/// The current entries of one model.
class PaletteIndices {
public:
  explicit PaletteIndices(Model& model);

  int get(PaletteKind kind) const { return values_[static_cast<std::size_t>(kind)]; }
  /// Stores the value as it is; an undoable change makes a command. The value that is current already makes none.
  void set(PaletteKind kind, int value, bool undoable);
  /// The nearest value that a script may set: colors are cut to their range, of palettes with entries only those that
  /// exist can be set, and -1 for none. False when the value can't be set.
  bool acceptable(PaletteKind kind, int& value) const;

  RgbaColor rgbColor() const { return rgbColor_; }
  void setRgbColor(RgbaColor color, bool undoable);
  /// The color that tools put on geometry: the RGB color in a model of that mode, else that of index and intensity.
  RgbaColor currentColor() const;

private:
  friend class SetIndexCommand;
  friend class SetRgbColorCommand;
  void store(PaletteKind kind, int value);
  void store(RgbaColor color);

  Model& model_;
  std::array<int, 9> values_{};
  RgbaColor rgbColor_;
};

} // namespace nalt
