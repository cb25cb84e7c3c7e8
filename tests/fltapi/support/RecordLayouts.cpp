#include "tests/fltapi/support/RecordLayouts.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <bit>
#include <cstring>
#include <sstream>
#include <string_view>

namespace nalt::tests::flt {

namespace {

struct LayoutText {
  int opcode;
  std::size_t length;
  const char* className;
  const char* displayName;
  /// One line for each entry: offset, type, name, and where it isn't zero "= default"; "@ version" where only later
  /// files have it. Types: u8 i16 f64 ... with "*3" for several, ch8 for text, abgr for packed colors, raw8 for
  /// reserved bytes. "~" marks numbers that have no field of their own.
  const char* entries;
};

constexpr const char* faceEntries = R"(
 4 ch8 id
 12 i32 IR color code
 16 i16 relative priority
 18 u8 draw type
 19 u8 texture white
 20 u16 color name index
 22 u16 alternate color name index
 24 raw1
 25 u8 template
 26 i16 detail texture index = -1
 28 i16 texture index = -1
 30 i16 material index = -1
 32 i16 surface material code
 34 i16 feature ID
 36 i32 IR material code
 40 u16 transparency
 42 u8 LOD generation control
 43 u8 line style index
 44 u32 flags = 1610612736 @ 14
 48 u8 light mode
 49 raw7
 56 abgr packed primary color = 255 255 255 255
 60 abgr packed alternate color = 255 255 255 255
 64 i16 texture mapping index = -1 @ 1421
 66 raw2
 68 u32 primary color index @ 1421
 72 u32 alternate color index @ 1421
 76 raw2
 78 i16 shader index = -1
)";

constexpr const char* matrixEntries = R"(
 4 f32*3 x axis = 1 0 0
 16 f32 x weight
 20 f32*3 y axis = 0 1 0
 32 f32 y weight
 36 f32*3 z axis = 0 0 1
 48 f32 z weight
 52 f32*3 translation
 64 f32 weight = 1
)";

// The appearance record has the same entries 256 bytes later.
constexpr const char* lightAppearanceEntries = R"(
 12 i16 surface material code
 14 i16 feature ID
 16 u32 back color index = 127
 20 i32 display mode
 24 f32 intensity = 1
 28 f32 back intensity = 1
 32 f32 minimum defocus
 36 f32 maximum defocus = 1
 40 i32 fading mode = 1
 44 i32 fog punch mode = 1
 48 i32 directional mode
 52 i32 range mode
 56 f32 minimum pixel size = 0.25
 60 f32 maximum pixel size = 4
 64 f32 actual size = 0.25
 68 f32 transparent falloff pixel size = 0.25
 72 f32 transparent falloff exponent = 1
 76 f32 transparent falloff scalar = 1
 80 f32 transparent falloff clamp
 84 f32 fog scalar = 0.25
 88 f32 fog intensity
 92 f32 size difference threshold
 96 i32 directionality
 100 f32 horizontal lobe angle = 180
 104 f32 vertical lobe angle = 180
 108 f32 lobe roll angle
 112 f32 directional falloff exponent = 1
 116 f32 directional ambient intensity = 0.1
)";

