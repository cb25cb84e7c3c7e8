#pragma once

#include <string>
#include <vector>

namespace nalt::tests::flt {

struct NamedFile {
  std::string name; ///< says what is in it; good as a file name
  std::string bytes;
};

/// A record of the current length of its kind in which every byte differs from its neighbours, so that a number swapped
/// at the wrong place or width shows. Counts, masks and types are such that the record makes sense.
std::string sampleRecord(int opcode);

/// Sound files, each with something that is easy to get wrong.
std::vector<NamedFile> generatedFiles();
/// One of them by its name.
std::string generatedFile(const std::string& name);

} // namespace nalt::tests::flt
