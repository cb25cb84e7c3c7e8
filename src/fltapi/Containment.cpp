#include "fltapi/Containment.h"

#include "fltapi/Opcodes.h"

#include <algorithm>
#include <initializer_list>

namespace fltapi {

namespace {

using namespace opcodes;

bool isOneOf(int opcode, std::initializer_list<int> list)
{
  return std::ranges::find(list, opcode) != list.end();
}

/// Polygons, and the light points that can stand wherever polygons do.
constexpr std::initializer_list<int> geometry = {face, lightPoint, indexedLightPoint};

/// Every node but the header and what is part of one polygon or mesh (vertex lists, pools, primitives).
constexpr std::initializer_list<int> freeNodes = {group,
                                                  oldLod,
                                                  object,
                                                  face,
                                                  oldVertex,
                                                  oldVertexColor,
                                                  oldVertexColorNormal,
                                                  dof,
                                                  bsp,
                                                  external,
                                                  lod,
                                                  mesh,
                                                  instanceReference,
                                                  instanceDefinition,
                                                  sound,
                                                  roadPath,
                                                  text,
                                                  roadSegment,
                                                  switchNode,
                                                  clipRegion,
                                                  extension,
                                                  cat,
                                                  curve,
                                                  lightPoint,
                                                  lightSource,
                                                  roadConstruction,
                                                  indexedLightPoint,
                                                  lightPointSystem};

} // namespace

bool canContain(int parent, int child)
{
  switch (parent) {
  case header:
  case group:
  case dof:
  case bsp:
  case instanceDefinition:
  case lod:
  case switchNode:
  case clipRegion:
  case cat:
  case roadConstruction:
    return isOneOf(child, freeNodes);
  case object:
    return isOneOf(child, geometry) || child == mesh || child == text;
  case face:
  case lightPoint:
  case indexedLightPoint:
    return isOneOf(child, geometry);
  case lightPointSystem:
    return child == lightPoint || child == indexedLightPoint;
  default:
    return false;
  }
}

} // namespace fltapi
