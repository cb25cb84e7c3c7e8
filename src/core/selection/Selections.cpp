#include "core/selection/SelectionSet.h"

#include <algorithm>
#include <numeric>

namespace nalt {

const Selection* Selections::find(SelectionMode mode) const
{
  const auto found = families_.find(mode);
  return found == families_.end() ? nullptr : found->second.get();
}

std::size_t Selections::size() const
{
  return std::accumulate(families_.begin(), families_.end(), std::size_t{0},
                         [](std::size_t sum, const auto& family) { return sum + family.second->size(); });
}

bool Selections::equals(const Selections& other) const
{
  return std::equal(families_.begin(), families_.end(), other.families_.begin(), other.families_.end(),
                    [](const auto& a, const auto& b) { return a.first == b.first && a.second->equals(*b.second); });
}

bool Selections::containsExternal() const
{
  return std::ranges::any_of(families_, [](const auto& family) { return family.second->containsExternal(); });
}

/// The family's object, made when it is missing and copied when somebody else holds it too.
Selection& Selections::own(SelectionMode mode)
{
  auto& family = families_[mode];
  if (!family) {
    family = Selection::make(mode);
  } else if (family.use_count() > 1) {
    family = family->clone();
  }
  return *family;
}

void Selections::dropEmpty(SelectionMode mode)
{
  const auto found = families_.find(mode);
  if (found != families_.end() && found->second->empty()) families_.erase(found);
}

void Selections::add(const Selection& selection)
{
  if (selection.empty()) return;
  auto& family = families_[selection.mode()];
  if (!family) {
    family = selection.clone();
  } else {
    own(selection.mode()).add(selection);
  }
}

void Selections::add(std::unique_ptr<Selection> selection)
{
  if (selection->empty()) return;
  auto& family = families_[selection->mode()];
  if (family) {
    own(selection->mode()).add(*selection);
  } else {
    family = std::move(selection);
  }
}

bool Selections::remove(const Selection& selection)
{
  if (!find(selection.mode())) return false;
  const bool removed = own(selection.mode()).remove(selection);
  dropEmpty(selection.mode());
  return removed;
}

void Selections::add(const Selections& other)
{
  for (const auto& [mode, selection] : other.families_) {
    if (find(mode)) {
      add(*selection);
    } else {
      families_[mode] = selection;
    }
  }
}

void Selections::remove(const Selections& other)
{
  for (const auto& [mode, selection] : other.families_) {
    const auto* mine = find(mode);
    if (mine == selection.get()) {
      families_.erase(mode);
    } else {
      remove(*selection);
    }
  }
}

void Selections::replaceRecord(fltapi::Record& oldRecord, fltapi::Record& newRecord)
{
  std::vector<SelectionMode> modes;
  for (const auto& [mode, selection] : families_)
    modes.push_back(mode);
  for (const auto mode : modes)
    own(mode).replaceRecord(oldRecord, newRecord);
}

bool Selections::containsNode(const fltapi::PrimNodeRecord& node) const
{
  const auto* family = find(selectionModeOf(node.opcode()));
  return family && family->containsNode(node);
}

bool Selections::containsVertex(fltapi::VertexListRecord& list, fltapi::VertexBaseRecord& vertex) const
{
  const auto* family = static_cast<const VertexSelection*>(find(SelectionMode::vertex));
  return family && family->elements().contains({&list, &vertex});
}

} // namespace nalt