constexpr std::array layoutTexts = {
    LayoutText{1, 324, "HeaderRecord", "header", R"(
 4 ch8 id
 12 i32 format revision = 1620
 16 i32 edit revision = 1
 20 ch32 date and time
 52 u16 next group number
 54 u16 next LOD number
 56 u16 next object number
 58 u16 next face number
 60 u16 unit multiplier = 1
 62 u8 vertex coordinate units
 63 u8 texture white
 64 u32 flags = 2147483648
 68 raw24
 92 i32 projection type
 96 raw28
 124 u16 next DOF number
 126 u16 vertex storage type = 1
 128 i32 database origin = 100
 132 f64 south-west x
 140 f64 south-west y
 148 f64 delta x
 156 f64 delta y
 164 u16 next sound number @ 13
 166 u16 next path number @ 13
 168 raw8
 176 u16 next clip number @ 13
 178 u16 next text number @ 13
 180 u16 next BSP number @ 13
 182 u16 next switch number @ 13
 184 raw4
 188 f64 south-west latitude @ 13
 196 f64 south-west longitude @ 13
 204 f64 north-east latitude @ 13
 212 f64 north-east longitude @ 13
 220 f64 origin latitude @ 13
 228 f64 origin longitude @ 13
 236 f64 Lambert upper latitude @ 13
 244 f64 Lambert lower latitude @ 13
 252 u16 next light source number @ 13
 254 u16 next light point number @ 1421
 256 u16 next road number @ 1421
 258 u16 next CAT number @ 1421
 260 raw8
 268 i32 earth ellipsoid model @ 1421
 272 u16 next adaptive number @ 1421
 274 u16 next curve number @ 1570
 276 i16 UTM zone @ 1570
 278 raw6
 284 f64 delta z @ 1570
 292 f64 radius @ 1570
 300 u16 next mesh number @ 1570
 302 u16 next light point system number @ 1570
 304 raw4
 308 f64 earth major axis @ 1580
 316 f64 earth minor axis @ 1580
)"},
    LayoutText{2, 44, "GroupRecord", "group", R"(
 4 ch8 id
 12 i16 relative priority
 14 raw2
 16 u32 flags
 20 i16 special effect 1
 22 i16 special effect 2
 24 i16 significance
 26 u8 layer code
 27 u8 LOD generation control
 28 raw4
 32 i32 loop count @ 1580
 36 f32 loop duration @ 1580
 40 f32 last frame duration @ 1580
)"},
    LayoutText{3, 40, "OldLodRecord", "LOD", R"(
 4 ch8 id
 12 raw28
)"},
    LayoutText{4, 28, "ObjectRecord", "object", R"(
 4 ch8 id
 12 u32 flags
 16 i16 relative priority
 18 u16 transparency
 20 i16 special effect 1
 22 i16 special effect 2
 24 i16 significance
 26 raw2
)"},
    LayoutText{5, 80, "FaceRecord", "polygon", faceEntries},
    LayoutText{7, 24, "OldVertexRecord", "vertex", R"(
 4 i32*3 position
 16 f32*2 uv
)"},
    LayoutText{8, 28, "OldVertexColorRecord", "vertex", R"(
 4 i32*3 position
 16 u8 edge flag
 17 u8 shading flag
 18 i16 color index
 20 f32*2 uv
)"},
    LayoutText{9, 40, "OldVertexColorNormalRecord", "vertex", R"(
 4 i32*3 position
 16 u8 edge flag
 17 u8 shading flag
 18 i16 color index
 20 i32*3 normal
 32 f32*2 uv
)"},
    LayoutText{10, 4, "PushLevelRecord", "push record", ""},
    LayoutText{11, 4, "PopLevelRecord", "pop record", ""},
    LayoutText{14, 384, "DofRecord", "DOF", R"(
 4 ch8 id
 12 raw4
 16 f64*3 origin
 40 f64*3 point on x axis = 1 0 0
 64 f64*3 point in xy plane = 1 1 0
 88 f64 minimum z
 96 f64 maximum z
 104 f64 current z
 112 f64 increment z
 120 f64 minimum y
 128 f64 maximum y
 136 f64 current y
 144 f64 increment y
 152 f64 minimum x
 160 f64 maximum x
 168 f64 current x
 176 f64 increment x
 184 f64 minimum pitch
 192 f64 maximum pitch
 200 f64 current pitch
 208 f64 increment pitch
 216 f64 minimum roll
 224 f64 maximum roll
 232 f64 current roll
 240 f64 increment roll
 248 f64 minimum yaw
 256 f64 maximum yaw
 264 f64 current yaw
 272 f64 increment yaw
 280 f64 minimum z scale
 288 f64 maximum z scale = 1
 296 f64 current z scale = 1
 304 f64 increment z scale
 312 f64 minimum y scale
 320 f64 maximum y scale = 1
 328 f64 current y scale = 1
 336 f64 increment y scale
 344 f64 minimum x scale
 352 f64 maximum x scale = 1
 360 f64 current x scale = 1
 368 f64 increment x scale
 376 i32 flags
 380 raw4
)"},
    LayoutText{19, 4, "PushSubfaceRecord", "push subface record", ""},
    LayoutText{20, 4, "PopSubfaceRecord", "pop subface record", ""},
    LayoutText{21, 24, "PushExtensionRecord", "push extension record", R"(
 4 raw18
 22 u16 vertex reference index
)"},
    LayoutText{22, 24, "PopExtensionRecord", "pop extension record", R"(
 4 raw18
 22 u16 vertex reference index
)"},
    LayoutText{23, 4, "ContinuationRecord", "continuation record", ""},
    LayoutText{31, 8, "CommentRecord", "comment", " 4 raw4\n"},
    LayoutText{32, 4228, "ColorPaletteRecord", "color palette", " 4 raw4224\n"},
    LayoutText{33, 8, "LongIDRecord", "long ID record", " 4 raw4\n"},
    LayoutText{49, 68, "MatrixRecord", "matrix record", matrixEntries},
    LayoutText{50, 16, "VectorRecord", "vector record", " 4 f32*3 direction\n"},
    LayoutText{52, 16, "MultiTextureRecord", "multi-texture record", R"(
 4 u32 layer mask = 2147483648
 8 ~u16*4 layer
)"},
    LayoutText{53, 24, "UVListRecord", "multi-texture UV list", R"(
 4 u32 layer mask
 8 ~f32*4 uv
)"},
    LayoutText{55, 48, "BspRecord", "BSP node", R"(
 4 ch8 id
 12 raw4
 16 f64*4 plane
)"},
    LayoutText{60, 8, "ReplicateRecord", "replicate record", R"(
 4 i16 replication count
 6 raw2
)"},
    LayoutText{61, 8, "InstanceReferenceRecord", "instance reference record", R"(
 4 raw2
 6 u16 instance number
)"},
    LayoutText{62, 8, "InstanceDefinitionRecord", "instance definition record", R"(
 4 raw2
 6 u16 instance number
)"},
    LayoutText{63, 216, "ExternalRecord", "external reference", R"(
 4 ch200 path
 204 raw4
 208 u32 flags @ 14
 212 i16 view as bounding box
 214 raw2
)"},
    LayoutText{64, 216, "TexturePaletteRecord", "texture palette", R"(
 4 ch200 file name
 204 i32 pattern index
 208 i32 x location
 212 i32 y location
)"},
    LayoutText{66, 11780, "OldMaterialPaletteRecord", "material palette", " 4 raw11776\n"},
    LayoutText{67, 8, "VertexPaletteRecord", "vertex palette", " 4 u32 palette length = 8\n"},
    LayoutText{68, 40, "VertexRecord", "vertex", R"(
 4 u16 color name index
 6 u16 flags = 8192
 8 f64*3 position
 32 abgr packed color = 255 255 255 255
 36 u32 color index @ 1421
)"},
    LayoutText{69, 56, "NormalVertexRecord", "normal vertex", R"(
 4 u16 color name index
 6 u16 flags = 8192
 8 f64*3 position
 32 f32*3 normal
 44 abgr packed color = 255 255 255 255
 48 u32 color index @ 1421
 52 raw4
)"},
    LayoutText{70, 64, "NormalTextureVertexRecord", "normal/texture vertex", R"(
 4 u16 color name index
 6 u16 flags = 8192
 8 f64*3 position
 32 f32*3 normal
 44 f32*2 uv
 52 abgr packed color = 255 255 255 255
 56 u32 color index @ 1421
 60 raw4
)"},
    LayoutText{71, 48, "TextureVertexRecord", "texture vertex", R"(
 4 u16 color name index
 6 u16 flags = 8192
 8 f64*3 position
 32 f32*2 uv
 40 abgr packed color = 255 255 255 255
 44 u32 color index @ 1421
)"},
    LayoutText{72, 8, "VertexListRecord", "vertex list record", " 4 i32 first offset = -1\n"},
    LayoutText{73, 80, "LodRecord", "LOD", R"(
 4 ch8 id
 12 raw4
 16 f64 switch-in distance = 10000000
 24 f64 switch-out distance
 32 i16 special effect 1
 34 i16 special effect 2
 36 i32 flags
 40 f64*3 center
 64 f64 transition range
 72 f64 significant size @ 1580
)"},
    LayoutText{74, 56, "BoundingBoxRecord", "bounding box", R"(
 4 raw4
 8 f64*3 minimum
 32 f64*3 maximum
)"},
    LayoutText{76, 64, "RotateAboutEdgeRecord", "rotate-about-edge record", R"(
 4 raw4
 8 f64*3 point 1
 32 f64*3 point 2
 56 f32 angle
 60 raw4
)"},
    LayoutText{78, 56, "TranslateRecord", "translate record", R"(
 4 raw4
 8 f64*3 from
 32 f64*3 delta
)"},
    LayoutText{79, 48, "ScaleRecord", "scale record", R"(
 4 raw4
 8 f64*3 center
 32 f32*3 scale = 1 1 1
 44 raw4
)"},
    LayoutText{80, 48, "RotateAboutPointRecord", "rotate-about-point record", R"(
 4 raw4
 8 f64*3 center
 32 f32*3 axis
 44 f32 angle
)"},
    LayoutText{81, 96, "RotateScaleToPointRecord", "rotate-scale-to-point record", R"(
 4 raw4
 8 f64*3 center
 32 f64*3 reference point
 56 f64*3 to point
 80 f32 overall scale
 84 f32 scale in direction
 88 f32 angle
 92 raw4
)"},
    LayoutText{82, 152, "PutTransformRecord", "put-transform record", R"(
 4 raw4
 8 f64*3 from origin
 32 f64*3 from align
 56 f64*3 from track
 80 f64*3 to origin
 104 f64*3 to align
 128 f64*3 to track
)"},
    LayoutText{83, 4008, "EyepointTrackplanePaletteRecord", "eyepoint-trackplane record", " 4 raw4004\n"},
    LayoutText{84, 84, "MeshRecord", "mesh node", faceEntries}, // shifted below
    LayoutText{85, 12, "LocalVertexPoolRecord", "local vertex pool record", R"(
 4 u32 vertex count = 1
 8 u32 attribute mask
)"},
    LayoutText{86, 16, "MeshPrimitiveRecord", "mesh primitive", R"(
 4 i16 primitive type
 6 i16 index size
 8 u32 vertex count
 12 raw4
)"},
    LayoutText{87, 12, "RoadSegmentRecord", "road segment", " 4 ch8 id\n"},
    LayoutText{88, 176, "RoadZoneRecord", "road zone", R"(
 4 ch120 zone file name
 124 raw4
 128 f64 lower left x
 136 f64 lower left y
 144 f64 upper right x
 152 f64 upper right y
 160 f64 grid interval
 168 i32 posts along x
 172 i32 posts along y
)"},
    LayoutText{89, 12, "MorphVertexListRecord", "morph vertex list record", " 4 ~u32*2 offsets\n"},
    LayoutText{90, 32, "LinkagePaletteRecord", "linkage palette", " 4 raw28\n"},
    LayoutText{91, 88, "SoundRecord", "sound node", R"(
 4 ch8 id
 12 raw4
 16 i32 palette index
 20 raw4
 24 f64*3 offset
 48 f32*3 direction
 60 f32 amplitude
 64 f32 pitch
 68 f32 priority
 72 f32 falloff
 76 f32 width
 80 u32 flags
 84 raw4
)"},
    LayoutText{92, 632, "RoadPathRecord", "road path", R"(
 4 ch8 id
 12 raw4
 16 ch120 path name
 136 f64 speed limit
 144 i32 no passing
 148 i32 vertex normal type
 152 raw480
)"},
    LayoutText{93, 32, "SoundPaletteRecord", "sound palette", " 4 raw28\n"},
    LayoutText{94, 68, "GeneralMatrixRecord", "general matrix record", matrixEntries},
    LayoutText{95, 320, "TextRecord", "text node", R"(
 4 ch8 id
 12 raw8
 20 i32 type
 24 i32 draw type
 28 i32 justification
 32 f64 float value
 40 i32 integer value
 44 raw20
 64 u32 flags
 68 i32 color
 72 i32 second color
 76 i32 material
 80 raw4
 84 i32 maximum number of lines
 88 i32 maximum number of characters
 92 i32 current text length
 96 i32 next free line
 100 i32 line at top
 104 i32 low integer value
 108 i32 high integer value
 112 f64 low float value
 120 f64 high float value
 128 f64*3 lower left corner
 152 f64*3 upper right corner
 176 ch120 font name
 296 i32 vertical
 300 i32 italic
 304 i32 bold
 308 i32 underline
 312 i32 line style
 316 raw4
)"},
    LayoutText{96, 32, "SwitchRecord", "switch", R"(
 4 ch8 id
 12 raw4
 16 i32 current mask = -1
 20 i32 number of masks = 1
 24 i32 words per mask = 1
 28 u32 first mask word = 4294967295
)"},
    LayoutText{97, 12, "LineStylePaletteRecord", "line style palette", R"(
 4 i16 index
 6 u16 pattern mask = 65535
 8 i32 line width
)"},
    LayoutText{98, 280, "ClipRegionRecord", "clip region", R"(
 4 ch8 id
 12 raw4
 16 raw2
 18 u8*5 plane enabled
 23 raw1
 24 f64*3 point 1
 48 f64*3 point 2
 72 f64*3 point 3
 96 f64*3 point 4
 120 f64*20 plane coefficients
)"},
    LayoutText{100, 24, "ExtensionRecord", "extension", R"(
 4 ch8 id
 12 ch8 site ID
 20 raw1
 21 i8 revision
 22 u16 record code
)"},
    LayoutText{101, 64, "LightSourceRecord", "light source", R"(
 4 ch8 id
 12 raw4
 16 i32 palette index
 20 raw4
 24 i32 flags
 28 raw4
 32 f64*3 position
 56 f32 yaw
 60 f32 pitch
)"},
    LayoutText{102, 240, "LightSourcePaletteRecord", "light source palette", R"(
 4 i32 index
 8 raw8
 16 ch20 name
 36 raw4
 40 f32*4 ambient
 56 f32*4 diffuse
 72 f32*4 specular
 88 i32 type
 92 raw40
 132 f32 spot exponent
 136 f32 spot cutoff
 140 f32 yaw
 144 f32 pitch
 148 f32 constant attenuation
 152 f32 linear attenuation
 156 f32 quadratic attenuation
 160 i32 modeling flag
 164 raw76
)"},
    LayoutText{105, 16, "BoundingSphereRecord", "bounding sphere", R"(
 4 raw4
 8 f64 radius
)"},
    LayoutText{106, 24, "BoundingCylinderRecord", "bounding cylinder", R"(
 4 raw4
 8 f64 radius
 16 f64 height
)"},
    LayoutText{107, 80, "BoundingConvexHullRecord", "bounding convex hull", R"(
 4 i32 number of triangles
 8 ~f64*9 corners
)"},
    LayoutText{108, 32, "BoundingVolumeCenterRecord", "bounding volume center", R"(
 4 raw4
 8 f64*3 center
)"},
    LayoutText{109, 32, "BoundingVolumeOrientationRecord", "bounding volume orientation", R"(
 4 raw4
 8 f64 yaw
 16 f64 pitch
 24 f64 roll
)"},
    LayoutText{111, 156, "LightPointRecord", "light point", lightAppearanceEntries}, // completed below
    LayoutText{112, 168, "TextureMappingPaletteRecord", "texture mapping palette", R"(
 4 raw4
 8 i32 index
 12 ch20 name
 32 i32 type
 36 i32 warped
 40 f64*16 transformation matrix
)"},
    LayoutText{113, 84, "MaterialPaletteRecord", "material palette", R"(
 4 i32 material index = -1
 8 ch12 name
 20 u32 flags
 24 f32*3 ambient = 0.5 0.5 0.5
 36 f32*3 diffuse = 0.5 0.5 0.5
 48 f32*3 specular = 0.5 0.5 0.5
 60 f32*3 emissive
 72 f32 shininess = 10
 76 f32 alpha = 1
 80 raw4
)"},
    LayoutText{114, 20, "NameTableRecord", "name table", R"(
 4 i32 number of names
 8 u16 next index
 10 raw10
)"},
    LayoutText{115, 80, "CatRecord", "CAT node", R"(
 4 ch8 id
 12 raw4
 16 i32 IR color code
 20 i8 draw type
 21 i8 texture white
 22 raw2
 24 u16 color name index
 26 u16 alternate color name index
 28 i16 detail texture index = -1
 30 i16 texture index = -1
 32 i16 material index = -1
 34 i16 surface material code
 36 i32 IR material code
 40 raw8
 48 i16 texture mapping index = -1
 50 raw2
 52 u32 primary color index
 56 u32 alternate color index
 60 raw4
 64 f64 reserved
 72 u32 flags
 76 raw4
)"},
    LayoutText{116, 32, "CatDataRecord", "CAT data record", " 4 raw28\n"},
    LayoutText{119, 8, "BoundingHistogramRecord", "bounding histogram", " 4 raw4\n"},
    LayoutText{122, 8, "PushAttributeRecord", "push attribute record", " 4 i32 vertex reference index\n"},
    LayoutText{123, 4, "PopAttributeRecord", "pop attribute record", ""},
    LayoutText{126, 32, "CurveRecord", "curve node", R"(
 4 ch8 id
 12 raw4
 16 i32 curve type
 20 i32 number of control points
 24 raw8
)"},
    LayoutText{127, 168, "RoadConstructionRecord", "road construction", R"(
 4 ch8 id
 12 raw4
 16 i32 road type
 20 i32 road tools version
 24 f64*3 entry control point
 48 f64*3 alignment control point
 72 f64*3 exit control point
 96 f64 arc radius
 104 f64 entry spiral length
 112 f64 exit spiral length
 120 f64 superelevation
 128 i32 spiral type
 132 i32 additional vertical parabola
 136 f64 vertical curve length
 144 f64 minimum curve length
 152 f64 entry slope
 160 f64 exit slope
)"},
    LayoutText{128, 412, "LightPointAppearancePaletteRecord", "light point appearance palette",
               lightAppearanceEntries}, // completed below
    LayoutText{129, 1352, "LightPointAnimationPaletteRecord", "light point animation palette", R"(
 4 raw4
 8 ch256 name
 264 i32 index
 268 f32 period = 5
 272 f32 phase delay
 276 f32 enabled period = 5
 280 f32*3 axis of rotation = 0 0 1
 292 u32 flags
 296 i32 animation type
 300 i32 Morse timing
 304 i32 word rate
 308 i32 character rate
 312 ch1024 Morse string
 1336 i32 sequence length
 1340 ~u32*3 sequence
)"},
    LayoutText{130, 28, "IndexedLightPointRecord", "indexed light point", R"(
 4 ch8 id
 12 i32 appearance index
 16 i32 animation index = -1
 20 u32 draw order
 24 raw4
)"},
    LayoutText{131, 24, "LightPointSystemRecord", "light point system", R"(
 4 ch8 id
 12 f32 intensity = 1
 16 i32 animation state
 20 i32 flags
)"},
    LayoutText{132, 12, "IndexedStringRecord", "indexed string", R"(
 4 u32 index
 8 raw4
)"},
    LayoutText{133, 1036, "ShaderPaletteRecord", "shader palette", R"(
 4 i32 index
 8 i32 type
 12 ch1024 name
)"},
};

