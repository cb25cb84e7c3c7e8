#pragma once

#include "fltapi/nodes/DofRecord.h"

#include <array>
#include <cstdint>
#include <map>
#include <osg/Matrixd>
#include <osg/ref_ptr>
#include <span>

namespace nalt {

class Sync;

/// One of the nine ways in which a DOF can move.
struct DofChannel {
  enum class Kind { translation, rotation, scale };

  const char* label;
  Kind kind;
  fltapi::DofRange fltapi::DofFields::*range;
  std::uint32_t limitBit; ///< of the record's flags: the movement stays within the range
};

/// In the order x, y, z of translation, then pitch, roll, yaw, then x, y, z of scale.
std::span<const DofChannel, 9> dofChannels();

/// Model units, degrees, factors; in the order of `dofChannels`.
using DofValues = std::array<double, 9>;

/// What the record says that they are.
DofValues currentDofValues(const fltapi::DofRecord& dof);

struct DofBounds {
  double least;
  double most;
};

/// How far a movement can be tried out: as far as the record lets it, or, where it sets no limit, over a range that
/// suits something of `size` model units and holds the current value.
DofBounds previewBounds(const fltapi::DofRecord& dof, const DofChannel& channel, double size);

/// Moves DOFs in the scene and leaves the document as it is. What was moved goes back when this object goes, so it must
/// go before the scene.
class DofPreview {
public:
  explicit DofPreview(Sync& scene) : scene_(scene) {}
  DofPreview(const DofPreview&) = delete;
  DofPreview& operator=(const DofPreview&) = delete;
  ~DofPreview() { restoreAll(); }

  void move(fltapi::DofRecord& dof, const DofValues& values);
  /// The values that a DOF is shown with.
  DofValues valuesOf(const fltapi::DofRecord& dof) const;
  void restore(const fltapi::DofRecord& dof);
  void restoreAll();
  /// The scene is gone already: nothing goes back.
  void abandon() { moved_.clear(); }

private:
  struct Moved {
    osg::ref_ptr<fltapi::DofRecord> dof;
    DofValues values;
  };

  Sync& scene_;
  std::map<std::uint32_t, Moved> moved_; ///< by serial number of the record
};

} // namespace nalt
