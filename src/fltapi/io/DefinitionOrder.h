#pragma once

#include <vector>

namespace fltapi {

class FltFile;

/// A definition is written right before the first reference to it, and so inside the definition that holds that
/// reference. Where this would nest levels more deeply than a reader takes, these are the numbers of all definitions,
/// those that others refer to first, to be written side by side in front of everything else. Nearly always there are
/// none.
std::vector<int> definitionsToWriteFirst(const FltFile& file);

} // namespace fltapi
