#pragma once

#include "core/Command.h"
#include "core/selection/SelectionSet.h"
#include "fltapi/geometry/VertexListRecord.h"

#include <string>
#include <vector>

namespace nalt {

class Model;

/// Nodes that left the tree and corners that left their polygons, each with its old place.
class DeleteCommand : public Command {
public:
  /// Remembers what is selected now, for undo.
  explicit DeleteCommand(Model& model);

  /// To be told before the nodes leave. They may have different parents; none may be below another one.
  void addRemovals(const std::vector<osg::ref_ptr<fltapi::PrimNodeRecord>>& nodes);
  /// To be told before the first corner of a list leaves it.
  void addListChange(fltapi::VertexListRecord& list);
  bool empty() const { return removals_.empty() && lists_.empty(); }
  /// Takes out what was told, for the first time and again.
  void redo() override;
  void undo() override;
  void replaceRecord(fltapi::Record& oldRecord, fltapi::Record& newRecord) override;
  std::string scriptText() const override;
  std::string commentText() const override;

  /// The corners that a list is to have from now on.
  void setRemaining(fltapi::VertexListRecord& list, const std::vector<bool>& keep);

private:
  struct Removal {
    osg::ref_ptr<fltapi::PrimNodeRecord> parent;
    osg::ref_ptr<fltapi::PrimNodeRecord> child;
    int index;
  };
  /// The corners of a list and the bytes of its further texture coordinates.
  struct ListState {
    fltapi::VertexListRecord::Vertices vertices;
    std::string layers;
  };
  struct ListChange {
    osg::ref_ptr<fltapi::VertexListRecord> list;
    ListState before;
    ListState after;
  };

  /// The masks of a switch that lost children: those who come back must be shown where they were.
  struct SwitchMasks {
    osg::ref_ptr<fltapi::PrimNodeRecord> node;
    std::string bytes;
  };

  void noteMasks();
  static ListState stateOf(const fltapi::VertexListRecord& list);
  static void restore(fltapi::VertexListRecord& list, const ListState& state);
  static bool takesVertices(const ListChange& change);
  void updateLists(bool after);

  Model& model_;
  std::vector<Removal> removals_; ///< the children of one parent stand together, ascending
  std::vector<ListChange> lists_;
  std::vector<SwitchMasks> masks_; ///< as they were before the children left
  Selections selection_;
  PivotState pivot_;
};

} // namespace nalt