// ---- from text to layout
// ---------------------------------------------------------------------------------------------

void setType(LayoutEntry& entry, const std::string& type)
{
  const auto digits = type.find_first_of("0123456789");
  const auto family = type.substr(0, digits);
  const auto number = digits == std::string::npos ? 0 : std::stoul(type.substr(digits));
  if (const auto star = type.find('*'); star != std::string::npos) entry.count = std::stoul(type.substr(star + 1));
  if (family == "ch" || family == "raw") {
    entry.kind = family == "ch" ? 'c' : 'x';
    entry.count = number;
  } else if (family == "abgr") {
    entry.kind = 'b';
    entry.count = 4;
  } else {
    entry.kind = family.front();
    entry.width = number / 8;
  }
}

LayoutEntry parsed(const std::string& line)
{
  LayoutEntry entry;
  std::istringstream words(line);
  std::string type, word;
  words >> entry.offset >> type;
  entry.anonymous = type.starts_with('~');
  setType(entry, type.substr(entry.anonymous ? 1 : 0));
  char part = 'n';
  while (words >> word) {
    if (word == "=" || word == "@") {
      part = word.front();
    } else if (part == '=') {
      entry.initial.push_back(std::stod(word));
    } else if (part == '@') {
      entry.since = std::stoi(word);
    } else {
      entry.name += (entry.name.empty() ? "" : " ") + word;
    }
  }
  return entry;
}

