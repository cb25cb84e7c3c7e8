#pragma once

#include <cstdint>
#include <osg/Referenced>
#include <vector>

namespace nalt {

/// Which bits of the node masks each graphics context draws. Every viewport has a context of its own, so while polygons
/// are drawn the context tells the viewport. Noted while a viewport culls, used while it draws.
class ViewportTable : public osg::Referenced {
public:
  void setBits(unsigned contextId, std::uint32_t bits)
  {
    if (contextId >= bits_.size()) bits_.resize(contextId + 1, allBits);
    bits_[contextId] = bits;
  }
  /// All bits for a context that never culled this scene.
  std::uint32_t bitsOf(unsigned contextId) const { return contextId < bits_.size() ? bits_[contextId] : allBits; }

  /// The viewports, by their bits, that show polygons shrunk.
  std::uint32_t shrinkingBits() const { return shrinkingBits_; }
  void setShrinkingBits(std::uint32_t bits) { shrinkingBits_ = bits; }
  bool shrinksIn(unsigned contextId) const { return bitsOf(contextId) & shrinkingBits_; }

  static constexpr std::uint32_t allBits = ~0U;

protected:
  ~ViewportTable() override = default;

private:
  std::vector<std::uint32_t> bits_;
  std::uint32_t shrinkingBits_ = 0;
};

} // namespace nalt
