// make_model FILE.flt [VERSION]: writes a cube of side 2 about the origin, red above and below, green in front and
// behind, blue to both sides, for tests that need a model to look at.
#include "fltapi/AllRecords.h"
#include "fltapi/FltFile.h"

#include <array>
#include <cstdio>
#include <cstdlib>

namespace {

using fltapi::FltFile;

struct Side {
  std::array<osg::Vec3d, 4> corners; ///< counter-clockwise, seen from outside
  fltapi::PackedColor color;         ///< alpha, blue, green, red
};

constexpr fltapi::PackedColor red = {255, 20, 20, 220};
constexpr fltapi::PackedColor green = {255, 20, 200, 20};
constexpr fltapi::PackedColor blue = {255, 230, 60, 20};

const Side sides[] = {
    {{{{-1, -1, 1}, {1, -1, 1}, {1, 1, 1}, {-1, 1, 1}}}, red},
    {{{{-1, 1, -1}, {1, 1, -1}, {1, -1, -1}, {-1, -1, -1}}}, red},
    {{{{-1, -1, -1}, {1, -1, -1}, {1, -1, 1}, {-1, -1, 1}}}, green},
    {{{{1, 1, -1}, {-1, 1, -1}, {-1, 1, 1}, {1, 1, 1}}}, green},
    {{{{1, -1, -1}, {1, 1, -1}, {1, 1, 1}, {1, -1, 1}}}, blue},
    {{{{-1, 1, -1}, {-1, -1, -1}, {-1, -1, 1}, {-1, 1, 1}}}, blue},
};

template <class T>
T* addNode(FltFile& file, fltapi::PrimNodeRecord& parent, const char* name)
{
  T* node = file.create<T>();
  parent.addChild(node, /*append=*/true);
  node->setName(name);
  return node;
}

void addSide(FltFile& file, fltapi::PrimNodeRecord& parent, const Side& side, int number)
{
  auto* face = addNode<fltapi::FaceRecord>(file, parent, ("p" + std::to_string(number)).c_str());
  face->set(fltapi::FaceRecord::fields.packedColor, side.color);
  face->set(fltapi::FaceRecord::fields.flags,
            fltapi::FaceRecord::packedColorFlag | fltapi::FaceRecord::noAlternateColorFlag);
  face->set(fltapi::FaceRecord::fields.lightMode, std::uint8_t{fltapi::FaceRecord::lit});
  osg::Vec3f normal = (side.corners[1] - side.corners[0]) ^ (side.corners[2] - side.corners[1]);
  normal.normalize();
  auto* list = file.create<fltapi::VertexListRecord>();
  face->addChild(list, /*append=*/true);
  for (const osg::Vec3d& corner : side.corners) {
    auto* vertex = file.create<fltapi::NormalVertexRecord>();
    vertex->set(fltapi::NormalVertexRecord::fields.position, corner);
    vertex->set(fltapi::NormalVertexRecord::fields.normal, normal);
    list->addVertex(vertex);
  }
}

} // namespace

int main(int argc, char** argv)
{
  if (argc < 2) {
    std::fputs("usage: make_model FILE.flt [VERSION]\n", stderr);
    return 2;
  }
  const osg::ref_ptr<FltFile> file = new FltFile;
  file->initNew();
  auto* group = addNode<fltapi::GroupRecord>(*file, *file->header(), "g1");
  auto* object = addNode<fltapi::ObjectRecord>(*file, *group, "o1");
  int number = 0;
  for (const Side& side : sides)
    addSide(*file, *object, side, ++number);
  const int version = argc > 2 ? std::atoi(argv[2]) : fltapi::currentVersion;
  return file->save(argv[1], version) ? 0 : 1;
}
