#include "fltapi/ChildList.h"

#include <algorithm>

namespace fltapi {

ChildList::~ChildList()
{
  for (auto* child : *this)
    child->unref();
  if (capacity_ > 1) delete[] many_;
}

void ChildList::grow()
{
  const auto capacity = std::max<std::uint32_t>(4, capacity_ * 2);
  auto** larger = new Record*[capacity];
  std::copy(begin(), end(), larger);
  if (capacity_ > 1) delete[] many_;
  many_ = larger;
  capacity_ = capacity;
}

void ChildList::insert(int position, Record* child)
{
  if (size_ == capacity_) grow();
  auto** slot = slots() + position;
  std::move_backward(slot, slots() + size_, slots() + size_ + 1);
  *slot = child;
  ++size_;
  child->ref();
}

osg::ref_ptr<Record> ChildList::take(int position)
{
  osg::ref_ptr<Record> taken = (*this)[position];
  taken->unref();
  auto** slot = slots() + position;
  std::move(slot + 1, slots() + size_, slot);
  --size_;
  return taken;
}

void ChildList::move(int from, int to)
{
  auto** s = slots();
  if (from < to) {
    std::rotate(s + from, s + from + 1, s + to + 1);
  } else {
    std::rotate(s + to, s + from, s + from + 1);
  }
}

std::vector<osg::ref_ptr<Record>> ChildList::retain(const std::vector<bool>& keep)
{
  std::vector<osg::ref_ptr<Record>> removed;
  auto** s = slots();
  std::uint32_t kept = 0;
  for (std::uint32_t i = 0; i < size_; ++i) {
    if (keep[i]) {
      s[kept++] = s[i];
    } else {
      removed.emplace_back(s[i]);
      s[i]->unref();
    }
  }
  size_ = kept;
  return removed;
}

} // namespace fltapi
