#include "scene/image/FaceState.h"

#include "fltapi/FltFile.h"

namespace nalt {

namespace {

constexpr unsigned nodesPerStateSet = 512;

void copyContent(const osg::StateSet& from, osg::StateSet& to)
{
  to.clear();
  to.merge(from);
  to.setRenderingHint(from.getRenderingHint());
  to.setRenderBinDetails(from.getBinNumber(), from.getBinName(), from.getRenderBinMode());
  to.setNestRenderBins(from.getNestRenderBins());
}

} // namespace

FaceState::FaceState(const FaceStateKey& key, const fltapi::FltFile* file) : key_(key), file_(file) {}

FaceState::~FaceState() = default;

osg::StateSet* FaceState::stateSetWithRoom()
{
  if (stateSets_.back()->getNumParents() >= nodesPerStateSet) {
    stateSets_.push_back(new osg::StateSet);
    copyContent(*stateSets_.front(), *stateSets_.back());
  }
  return stateSets_.back();
}

void FaceState::setContent(const osg::StateSet& content)
{
  for (const auto& stateSet : stateSets_)
    copyContent(content, *stateSet);
}

} // namespace nalt