std::vector<LayoutEntry> parsedLines(const std::string& text)
{
  std::vector<LayoutEntry> entries;
  std::istringstream lines(text);
  for (std::string line; std::getline(lines, line);) {
    if (line.find_first_not_of(' ') != std::string::npos) entries.push_back(parsed(line));
  }
  return entries;
}

void shift(std::vector<LayoutEntry>& entries, std::size_t from, std::size_t by)
{
  for (auto& entry : entries)
    entry.offset += entry.offset >= from ? by : 0;
}

std::vector<LayoutEntry> joined(const char* front, std::vector<LayoutEntry> middle, const char* back)
{
  auto entries = parsedLines(front);
  entries.insert(entries.end(), middle.begin(), middle.end());
  const auto rest = parsedLines(back);
  entries.insert(entries.end(), rest.begin(), rest.end());
  return entries;
}

RecordLayout layoutFrom(const LayoutText& text)
{
  RecordLayout layout{text.opcode, text.length, text.className, text.displayName, parsedLines(text.entries)};
  constexpr int mesh = 84;
  constexpr int lightPoint = 111;
  constexpr int appearance = 128;
  if (layout.opcode == mesh) {
    // A mesh has the fields of a face behind four reserved bytes.
    shift(layout.entries, 12, 4);
    layout.entries.insert(layout.entries.begin() + 1, parsed("12 raw4"));
  } else if (layout.opcode == lightPoint) {
    layout.entries = joined(" 4 ch8 id\n", layout.entries, R"(
 120 f32 animation period = 5
 124 f32 animation phase delay
 128 f32 animation enabled period = 5
 132 f32 significance
 136 i32 calligraphic draw order
 140 u32 flags = 1509998592
 144 f32*3 axis of rotation = 0 0 1
)");
  } else if (layout.opcode == appearance) {
    shift(layout.entries, 0, 256);
    layout.entries = joined(R"(
 4 raw4
 8 ch256 name
 264 i32 index
)",
                            layout.entries, R"(
 376 f32 significance
 380 u32 flags
 384 f32 visibility range
 388 f32 fade range ratio
 392 f32 fade-in duration
 396 f32 fade-out duration
 400 f32 LOD range ratio
 404 f32 LOD scale
 408 i16 texture index = -1 @ 1600
 410 raw2
)");
  }
  return layout;
}

