#pragma once

#include "core/selection/SelectionSet.h"
#include "scene/image/NormalLines.h"
#include "scene/image/VertexNumbers.h"
#include "scene/view/ViewportPreferences.h"

#include <osg/Group>
#include <osg/ref_ptr>

#include <cstdint>

namespace nalt {

class Sync;
struct ViewStyle;

/// What one viewport draws at the corners of the model on demand: their normals and their numbers. Brought up to date
/// before each picture; as long as neither the scene nor, where it counts, the selection changes, that costs nothing.
class CornerMarks : private SelectionListener {
public:
  CornerMarks() = default;
  CornerMarks(const CornerMarks&) = delete;
  CornerMarks& operator=(const CornerMarks&) = delete;
  ~CornerMarks() override { watch(nullptr); }

  osg::Group* root() { return root_.get(); }
  /// The selection that counts; null for none. It must outlive this object, or be taken back before it goes.
  void watch(SelectionSet* selections);
  /// @param bits those of the viewport in the node masks
  void update(const Sync& scene, std::uint32_t bits, const ViewStyle& style, const ViewportPreferences& preferences);
  void clear();

private:
  /// What the marks were made from.
  struct Source {
    osg::ref_ptr<osg::Node> model; ///< held, so that no other scene can have its place
    std::uint64_t revision = 0;
    std::uint32_t bits = 0;
    bool numbers = false;
    bool normals = false;
    NormalLines::Settings settings;
    friend bool operator==(const Source&, const Source&) = default;
  };
  void selectionChanged(bool selected) override;
  void updateSelected(osg::Node& root, std::uint32_t bits, const NormalLines::Settings& settings);

  osg::ref_ptr<osg::Group> root_ = new osg::Group;
  NormalLines normals_;
  VertexNumbers numbers_;
  SelectionSet* selections_ = nullptr;
  Source source_;
  bool selectionChanged_ = true; ///< since the normals of the selection were made
};

} // namespace nalt
