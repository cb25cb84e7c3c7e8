#pragma once

#include "fltapi/RecordVisitor.h"

#include <cstdint>
#include <vector>

namespace nalt {

class Sync;

// Hiding is no edit: it isn't undone, not recorded and not saved. `bits` are those of the viewports concerned.

/// Hides or shows what it is sent to, with all below.
class HideVisitor : public fltapi::RecordVisitor {
public:
  HideVisitor(bool hide, std::uint32_t bits, Sync& scene);
  using fltapi::RecordVisitor::apply;
  void apply(fltapi::PrimNodeRecord& record) override;

private:
  bool hide_;
  std::uint32_t bits_;
  Sync& scene_;
};

/// Gives everything that it meets the node mask that its visibility asks for, after viewports came or went.
class UpdateVisibilityVisitor : public fltapi::RecordVisitor {
public:
  explicit UpdateVisibilityVisitor(Sync& scene);
  using fltapi::RecordVisitor::apply;
  void apply(fltapi::PrimNodeRecord& record) override;

private:
  Sync& scene_;
};

using Nodes = std::vector<fltapi::PrimNodeRecord*>;

void hide(const Nodes& nodes, std::uint32_t bits, Sync& scene);
/// Shows the nodes again, whatever above them was hidden; that shows no more than what leads to them.
void unhide(const Nodes& nodes, std::uint32_t bits, Sync& scene);
void unhideAll(std::uint32_t bits, Sync& scene);
/// Hides everything else.
void isolate(const Nodes& nodes, std::uint32_t bits, Sync& scene);

} // namespace nalt
