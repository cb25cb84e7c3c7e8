#include "fltapi/OpcodeTable.h"

#include "fltapi/AllRecords.h"

#include <array>

namespace fltapi {

namespace {

template <class T>
Record* construct(Buffer buffer)
{
  return new T(std::move(buffer));
}

template <class T>
constexpr OpcodeInfo row(const char* className, const char* displayName, std::uint32_t length = recordHeadSize)
{
  return {.opcode = T::code,
          .className = className,
          .displayName = displayName,
          .length = length,
          .make = construct<T>,
          .fields = &T::fields};
}

constexpr OpcodeInfo continued(OpcodeInfo info)
{
  info.continues = true;
  return info;
}

constexpr OpcodeInfo named(OpcodeInfo info, NameCounter counter, const char* prefix, const char* suffix = "")
{
  info.counter = counter;
  info.prefix = prefix;
  info.suffix = suffix;
  return info;
}

#define FLTAPI_ROW(Class, ...) row<Class>(#Class, __VA_ARGS__)

constexpr OpcodeInfo translateRow = {.opcode = 44, .displayName = "translate record"};

/// The record kinds, in order of their numbers.
constexpr std::array rows = {
    FLTAPI_ROW(HeaderRecord, "header", 324),
    named(FLTAPI_ROW(GroupRecord, "group", 44), NameCounter::group, "g"),
    FLTAPI_ROW(OldLodRecord, "LOD", 40),
    named(FLTAPI_ROW(ObjectRecord, "object", 28), NameCounter::object, "o"),
    named(FLTAPI_ROW(FaceRecord, "polygon", 80), NameCounter::face, "p"),
    FLTAPI_ROW(OldVertexRecord, "vertex", 24),
    FLTAPI_ROW(OldVertexColorRecord, "vertex", 28),
    FLTAPI_ROW(OldVertexColorNormalRecord, "vertex", 40),
    FLTAPI_ROW(PushLevelRecord, "push record"),
    FLTAPI_ROW(PopLevelRecord, "pop record"),
    named(FLTAPI_ROW(DofRecord, "DOF", 384), NameCounter::dof, "dof"),
    FLTAPI_ROW(PushSubfaceRecord, "push subface record"),
    FLTAPI_ROW(PopSubfaceRecord, "pop subface record"),
    FLTAPI_ROW(PushExtensionRecord, "push extension record", 24),
    FLTAPI_ROW(PopExtensionRecord, "pop extension record", 24),
    FLTAPI_ROW(ContinuationRecord, "continuation record"),
    continued(FLTAPI_ROW(CommentRecord, "comment", 8)),
    FLTAPI_ROW(ColorPaletteRecord, "color palette", 4228),
    FLTAPI_ROW(LongIDRecord, "long ID record", 8),
    translateRow,
    FLTAPI_ROW(MatrixRecord, "matrix record", 68),
    FLTAPI_ROW(VectorRecord, "vector record", 16),
    FLTAPI_ROW(MultiTextureRecord, "multi-texture record", 16),
    continued(FLTAPI_ROW(UVListRecord, "multi-texture UV list", 24)),
    named(FLTAPI_ROW(BspRecord, "BSP node", 48), NameCounter::bsp, "bsp"),
    FLTAPI_ROW(ReplicateRecord, "replicate record", 8),
    FLTAPI_ROW(InstanceReferenceRecord, "instance reference record", 8),
    FLTAPI_ROW(InstanceDefinitionRecord, "instance definition record", 8),
    FLTAPI_ROW(ExternalRecord, "external reference", 216),
    FLTAPI_ROW(TexturePaletteRecord, "texture palette", 216),
    FLTAPI_ROW(OldMaterialPaletteRecord, "material palette", 11780),
    FLTAPI_ROW(VertexPaletteRecord, "vertex palette", 8),
    FLTAPI_ROW(VertexRecord, "vertex", 40),
    FLTAPI_ROW(NormalVertexRecord, "normal vertex", 56),
    FLTAPI_ROW(NormalTextureVertexRecord, "normal/texture vertex", 64),
    FLTAPI_ROW(TextureVertexRecord, "texture vertex", 48),
    continued(FLTAPI_ROW(VertexListRecord, "vertex list record", 8)),
    named(FLTAPI_ROW(LodRecord, "LOD", 80), NameCounter::lod, "l"),
    FLTAPI_ROW(BoundingBoxRecord, "bounding box", 56),
    FLTAPI_ROW(RotateAboutEdgeRecord, "rotate-about-edge record", 64),
    FLTAPI_ROW(TranslateRecord, "translate record", 56),
    FLTAPI_ROW(ScaleRecord, "scale record", 48),
    FLTAPI_ROW(RotateAboutPointRecord, "rotate-about-point record", 48),
    FLTAPI_ROW(RotateScaleToPointRecord, "rotate-scale-to-point record", 96),
    FLTAPI_ROW(PutTransformRecord, "put-transform record", 152),
    FLTAPI_ROW(EyepointTrackplanePaletteRecord, "eyepoint-trackplane record", 4008),
    named(FLTAPI_ROW(MeshRecord, "mesh node", 84), NameCounter::mesh, "m"),
    continued(FLTAPI_ROW(LocalVertexPoolRecord, "local vertex pool record", 12)),
    continued(FLTAPI_ROW(MeshPrimitiveRecord, "mesh primitive", 16)),
    FLTAPI_ROW(RoadSegmentRecord, "road segment", 12),
    FLTAPI_ROW(RoadZoneRecord, "road zone", 176),
    continued(FLTAPI_ROW(MorphVertexListRecord, "morph vertex list record", 12)),
    FLTAPI_ROW(LinkagePaletteRecord, "linkage palette", 32),
    named(FLTAPI_ROW(SoundRecord, "sound node", 88), NameCounter::sound, "s"),
    named(FLTAPI_ROW(RoadPathRecord, "road path", 632), NameCounter::path, "pth"),
    FLTAPI_ROW(SoundPaletteRecord, "sound palette", 32),
    FLTAPI_ROW(GeneralMatrixRecord, "general matrix record", 68),
    named(FLTAPI_ROW(TextRecord, "text node", 320), NameCounter::text, "t"),
    named(FLTAPI_ROW(SwitchRecord, "switch", 32), NameCounter::switchNode, "sw"),
    FLTAPI_ROW(LineStylePaletteRecord, "line style palette", 12),
    named(FLTAPI_ROW(ClipRegionRecord, "clip region", 280), NameCounter::clip, "c"),
    continued(FLTAPI_ROW(ExtensionRecord, "extension", 24)),
    named(FLTAPI_ROW(LightSourceRecord, "light source", 64), NameCounter::lightSource, "ls"),
    FLTAPI_ROW(LightSourcePaletteRecord, "light source palette", 240),
    FLTAPI_ROW(BoundingSphereRecord, "bounding sphere", 16),
    FLTAPI_ROW(BoundingCylinderRecord, "bounding cylinder", 24),
    continued(FLTAPI_ROW(BoundingConvexHullRecord, "bounding convex hull", 80)),
    FLTAPI_ROW(BoundingVolumeCenterRecord, "bounding volume center", 32),
    FLTAPI_ROW(BoundingVolumeOrientationRecord, "bounding volume orientation", 32),
    named(FLTAPI_ROW(LightPointRecord, "light point", 156), NameCounter::lightPoint, "lp"),
    FLTAPI_ROW(TextureMappingPaletteRecord, "texture mapping palette", 168),
    FLTAPI_ROW(MaterialPaletteRecord, "material palette", 84),
    continued(FLTAPI_ROW(NameTableRecord, "name table", 20)),
    named(FLTAPI_ROW(CatRecord, "CAT node", 80), NameCounter::cat, "cat"),
    FLTAPI_ROW(CatDataRecord, "CAT data record", 32),
    FLTAPI_ROW(BoundingHistogramRecord, "bounding histogram", 8),
    FLTAPI_ROW(PushAttributeRecord, "push attribute record", 8),
    FLTAPI_ROW(PopAttributeRecord, "pop attribute record"),
    named(FLTAPI_ROW(CurveRecord, "curve node", 32), NameCounter::curve, "cv"),
    named(FLTAPI_ROW(RoadConstructionRecord, "road construction", 168), NameCounter::road, "R", ".0"),
    FLTAPI_ROW(LightPointAppearancePaletteRecord, "light point appearance palette", 412),
    FLTAPI_ROW(LightPointAnimationPaletteRecord, "light point animation palette", 1352),
    named(FLTAPI_ROW(IndexedLightPointRecord, "indexed light point", 28), NameCounter::lightPoint, "lp"),
    named(FLTAPI_ROW(LightPointSystemRecord, "light point system", 24), NameCounter::lightPointSystem, "lps"),
    FLTAPI_ROW(IndexedStringRecord, "indexed string", 12),
    FLTAPI_ROW(ShaderPaletteRecord, "shader palette", 1036),
};

constexpr OpcodeInfo reserved = {};
constexpr OpcodeInfo beyond = {.displayName = "<unknown type>"};

/// Row of each number from 0 to the last one.
constexpr auto positions = [] {
  std::array<const OpcodeInfo*, lastOpcode + 1> table{};
  table.fill(&reserved);
  for (const auto& info : rows)
    table[static_cast<std::size_t>(info.opcode)] = &info;
  return table;
}();

} // namespace

const OpcodeInfo& opcodeInfo(int opcode)
{
  return opcode >= 0 && opcode <= lastOpcode ? *positions[static_cast<std::size_t>(opcode)] : beyond;
}

std::uint32_t opcodeLength(int opcode)
{
  return opcodeInfo(opcode).length;
}

void fillDefaultContent(std::byte* buffer)
{
  const auto& info = opcodeInfo(recordOpcode(buffer));
  const auto length = recordLength(buffer);
  std::memset(buffer + recordHeadSize, 0, length - recordHeadSize);
  if (info.fields) fillDefaults(*info.fields, buffer, length);
}

Buffer defaultBuffer(int opcode)
{
  auto buffer = allocateBuffer(opcode, opcodeLength(opcode));
  if (buffer) fillDefaultContent(buffer.get());
  return buffer;
}

Record* makeRecord(Buffer buffer)
{
  const auto& info = opcodeInfo(recordOpcode(buffer.get()));
  return info.make ? info.make(std::move(buffer)) : construct<UnknownRecord>(std::move(buffer));
}

} // namespace fltapi
