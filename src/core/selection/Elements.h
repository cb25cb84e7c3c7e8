#pragma once

#include "fltapi/geometry/VertexListRecord.h"

#include <functional>

namespace nalt {

/// A corner of a polygon or light point.
struct FltVertex {
  osg::ref_ptr<fltapi::VertexListRecord> list;
  osg::ref_ptr<fltapi::VertexBaseRecord> vertex;

  fltapi::PrimNodeRecord* owner() const { return list->parent(); }
  std::uint32_t serial() const { return vertex->serial(); }
  bool operator==(const FltVertex& other) const { return vertex == other.vertex && list == other.list; }
};

/// The edge of a polygon from one corner to the next.
struct FltEdge {
  osg::ref_ptr<fltapi::VertexListRecord> list;
  osg::ref_ptr<fltapi::VertexBaseRecord> from;
  osg::ref_ptr<fltapi::VertexBaseRecord> to;

  fltapi::PrimNodeRecord* owner() const { return list->parent(); }
  std::uint32_t serial() const { return from->serial(); }
  bool operator==(const FltEdge& other) const { return from == other.from && to == other.to && list == other.list; }
};

/// A node as a whole.
struct FltNode {
  osg::ref_ptr<fltapi::PrimNodeRecord> node;

  std::uint32_t serial() const { return node->serial(); }
  bool operator==(const FltNode& other) const { return node == other.node; }
};

/// Serial numbers are all different, and elements that are used together have neighbouring ones: as they stand they
/// give the hash table's memory the order of the model.
struct ElementHash {
  template <class Element>
  std::size_t operator()(const Element& element) const
  {
    return element.serial();
  }
};

/// "p19/V2": the name of a polygon and the number of a corner, counted from 0.
std::string nameOf(const FltVertex& vertex);
/// "p19/E2": the edge that begins at corner 2.
std::string nameOf(const FltEdge& edge);
std::string nameOf(const FltNode& node);

} // namespace nalt
