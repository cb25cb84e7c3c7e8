#include "scene/image/ModUserData.h"

#include "fltapi/AllRecords.h"
#include "scene/image/Sync.h"

#include <algorithm>

namespace nalt {

ModUserData::ModUserData(fltapi::PrimNodeRecord& record) : record_(record) {}

ModUserData* ModUserData::find(const fltapi::PrimNodeRecord& record)
{
  return static_cast<ModUserData*>(record.userData()); // nothing else hangs there
}

ModUserData& ModUserData::of(fltapi::PrimNodeRecord& record)
{
  if (!record.userData()) record.setUserData(std::make_unique<ModUserData>(record));
  return *find(record);
}

bool ModUserData::isGeometryHolder() const
{
  return record_.opcode() != fltapi::opcodes::header &&
         std::ranges::all_of(record_.primaryChildren(), [](const auto* child) { return child->holdsSubfaces(); });
}

std::uint32_t ModUserData::nodeMaskOf(const fltapi::PrimNodeRecord& record)
{
  const auto* data = find(record);
  return data ? data->nodeMask() : ~0U;
}

void ModUserData::setVisible(bool visible, std::uint32_t bits, Sync& scene, bool traverse)
{
  const auto mask = visible ? nodeMask_ | bits : nodeMask_ & ~bits;
  hidden_ = (mask & scene.viewportBits()) == 0;
  if (mask != nodeMask_) {
    nodeMask_ = mask;
    scene.setNodeMask(record_, mask);
  }
  if (!traverse) return;
  SetLodVisibleVisitor visitor(visible, bits, scene);
  record_.traverse(visitor);
}

ModUserData::SetLodVisibleVisitor::SetLodVisibleVisitor(bool visible, std::uint32_t bits, Sync& scene)
    : fltapi::RecordVisitor(fltapi::TraversalMode::notExternals), visible_(visible), bits_(bits), scene_(scene)
{}

void ModUserData::SetLodVisibleVisitor::apply(fltapi::PrimNodeRecord& node)
{
  if (node.opcode() == fltapi::opcodes::vertexList || node.externalFile()) return;
  // What is shown and has no data needs none.
  if (!visible_ || find(node)) of(node).setVisible(visible_, bits_, scene_, /*traverse=*/false);
  fltapi::RecordVisitor::apply(node);
}

} // namespace nalt
