#pragma once

#include "fltapi/nodes/ExternalRecord.h"
#include "scene/image/Sync.h"

namespace nalt {

/// After the content of external references was loaded, reloaded or dropped: takes the former content out of the scene
/// and shows what hangs below the references now.
class UpdateExternalsVisitor : public fltapi::RecordVisitor {
public:
  explicit UpdateExternalsVisitor(Sync& scene)
      : fltapi::RecordVisitor(fltapi::TraversalMode::notExternals), scene_(scene)
  {}

  using fltapi::RecordVisitor::apply;
  void apply(fltapi::ExternalRecord& external) override { scene_.update(external); }

private:
  Sync& scene_;
};

} // namespace nalt
