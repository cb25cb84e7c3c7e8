#include "scene/view/ViewportPreferences.h"

#include <cmath>

namespace nalt {

namespace {

template <class Number>
void keepUnlessPositive(Number& value, Number former)
{
  if (!std::isfinite(value) || value <= 0) value = former;
}

} // namespace

ViewportPreferences usable(ViewportPreferences wanted, const ViewportPreferences& former)
{
  keepUnlessPositive(wanted.gridSpacing, former.gridSpacing);
  if (wanted.thickLineNumber == 0) wanted.thickLineNumber = former.thickLineNumber;
  if (!std::isfinite(wanted.farClip) || !(wanted.nearClip > 0.0) || !(wanted.farClip > wanted.nearClip)) {
    wanted.nearClip = former.nearClip;
    wanted.farClip = former.farClip;
  }
  if (!(wanted.fieldOfView > 0.0 && wanted.fieldOfView < 180.0)) wanted.fieldOfView = former.fieldOfView;
  keepUnlessPositive(wanted.largeVertexSize, former.largeVertexSize);
  if (!std::isfinite(wanted.normalsScale)) wanted.normalsScale = former.normalsScale;
  if (!std::isfinite(wanted.smallFeaturePixels) || wanted.smallFeaturePixels < 0.0F)
    wanted.smallFeaturePixels = former.smallFeaturePixels;
  return wanted;
}

} // namespace nalt
