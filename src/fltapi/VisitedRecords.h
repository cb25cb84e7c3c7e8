#pragma once

/// The record classes that visitors can tell apart, in the order of the overloads, each with the class whose overload
/// its own falls back to. The three under OWN don't fall back by themselves. Every other class goes straight to
/// apply(Record&).
#define FLTAPI_VISITED_RECORDS(VISITED, OWN)                                                                           \
  VISITED(GeneralMatrixRecord, Record)                                                                                 \
  VISITED(MatrixRecord, Record)                                                                                        \
  VISITED(ReplicateRecord, Record)                                                                                     \
  VISITED(CatDataRecord, Record)                                                                                       \
  VISITED(IndexedStringRecord, Record)                                                                                 \
  VISITED(OldVertexColorNormalRecord, PrimNodeRecord)                                                                  \
  VISITED(OldVertexColorRecord, PrimNodeRecord)                                                                        \
  VISITED(OldVertexRecord, PrimNodeRecord)                                                                             \
  VISITED(VectorRecord, Record)                                                                                        \
  VISITED(RoadZoneRecord, Record)                                                                                      \
  VISITED(UVListRecord, Record)                                                                                        \
  VISITED(MultiTextureRecord, Record)                                                                                  \
  VISITED(LongIDRecord, Record)                                                                                        \
  VISITED(CommentRecord, Record)                                                                                       \
  VISITED(BoundingVolumeOrientationRecord, Record)                                                                     \
  VISITED(BoundingVolumeCenterRecord, Record)                                                                          \
  VISITED(BoundingHistogramRecord, Record)                                                                             \
  VISITED(BoundingConvexHullRecord, Record)                                                                            \
  VISITED(BoundingCylinderRecord, Record)                                                                              \
  VISITED(BoundingSphereRecord, Record)                                                                                \
  VISITED(BoundingBoxRecord, Record)                                                                                   \
  OWN(InstanceDefinitionRecord, PrimNodeRecord)                                                                        \
  OWN(InstanceReferenceRecord, PrimNodeRecord)                                                                         \
  VISITED(CurveRecord, PrimNodeRecord)                                                                                 \
  VISITED(CatRecord, PrimNodeRecord)                                                                                   \
  VISITED(LightPointSystemRecord, PrimNodeRecord)                                                                      \
  VISITED(IndexedLightPointRecord, PrimNodeRecord)                                                                     \
  VISITED(TextRecord, PrimNodeRecord)                                                                                  \
  VISITED(ClipRegionRecord, PrimNodeRecord)                                                                            \
  VISITED(RoadPathRecord, PrimNodeRecord)                                                                              \
  VISITED(RoadConstructionRecord, PrimNodeRecord)                                                                      \
  VISITED(RoadSegmentRecord, PrimNodeRecord)                                                                           \
  VISITED(SoundRecord, PrimNodeRecord)                                                                                 \
  VISITED(BspRecord, PrimNodeRecord)                                                                                   \
  VISITED(MeshPrimitiveRecord, PrimNodeRecord)                                                                         \
  VISITED(LocalVertexPoolRecord, PrimNodeRecord)                                                                       \
  VISITED(MeshRecord, PrimNodeRecord)                                                                                  \
  OWN(ExternalRecord, PrimNodeRecord)                                                                                  \
  VISITED(ExtensionRecord, PrimNodeRecord)                                                                             \
  VISITED(SwitchRecord, PrimNodeRecord)                                                                                \
  VISITED(LightPointRecord, PrimNodeRecord)                                                                            \
  VISITED(LightSourceRecord, PrimNodeRecord)                                                                           \
  VISITED(MorphVertexListRecord, PrimNodeRecord)                                                                       \
  VISITED(VertexListRecord, PrimNodeRecord)                                                                            \
  VISITED(FaceRecord, PrimNodeRecord)                                                                                  \
  VISITED(ObjectRecord, PrimNodeRecord)                                                                                \
  VISITED(DofRecord, PrimNodeRecord)                                                                                   \
  VISITED(OldLodRecord, PrimNodeRecord)                                                                                \
  VISITED(LodRecord, PrimNodeRecord)                                                                                   \
  VISITED(GroupRecord, PrimNodeRecord)                                                                                 \
  VISITED(HeaderRecord, PrimNodeRecord)                                                                                \
  VISITED(ShaderPaletteRecord, Record)                                                                                 \
  VISITED(LinkagePaletteRecord, Record)                                                                                \
  VISITED(LineStylePaletteRecord, Record)                                                                              \
  VISITED(SoundPaletteRecord, Record)                                                                                  \
  VISITED(NameTableRecord, Record)                                                                                     \
  VISITED(LightPointAnimationPaletteRecord, Record)                                                                    \
  VISITED(LightPointAppearancePaletteRecord, Record)                                                                   \
  VISITED(NormalTextureVertexRecord, Record)                                                                           \
  VISITED(TextureVertexRecord, Record)                                                                                 \
  VISITED(NormalVertexRecord, Record)                                                                                  \
  VISITED(VertexRecord, Record)                                                                                        \
  VISITED(VertexPaletteRecord, Record)                                                                                 \
  VISITED(TexturePaletteRecord, Record)                                                                                \
  VISITED(LightSourcePaletteRecord, Record)                                                                            \
  VISITED(MaterialPaletteRecord, Record)                                                                               \
  VISITED(ColorPaletteRecord, Record)                                                                                  \
  VISITED(PrimNodeRecord, Record)
