#pragma once

#include "fltapi/Record.h"

#include <cstdint>

namespace fltapi {

/// The counted children of a node in order. Most nodes of a model are polygons with one single child, so one entry
/// needs no memory of its own.
class ChildList {
public:
  ChildList() = default;
  ChildList(const ChildList&) = delete;
  ChildList& operator=(const ChildList&) = delete;
  ~ChildList();

  int size() const { return static_cast<int>(size_); }
  bool empty() const { return size_ == 0; }
  Record* operator[](int i) const { return begin()[i]; }
  Record* const* begin() const { return capacity_ == 1 ? &one_ : many_; }
  Record* const* end() const { return begin() + size_; }

  void insert(int position, Record* child);
  /// Takes the child out; the caller gets the reference that the list held.
  osg::ref_ptr<Record> take(int position);
  /// Changes the order only.
  void move(int from, int to);
  /// Keeps the children for which `keep[i]` is true and hands the others over, in order.
  std::vector<osg::ref_ptr<Record>> retain(const std::vector<bool>& keep);

private:
  Record** slots() { return capacity_ == 1 ? &one_ : many_; }
  void grow();

  union {
    Record* one_ = nullptr;
    Record** many_;
  };
  std::uint32_t size_ = 0;
  std::uint32_t capacity_ = 1;
};

} // namespace fltapi
