// make_model FILE.flt [--version NUMBER] [--count NUMBER] [--levels | --dof | --animated | --external PATH]: writes a
// model for tests that need one to look at.
//
// A cube of side 2 about the origin, red above and below, green in front and behind, blue to both sides; a count of
// them stands in a row along x. With levels the cubes are seen from up to 100 units, and beyond that one blue square.
// With a DOF they are below one; animated, each is an object of its own below an animated group; external, the model
// refers to another file instead.
#include "fltapi/AllRecords.h"
#include "fltapi/FltFile.h"

#include <array>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>

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

void addSide(FltFile& file, fltapi::PrimNodeRecord& parent, const Side& side, const osg::Vec3d& place, int number)
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
    vertex->set(fltapi::NormalVertexRecord::fields.position, corner + place);
    vertex->set(fltapi::NormalVertexRecord::fields.normal, normal);
    list->addVertex(vertex);
  }
}

void addCubes(FltFile& file, fltapi::PrimNodeRecord& parent, int count)
{
  auto* object = addNode<fltapi::ObjectRecord>(file, parent, "o1");
  int number = 0;
  for (int i = 0; i < count; ++i) {
    for (const Side& side : sides)
      addSide(file, *object, side, osg::Vec3d(3.0 * i, 0, 0), ++number);
  }
}

/// Below a group whose children take turns, one each second.
void addTurns(FltFile& file, fltapi::PrimNodeRecord& parent, int count)
{
  auto* group = addNode<fltapi::GroupRecord>(file, parent, "g2");
  group->set(fltapi::GroupRecord::fields.flags, 0x40000000U);
  group->set(fltapi::GroupRecord::fields.loopDuration, static_cast<float>(count));
  int number = 0;
  for (int i = 0; i < count; ++i) {
    auto* object = addNode<fltapi::ObjectRecord>(file, *group, ("o" + std::to_string(i + 1)).c_str());
    for (const Side& side : sides)
      addSide(file, *object, side, osg::Vec3d(3.0 * i, 0, 0), ++number);
  }
}

fltapi::LodRecord& addLevel(FltFile& file, fltapi::PrimNodeRecord& parent, const char* name, double from, double to)
{
  auto* level = addNode<fltapi::LodRecord>(file, parent, name);
  level->set(fltapi::LodRecord::fields.switchIn, to);
  level->set(fltapi::LodRecord::fields.switchOut, from);
  return *level;
}

} // namespace

int main(int argc, char** argv)
{
  std::string path;
  int version = fltapi::currentVersion;
  int count = 1;
  bool levels = false;
  bool dof = false;
  bool animated = false;
  std::string external;
  for (int i = 1; i < argc; ++i) {
    const std::string_view argument = argv[i];
    if (argument == "--version" && i + 1 < argc)
      version = std::atoi(argv[++i]);
    else if (argument == "--count" && i + 1 < argc)
      count = std::atoi(argv[++i]);
    else if (argument == "--levels")
      levels = true;
    else if (argument == "--dof")
      dof = true;
    else if (argument == "--animated")
      animated = true;
    else if (argument == "--external" && i + 1 < argc)
      external = argv[++i];
    else
      path = argument;
  }
  if (path.empty()) {
    std::fputs("usage: make_model FILE.flt [--version NUMBER] [--count NUMBER]\n"
               "       [--levels | --dof | --animated | --external PATH]\n",
               stderr);
    return 2;
  }
  const osg::ref_ptr<FltFile> file = new FltFile;
  file->initNew();
  auto* group = addNode<fltapi::GroupRecord>(*file, *file->header(), "g1");
  if (levels) {
    addCubes(*file, addLevel(*file, *group, "l1", 0, 100), count);
    auto* object = addNode<fltapi::ObjectRecord>(*file, addLevel(*file, *group, "l2", 100, 10000), "o2");
    addSide(*file, *object, {sides[0].corners, blue}, osg::Vec3d(), 1000);
  } else if (dof) {
    addCubes(*file, *addNode<fltapi::DofRecord>(*file, *group, "d1"), count);
  } else if (animated) {
    addTurns(*file, *group, count);
  } else if (!external.empty()) {
    auto* reference = file->create<fltapi::ExternalRecord>();
    reference->set(fltapi::ExternalRecord::fields.path, external);
    group->addChild(reference, /*append=*/true);
  } else {
    addCubes(*file, *group, count);
  }
  return file->save(path, version) ? 0 : 1;
}
