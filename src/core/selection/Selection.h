#pragma once

#include "core/selection/ElementSet.h"
#include "core/selection/Elements.h"
#include "core/selection/SelectionMode.h"

#include <functional>
#include <memory>
#include <osg/BoundingBox>
#include <set>
#include <vector>

namespace nalt {

/// The selected elements of one family: polygons, say. It holds records, which survive the edits that rebuild what the
/// scene shows of them.
class Selection {
public:
  virtual ~Selection() = default;
  Selection& operator=(const Selection&) = delete;

  SelectionMode mode() const { return mode_; }
  virtual std::unique_ptr<Selection> clone() const = 0;

  // These three refuse the elements of another family with a warning, and are false then.
  /// All elements of `other` join.
  virtual bool add(const Selection& other) = 0;
  /// All elements of `other` leave; true when any was here.
  virtual bool remove(const Selection& other) = 0;
  /// Elements of `other` that are here leave, the others join.
  virtual bool combine(const Selection& other) = 0;
  /// Drops the elements for which `unwanted(owner node, vertex or null)` is true.
  using ElementTest = std::function<bool(fltapi::PrimNodeRecord&, const fltapi::Record* vertex)>;
  virtual void discard(const ElementTest& unwanted) = 0;

  virtual std::size_t size() const = 0;
  bool empty() const { return size() == 0; }
  virtual std::set<std::string> names() const = 0;
  /// Whether the node itself, or the corner of a list, is selected here.
  virtual bool containsNode(const fltapi::PrimNodeRecord& node) const = 0;
  /// Calls `work(owner node, vertex or null)` for each element in a stable order.
  virtual void forEach(const std::function<void(fltapi::PrimNodeRecord&, fltapi::VertexBaseRecord*)>& work) const = 0;
  /// Runs the visitor over the node of each element.
  void accept(fltapi::RecordVisitor& visitor) const;
  /// In the coordinates of the whole model; empty for an empty selection.
  virtual osg::BoundingBoxd boundingBox() const = 0;
  virtual bool equals(const Selection& other) const = 0;
  bool differs(const Selection& other) const { return !equals(other); }
  /// Whether anything lies below an external reference and so must not be changed.
  bool containsExternal() const;
  virtual void replaceRecord(fltapi::Record& oldRecord, fltapi::Record& newRecord) = 0;
  /// What this is in another family: everything of that family at or below the elements, or, where there is nothing,
  /// the nearest one above. Null when there is nothing at all.
  std::unique_ptr<Selection> convert(SelectionMode target) const;

  static std::unique_ptr<Selection> make(SelectionMode mode);

protected:
  explicit Selection(SelectionMode mode) : mode_(mode) {}
  Selection(const Selection&) = default;
  /// Warns that a selection of another family can't take part; always false.
  bool refuse(const std::string& action) const;

private:
  SelectionMode mode_;
};

/// The families differ in what an element is and nowhere else.
template <class Element>
class ElementSelection : public Selection {
public:
  using Elements = ElementSet<Element>;

  explicit ElementSelection(SelectionMode mode) : Selection(mode) {}

  const Elements& elements() const { return elements_; }
  bool insert(const Element& element) { return elements_.insert(element); }
  /// In the order in which their records were made. Valid until the selection changes.
  std::vector<const Element*> ordered() const;

  std::unique_ptr<Selection> clone() const override { return std::make_unique<ElementSelection>(*this); }
  bool add(const Selection& other) override;
  bool remove(const Selection& other) override;
  bool combine(const Selection& other) override;
  void discard(const ElementTest& unwanted) override;
  std::size_t size() const override { return elements_.size(); }
  std::set<std::string> names() const override;
  bool containsNode(const fltapi::PrimNodeRecord& node) const override;
  void forEach(const std::function<void(fltapi::PrimNodeRecord&, fltapi::VertexBaseRecord*)>& work) const override;
  osg::BoundingBoxd boundingBox() const override;
  bool equals(const Selection& other) const override;
  void replaceRecord(fltapi::Record& oldRecord, fltapi::Record& newRecord) override;

private:
  Elements elements_;
};

using NodeSelection = ElementSelection<FltNode>;
using VertexSelection = ElementSelection<FltVertex>;
using EdgeSelection = ElementSelection<FltEdge>;

/// A selection of one node, in the family that it has.
std::unique_ptr<Selection> selectionOf(fltapi::PrimNodeRecord& node);

} // namespace nalt
