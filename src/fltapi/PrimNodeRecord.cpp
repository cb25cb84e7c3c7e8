#include "fltapi/PrimNodeRecord.h"

#include "fltapi/AllRecords.h"
#include "fltapi/FltFile.h"
#include "fltapi/visitors/AncestorVisitor.h"
#include "fltapi/visitors/FindDescendantsVisitor.h"

#include <algorithm>
#include <map>

namespace fltapi {

struct PrimNodeRecord::Extras {
  std::vector<PrimNodeRecord*> parents;
  std::map<int, std::vector<Record*>> childrenByOpcode;
};

PrimNodeRecord::PrimNodeRecord(Buffer data) : Record(std::move(data)) {}

PrimNodeRecord::~PrimNodeRecord()
{
  // Children that others still hold live on. The file isn't told: it may be gone by now.
  for (auto* child : children_) {
    if (auto* node = child->asNode()) {
      node->forgetParent(this);
    } else if (child->parent() == this) {
      child->attachTo(nullptr);
    }
  }
}

void PrimNodeRecord::forgetParent(PrimNodeRecord* parent)
{
  if (extras_) std::erase(extras_->parents, parent);
  if (this->parent() != parent) return;
  if (parents().empty()) {
    attachTo(nullptr);
  } else {
    attachTo(parents().back());
    extras_->parents.pop_back();
  }
}

PrimNodeRecord::Extras& PrimNodeRecord::extras() const
{
  if (!extras_) extras_ = std::make_unique<Extras>();
  return *extras_;
}

const std::vector<PrimNodeRecord*>& PrimNodeRecord::parents() const
{
  return extras_ ? extras_->parents : Record::parents();
}

void PrimNodeRecord::traverse(RecordVisitor& visitor)
{
  const RecordVisitor::Level level(visitor);
  if (level.tooDeep()) return;
  // A visitor may change the children while it walks them: each one is held, and the position is found by number.
  for (int i = 0; i < children_.size(); ++i) {
    const osg::ref_ptr<Record> child = children_[i];
    child->accept(visitor);
  }
}

// ---- looking up ----------------------------------------------------------------------------------------------------

Record* PrimNodeRecord::childAt(int index) const
{
  return index >= 0 && index < children_.size() ? children_[index] : nullptr;
}

PrimNodeRecord* PrimNodeRecord::primaryChildAt(int i) const
{
  if (i < 0 || i >= primaryCount_) return nullptr;
  // Nearly always all ancillaries stand in front.
  if (frontAncillaries_ + primaryCount_ == children_.size()) return children_[frontAncillaries_ + i]->asNode();
  auto nodes = primaryChildren();
  return *std::ranges::next(nodes.begin(), i);
}

int PrimNodeRecord::positionOf(const Record& child) const
{
  // The header of a shared external hangs in several places and keeps the index of the first one.
  if (childAt(child.index_) == &child) return child.index_;
  const auto found = std::find(children_.begin(), children_.end(), &child);
  return found == children_.end() ? -1 : static_cast<int>(found - children_.begin());
}

bool PrimNodeRecord::isChild(const Record* child) const
{
  return child && positionOf(*child) >= 0;
}

int PrimNodeRecord::primaryIndexOf(const Record& child) const
{
  const int position = positionOf(child);
  if (position < 0 || !child.isPrimary()) return -1;
  if (frontAncillaries_ + primaryCount_ == children_.size()) return position - frontAncillaries_;
  return static_cast<int>(std::count_if(children_.begin(), children_.begin() + position,
                                        [](const Record* record) { return record->isPrimary(); }));
}

Record* PrimNodeRecord::findChild(int opcode) const
{
  constexpr int fewChildren = 16;
  if (children_.size() <= fewChildren) {
    const auto found = std::find_if(children_.begin(), children_.end(),
                                    [&](const Record* child) { return child->opcode() == opcode; });
    return found == children_.end() ? nullptr : *found;
  }
  const auto all = findChildren(opcode);
  return all.empty() ? nullptr : all.front();
}

std::vector<Record*> PrimNodeRecord::findChildren(int opcode) const
{
  auto& cache = extras().childrenByOpcode;
  if (cache.empty()) {
    for (auto* child : children_)
      cache[child->opcode()].push_back(child);
  }
  const auto found = cache.find(opcode);
  return found == cache.end() ? std::vector<Record*>{} : found->second;
}

std::vector<Record*> PrimNodeRecord::findChildrenByOpcodes(std::span<const int> opcodes) const
{
  std::vector<Record*> found;
  for (auto* child : children_) {
    if (std::find(opcodes.begin(), opcodes.end(), child->opcode()) != opcodes.end()) found.push_back(child);
  }
  return found;
}

// ---- attaching and detaching ---------------------------------------------------------------------------------------

void PrimNodeRecord::renumberFrom(int position)
{
  for (int i = position; i < children_.size(); ++i) {
    if (children_[i]->parent_ == this) children_[i]->index_ = i;
  }
}

void PrimNodeRecord::place(int position, Record* child)
{
  auto* node = child->asNode();
  // The header of an external file may hang below several references: it keeps its first parent and its place there.
  const bool shared = opcode() == ExternalRecord::code && child->opcode() == HeaderRecord::code && child->parent_;
  if (shared) {
    node->extras().parents.push_back(this);
  } else {
    child->parent_ = this;
    if (node && node->extras_) node->extras_->parents.clear();
  }
  children_.insert(position, child);
  if (!child->isPrimary()) {
    if (position <= frontAncillaries_) ++frontAncillaries_;
  } else {
    frontAncillaries_ = std::min(frontAncillaries_, position);
    ++primaryCount_;
  }
  renumberFrom(position);
  if (extras_) extras_->childrenByOpcode.clear();
  attached(*child);
}

void PrimNodeRecord::insertAt(int position, Record* child)
{
  place(position, child);
  if (child->isPrimary()) primaryInserted(primaryIndexOf(*child));
}

osg::ref_ptr<Record> PrimNodeRecord::unplace(int position)
{
  if (children_[position]->isPrimary()) {
    --primaryCount_;
  } else if (position < frontAncillaries_) {
    --frontAncillaries_;
  }
  auto taken = children_.take(position);
  while (frontAncillaries_ < children_.size() && !children_[frontAncillaries_]->isPrimary())
    ++frontAncillaries_;
  renumberFrom(position);
  if (extras_) extras_->childrenByOpcode.clear();
  return taken;
}

void PrimNodeRecord::attached(Record& child)
{
  if (file()) file()->childAttached(child);
}

void PrimNodeRecord::detached(Record& child)
{
  if (auto* node = child.asNode()) {
    node->forgetParent(this);
  } else if (child.parent_ == this) {
    child.parent_ = nullptr;
  }
  // Two references: the caller's and that of whoever puts the record back later. With one alone nobody will.
  if (!child.parent_ && child.referenceCount() < 2) child.index_ = -1;
  if (file()) file()->childDetached(child);
}

void PrimNodeRecord::addChild(Record* child, bool append)
{
  if (!child || !file()) return;
  if (child->parent_ == this && childAt(child->index_) == child) return;
  const int end = children_.size();
  insertAt(append || child->index_ < 0 ? end : std::min(child->index_, end), child);
}

void PrimNodeRecord::insertChildAt(Record* child, int position)
{
  if (child && file()) insertAt(std::clamp(position, 0, children_.size()), child);
}

void PrimNodeRecord::insertChildBefore(Record* child, Record* sibling)
{
  if (child && file() && isChild(sibling)) insertAt(positionOf(*sibling), child);
}

void PrimNodeRecord::insertChildAfter(Record* child, Record* sibling)
{
  if (child && file() && isChild(sibling)) insertAt(positionOf(*sibling) + 1, child);
}

void PrimNodeRecord::insertAncillary(Record* child)
{
  if (auto* first = firstPrimaryChild()) {
    insertChildBefore(child, first);
  } else {
    addChild(child, /*append=*/true);
  }
}

void PrimNodeRecord::removeChild(Record* child)
{
  const int position = child ? positionOf(*child) : -1;
  if (position < 0) return;
  if (child->isPrimary()) primaryRemoved(primaryIndexOf(*child));
  detached(*unplace(position));
}

void PrimNodeRecord::removeChildren(const std::vector<Record*>& children)
{
  std::vector<bool> keep(children_.size(), true);
  for (const auto* child : children) {
    if (const int position = child ? positionOf(*child) : -1; position >= 0) keep[position] = false;
  }
  // From the back, so that the positions that are told still count.
  for (int i = children_.size() - 1, primary = primaryCount_; i >= 0; --i) {
    if (!children_[i]->isPrimary()) continue;
    --primary;
    if (!keep[i]) {
      primaryRemoved(primary);
      --primaryCount_;
    }
  }
  const auto removed = children_.retain(keep);
  frontAncillaries_ = static_cast<int>(
      std::find_if(children_.begin(), children_.end(), [](const Record* child) { return child->isPrimary(); }) -
      children_.begin());
  renumberFrom(0);
  if (extras_) extras_->childrenByOpcode.clear();
  for (const auto& child : removed)
    detached(*child);
}

void PrimNodeRecord::removeChildren(const std::vector<osg::ref_ptr<Record>>& children)
{
  std::vector<Record*> plain;
  plain.reserve(children.size());
  for (const auto& child : children)
    plain.push_back(child.get());
  removeChildren(plain);
}

void PrimNodeRecord::removeAllChildren()
{
  removeChildren(std::vector<Record*>(children_.begin(), children_.end()));
  primariesCleared();
}

void PrimNodeRecord::removePrimaryChildren()
{
  auto nodes = primaryChildren();
  removeChildren(std::vector<Record*>(nodes.begin(), nodes.end()));
  primariesCleared();
}

bool PrimNodeRecord::moveChild(int from, int to)
{
  const int count = children_.size();
  if (from == to || from < 0 || to < 0 || from >= count || to > count) return false;
  auto* child = children_[from];
  const int primaryFrom = primaryIndexOf(*child);
  // At the end means behind the last child; taking the child out first moves that place by one.
  const int target = std::min(to, count - 1);
  children_.move(from, target);
  renumberFrom(std::min(from, target));
  frontAncillaries_ = static_cast<int>(
      std::find_if(children_.begin(), children_.end(), [](const Record* record) { return record->isPrimary(); }) -
      children_.begin());
  if (extras_) extras_->childrenByOpcode.clear();
  if (child->isPrimary()) primaryMoved(primaryFrom, primaryIndexOf(*child));
  return true;
}

void PrimNodeRecord::replaceChild(Record* oldChild, Record* newChild)
{
  if (!newChild || !isChild(oldChild)) return;
  const int position = positionOf(*oldChild);
  if (oldChild->isPrimary() && newChild->isPrimary()) {
    detached(*unplace(position));
    place(position, newChild);
    return;
  }
  removeChild(oldChild);
  insertAt(position, newChild);
}

// ---- looking around ------------------------------------------------------------------------------------------------

bool PrimNodeRecord::hasAncestorOfType(int opcode) const
{
  for (const auto* node = this; node; node = node->parent()) {
    if (node->opcode() == opcode) return true;
  }
  return false;
}

bool PrimNodeRecord::isAncestorOf(Record& other)
{
  const auto reaches = [&](Record* target) {
    AncestorVisitor visitor(*target);
    accept(visitor);
    return visitor.found();
  };
  if (!other.parent()) return false;
  if (reaches(other.parent())) return true;
  return std::ranges::any_of(other.parents(), reaches);
}

std::vector<Record*> PrimNodeRecord::findDescendants(std::span<const int> opcodes, bool followInstances)
{
  FindDescendantsVisitor visitor({opcodes.begin(), opcodes.end()}, followInstances);
  accept(visitor);
  return std::move(visitor.result);
}

std::vector<Record*> PrimNodeRecord::findDescendants(int opcode, bool followInstances)
{
  return findDescendants(std::span(&opcode, 1), followInstances);
}

} // namespace fltapi
