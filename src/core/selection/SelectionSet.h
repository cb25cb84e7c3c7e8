#pragma once

#include "core/selection/Selection.h"

#include <map>
#include <memory>
#include <optional>
#include <osg/Vec3d>
#include <vector>

namespace nalt {

class Model;

/// Is told after every change of a selection.
class SelectionListener {
public:
  virtual ~SelectionListener() = default;
  /// @param selected whether anything is selected now
  virtual void selectionChanged(bool selected) = 0;
};

/// Is told when the pivot moved, which it also does with a change of the selection: see SelectionSet::settlePivot.
class PivotListener {
public:
  virtual ~PivotListener() = default;
  /// Isn't called when the pivot is lost because nothing is selected.
  virtual void pivotChanged(const osg::Vec3d& place) = 0;
};

/// Selections by family, none of them empty. Copies share what they hold until one of them changes it.
class Selections {
public:
  using Families = std::map<SelectionMode, std::shared_ptr<Selection>>;

  const Families& families() const { return families_; }
  const Selection* find(SelectionMode mode) const;
  bool empty() const { return families_.empty(); }
  std::size_t size() const;
  bool equals(const Selections& other) const;
  bool containsExternal() const;

  void add(const Selection& selection);
  void add(std::unique_ptr<Selection> selection);
  bool remove(const Selection& selection);
  void add(const Selections& other);
  void remove(const Selections& other);
  void clear() { families_.clear(); }
  void replaceRecord(fltapi::Record& oldRecord, fltapi::Record& newRecord);
  bool containsNode(const fltapi::PrimNodeRecord& node) const;
  bool containsVertex(fltapi::VertexListRecord& list, fltapi::VertexBaseRecord& vertex) const;

private:
  Selection& own(SelectionMode mode);
  void dropEmpty(SelectionMode mode);

  Families families_;
};

/// How a change of the selection is to be remembered.
struct SelectionChange {
  bool undoable = true;
  bool updatePivot = true;
  std::string script; ///< empty: nothing of its own is recorded
  std::string comment;
  /// Recorded, where the user wants that of selections by hand, as the names of all that is selected afterwards.
  bool byHand = false;
};

/// Where the pivot is. A stale one is worked out from the selection when it is asked for.
struct PivotState {
  std::optional<osg::Vec3d> place;
  bool isStale = false;
};

/// What is selected in one model, and the only way to change it.
class SelectionSet {
public:
  explicit SelectionSet(Model& model) : model_(model) {}

  const Selections& current() const { return current_; }
  bool empty() const { return current_.empty(); }
  std::size_t size() const { return current_.size(); }
  std::size_t size(SelectionMode mode) const;
  /// Whether anything selected belongs to an external reference and so must not be changed.
  bool containsExternal() const { return current_.containsExternal(); }
  /// Of all elements: the families by mode, in byte order within one. Each name once for each family.
  std::vector<std::string> names() const;

  // While a tool is current that writes to records, nothing that belongs to an external reference can join: a message
  // says so, and the selection stays as it was.

  /// Replaces the selection; the old one becomes the previous one.
  void select(Selections selections, const SelectionChange& change = {});
  void select(std::unique_ptr<Selection> selection, const SelectionChange& change = {});
  /// False, after a message, when nothing could join: no node joins one above or below it that is selected already.
  bool add(const Selection& selection, const SelectionChange& change = {});
  /// Several families in one step.
  bool add(const Selections& selections, const SelectionChange& change = {});
  bool remove(const Selection& selection, const SelectionChange& change = {});
  bool toggle(const Selection& selection, const SelectionChange& change = {});
  void clear(const SelectionChange& change = {});
  /// Two calls lead back to the start.
  void selectPrevious(const SelectionChange& change = {});

  /// Centre of the box around the selection in the coordinates of the whole model; none for an empty selection. Worked
  /// out when it is asked for.
  std::optional<osg::Vec3d> pivot() const;
  const PivotState& pivotState() const { return pivot_; }
  /// Puts it elsewhere until the selection changes. No command: see PivotCommand.
  void setPivot(const PivotState& pivot);
  /// Tells the pivot's listeners where it is if it may have moved since they were told. To be called before something
  /// is drawn or found at the pivot: among millions of selected elements the place takes long to find, so it isn't
  /// worked out at each of the changes between two pictures.
  void settlePivot();

  /// Another record stands in the place of one that may be selected.
  void replaceRecord(fltapi::Record& oldRecord, fltapi::Record& newRecord);
  /// Another document takes the place of this one: no command, nothing to go back to.
  void forgetAll();

  /// So many elements were held and let go on the way to a selection. After many of them the next clear() gives their
  /// memory back to the system.
  void noteFreedElements(std::size_t count) { freedElements_ += count; }

  // Not owned.
  std::vector<SelectionListener*> listeners;
  std::vector<PivotListener*> pivotListeners;

  /// Undo and redo: takes `leaving` out and puts `joining` in.
  void exchange(const Selections& leaving, const Selections& joining, const PivotState& pivot);

private:
  bool toolRefuses(const Selections& selections) const;
  std::unique_ptr<Selection> withoutRelatives(const Selection& selection) const;
  SelectionChange asRecorded(const SelectionChange& change) const;
  void finish(Selections removed, Selections added, const SelectionChange& change);
  void tellListeners();

  Model& model_;
  Selections current_;
  Selections previous_;
  mutable PivotState pivot_;
  bool pivotIsNews_ = false; ///< to its listeners
  std::size_t freedElements_ = 0;
};

} // namespace nalt