void checkNoGaps(const RecordLayout& layout)
{
  std::size_t at = 4;
  for (const auto& entry : layout.entries) {
    EXPECT_EQ(entry.offset, at) << layout.className << ", " << entry.name;
    at = entry.end();
  }
  EXPECT_EQ(at, layout.length) << layout.className;
}

void storeNumber(char* to, const LayoutEntry& entry, double value)
{
  std::uint64_t bits = 0;
  if (entry.kind == 'f') {
    bits = entry.width == 8 ? std::bit_cast<std::uint64_t>(value)
                            : std::bit_cast<std::uint32_t>(static_cast<float>(value));
  } else {
    bits = static_cast<std::uint64_t>(static_cast<std::int64_t>(value));
  }
  std::memcpy(to, &bits, entry.width);
}

} // namespace

const std::vector<RecordLayout>& recordLayouts()
{
  static const auto layouts = [] {
    std::vector<RecordLayout> list;
    for (const auto& text : layoutTexts) {
      list.push_back(layoutFrom(text));
      checkNoGaps(list.back());
    }
    return list;
  }();
  return layouts;
}

const RecordLayout& layoutOf(int opcode)
{
  static const RecordLayout none;
  const auto found = std::ranges::find(recordLayouts(), opcode, &RecordLayout::opcode);
  return found == recordLayouts().end() ? none : *found;
}

std::string defaultContent(const RecordLayout& layout)
{
  std::string content(layout.length, '\0');
  for (const auto& entry : layout.entries) {
    for (std::size_t i = 0; i < std::min(entry.initial.size(), entry.count); ++i) {
      storeNumber(content.data() + entry.offset + i * entry.width, entry, entry.initial[i]);
    }
  }
  return content;
}

std::string inHostOrder(const RecordLayout& layout, std::string file, int version)
{
  for (const auto& entry : layout.entries) {
    if (version < entry.since || entry.kind == 'x') continue;
    for (std::size_t i = 0; i < entry.count; ++i) {
      const auto start = entry.offset + i * entry.width;
      if (start + entry.width > file.size()) break;
      std::reverse(file.begin() + static_cast<std::ptrdiff_t>(start),
                   file.begin() + static_cast<std::ptrdiff_t>(start + entry.width));
    }
  }
  return file;
}

} // namespace nalt::tests::flt
