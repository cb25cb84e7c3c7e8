#pragma once

#include "fltapi/PrimNodeRecord.h"
#include "fltapi/RecordVisitor.h"
#include "scene/image/Marks.h"

#include <cstdint>

namespace nalt {

class Sync;

/// What the program keeps with a node that isn't part of the document: in which viewports it is shown, whether its
/// entry in the tree view is closed. A node without it is shown everywhere and open. Made when it is first needed;
/// owned by the node. Whether a node is selected costs a bit of the record itself, since millions can be.
class ModUserData : public fltapi::UserData {
public:
  explicit ModUserData(fltapi::PrimNodeRecord& record);

  /// Null for a node that has none.
  static ModUserData* find(const fltapi::PrimNodeRecord& record);
  /// That of the node, made when it has none.
  static ModUserData& of(fltapi::PrimNodeRecord& record);

  fltapi::PrimNodeRecord& record() const { return record_; }
  /// The children are faces and light points only, and the node isn't the header.
  bool isGeometryHolder() const;

  /// One bit for each viewport that shows the node, as far as its own visibility goes.
  std::uint32_t nodeMask() const { return nodeMask_; }
  static std::uint32_t nodeMaskOf(const fltapi::PrimNodeRecord& record);
  /// Shows or hides the node in the viewports of `bits`, with all below it when `traverse` is set.
  void setVisible(bool visible, std::uint32_t bits, Sync& scene, bool traverse);
  /// Hidden in all viewports of the model.
  bool hidden() const override { return hidden_; }

  bool isSelected() const { return record_.marks() & Mark::selected; }
  void setSelected(bool selected) { setMark(record_, Mark::selected, selected); }
  bool isContracted() const { return contracted_; }
  void setContracted(bool contracted) { contracted_ = contracted; }

  /// Shows or hides everything that it meets in some viewports. Content of external references keeps its state. Levels
  /// of detail that the current state doesn't show stay off by their own nodes.
  class SetLodVisibleVisitor : public fltapi::RecordVisitor {
  public:
    SetLodVisibleVisitor(bool visible, std::uint32_t bits, Sync& scene);
    using fltapi::RecordVisitor::apply;
    void apply(fltapi::PrimNodeRecord& node) override;

  private:
    bool visible_;
    std::uint32_t bits_;
    Sync& scene_;
  };

private:
  fltapi::PrimNodeRecord& record_;
  std::uint32_t nodeMask_ = ~0U;
  bool hidden_ = false;
  bool contracted_ = false;
};

} // namespace nalt
