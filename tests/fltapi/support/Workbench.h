#pragma once

#include "fltapi/AllRecords.h"
#include "fltapi/FltFile.h"
#include "tests/fltapi/support/FltBytes.h"
#include "tests/fltapi/support/FltListing.h"
#include "tests/fltapi/support/GeneratedFiles.h"
#include "tests/fltapi/support/RecordingHost.h"
#include "tests/support/TempFolder.h"

#include <gtest/gtest.h>

#include <string>

namespace nalt::tests {

/// Loads and saves files in a folder of its own, and hears what the database says meanwhile.
class Workbench {
public:
  Workbench() { host.externals = false; }

  std::string path(const std::string& name = "model.flt") const { return folder / name; }

  /// The loaded file, or null where the bytes don't load.
  osg::ref_ptr<fltapi::FltFile> tryToLoad(const std::string& bytes)
  {
    writeFile(path(), bytes);
    osg::ref_ptr<fltapi::FltFile> file = new fltapi::FltFile;
    return file->load(path()) ? file : nullptr;
  }
  /// The loaded file, or a failed test and an empty file.
  osg::ref_ptr<fltapi::FltFile> load(const std::string& bytes)
  {
    auto file = tryToLoad(bytes);
    if (file) return file;
    ADD_FAILURE() << "not loaded: " << testing::PrintToString(host.warnings) << testing::PrintToString(host.errors);
    file = new fltapi::FltFile;
    file->initNew();
    return file;
  }
  /// What a save writes.
  std::string save(const fltapi::FltFile& file, int version = fltapi::currentVersion) const
  {
    EXPECT_TRUE(file.save(path("saved.flt"), version)) << testing::PrintToString(host.errors);
    return readFile(path("saved.flt"));
  }
  /// What loading and saving makes of a file.
  std::string roundTrip(const std::string& bytes, int version = fltapi::currentVersion)
  {
    return save(*load(bytes), version);
  }

  RecordingHost host;
  TempFolder folder{memoryFolder()};
};

/// The first record below the header (instances left out) of that class, or a failed test and null.
template <class T>
T* first(fltapi::FltFile& file)
{
  const auto found = file.header()->findDescendants(T::code, /*followInstances=*/false);
  if (found.empty()) ADD_FAILURE() << "no record " << T::code;
  return found.empty() ? nullptr : static_cast<T*>(found.front());
}

/// The node of that name, or a failed test and null.
inline fltapi::PrimNodeRecord* named(fltapi::PrimNodeRecord& node, const std::string& name)
{
  if (node.getName() == name) return &node;
  for (auto* child : node.primaryChildren()) {
    if (auto* found = child->getName() == name ? child : nullptr) return found;
  }
  for (auto* child : node.primaryChildren()) {
    for (auto* below : child->findDescendants(std::vector{2, 4, 5, 96, 14, 73, 111, 130}, /*followInstances=*/false)) {
      if (below->getName() == name) return below->asNode();
    }
  }
  ADD_FAILURE() << "no node " << name;
  return nullptr;
}

/// Opcodes of a node's children in order.
inline std::vector<int> childOpcodes(const fltapi::PrimNodeRecord& node)
{
  std::vector<int> opcodes;
  for (const auto* child : node.children())
    opcodes.push_back(fltapi::opcodeOf(*child));
  return opcodes;
}

} // namespace nalt::tests
