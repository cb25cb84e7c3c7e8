#pragma once

#include "fltapi/geometry/VertexListRecord.h"

namespace nalt {

// The elements of selections. Each has an order: that in which their records were made.

/// A corner of a polygon or light point.
struct FltVertex {
  osg::ref_ptr<fltapi::VertexListRecord> list;
  osg::ref_ptr<fltapi::VertexBaseRecord> vertex;

  fltapi::PrimNodeRecord* owner() const { return list->parent(); }
  static bool before(const FltVertex& a, const FltVertex& b)
  {
    if (a.vertex != b.vertex) return a.vertex->serial() < b.vertex->serial();
    return a.list->serial() < b.list->serial();
  }
  bool operator==(const FltVertex& other) const { return vertex == other.vertex && list == other.list; }
};

/// The edge of a polygon from one corner to the next.
struct FltEdge {
  osg::ref_ptr<fltapi::VertexListRecord> list;
  osg::ref_ptr<fltapi::VertexBaseRecord> from;
  osg::ref_ptr<fltapi::VertexBaseRecord> to;

  fltapi::PrimNodeRecord* owner() const { return list->parent(); }
  static bool before(const FltEdge& a, const FltEdge& b)
  {
    if (a.from != b.from) return a.from->serial() < b.from->serial();
    if (a.to != b.to) return a.to->serial() < b.to->serial();
    return a.list->serial() < b.list->serial();
  }
  bool operator==(const FltEdge& other) const { return from == other.from && to == other.to && list == other.list; }
};

/// A node as a whole.
struct FltNode {
  osg::ref_ptr<fltapi::PrimNodeRecord> node;

  static bool before(const FltNode& a, const FltNode& b) { return a.node->serial() < b.node->serial(); }
  bool operator==(const FltNode& other) const { return node == other.node; }
};

/// "p19/V2": the name of a polygon and the number of a corner, counted from 0.
std::string nameOf(const FltVertex& vertex);
/// "p19/E2": the edge that begins at corner 2.
std::string nameOf(const FltEdge& edge);
std::string nameOf(const FltNode& node);

} // namespace nalt
