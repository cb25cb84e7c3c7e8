#include "scene/image/DofPreview.h"

#include "scene/image/Sync.h"

#include <algorithm>
#include <osg/MatrixTransform>

namespace nalt {

namespace {

using fltapi::DofFields;
using fltapi::DofRecord;
using Kind = DofChannel::Kind;

constexpr std::array<DofChannel, 9> channels = {{
    {"X:", Kind::translation, &DofFields::x, 0x80000000},
    {"Y:", Kind::translation, &DofFields::y, 0x40000000},
    {"Z:", Kind::translation, &DofFields::z, 0x20000000},
    {"Pitch:", Kind::rotation, &DofFields::pitch, 0x10000000},
    {"Roll:", Kind::rotation, &DofFields::roll, 0x08000000},
    {"Yaw:", Kind::rotation, &DofFields::yaw, 0x04000000},
    {"X Scale:", Kind::scale, &DofFields::scaleX, 0x02000000},
    {"Y Scale:", Kind::scale, &DofFields::scaleY, 0x01000000},
    {"Z Scale:", Kind::scale, &DofFields::scaleZ, 0x00800000},
}};

DofBounds freeBounds(Kind kind, double size)
{
  switch (kind) {
  case Kind::translation:
    return {-size, size};
  case Kind::rotation:
    return {-180, 180};
  case Kind::scale:
    break;
  }
  return {0, 2};
}

osg::Matrixd matrixFor(const DofRecord& dof, const DofValues& values)
{
  const osg::ref_ptr<fltapi::Record> copy = dof.clone(nullptr);
  auto& moved = static_cast<DofRecord&>(*copy);
  for (std::size_t i = 0; i < channels.size(); ++i)
    moved.set((DofRecord::fields.*channels[i].range).current, values[i]);
  return moved.matrix() * dof.localMatrix();
}

} // namespace

std::span<const DofChannel, 9> dofChannels()
{
  return channels;
}

DofValues currentDofValues(const DofRecord& dof)
{
  DofValues values;
  for (std::size_t i = 0; i < channels.size(); ++i)
    values[i] = dof.get((DofRecord::fields.*channels[i].range).current);
  return values;
}

DofBounds previewBounds(const DofRecord& dof, const DofChannel& channel, double size)
{
  const fltapi::DofRange& range = DofRecord::fields.*channel.range;
  const double least = dof.get(range.minimum);
  const double most = dof.get(range.maximum);
  const auto flags = static_cast<std::uint32_t>(dof.get(DofRecord::fields.flags));
  if (flags & channel.limitBit && least < most) return {least, most};
  const DofBounds bounds = freeBounds(channel.kind, size);
  const double current = dof.get(range.current);
  return {std::min(bounds.least, current), std::max(bounds.most, current)};
}

void DofPreview::move(DofRecord& dof, const DofValues& values)
{
  auto* node = dynamic_cast<osg::MatrixTransform*>(scene_.nodeOf(dof));
  const osg::Matrixd matrix = matrixFor(dof, values);
  if (!node || !matrix.valid()) return;
  node->setMatrix(matrix);
  scene_.noteMove();
  moved_[dof.serial()] = {&dof, values};
}

DofValues DofPreview::valuesOf(const DofRecord& dof) const
{
  const auto moved = moved_.find(dof.serial());
  return moved == moved_.end() ? currentDofValues(dof) : moved->second.values;
}

void DofPreview::restore(const DofRecord& dof)
{
  const auto moved = moved_.find(dof.serial());
  if (moved == moved_.end()) return;
  scene_.update(*moved->second.dof);
  moved_.erase(moved);
}

void DofPreview::restoreAll()
{
  for (const auto& [serial, moved] : moved_)
    scene_.update(*moved.dof);
  moved_.clear();
}

} // namespace nalt
