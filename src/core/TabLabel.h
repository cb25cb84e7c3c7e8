#pragma once

#include <string>
#include <vector>

namespace nalt {

/// The label of a new tab for the document `name`: the name itself if no tab shows it, else with " <n>" behind it, one
/// above the highest number in use. A tab without a number counts as 1, a "*" for unsaved changes doesn't count.
std::string tabLabel(const std::string& name, const std::vector<std::string>& labelsInUse);

/// `label` with or without the one "*" of unsaved changes behind it.
std::string markedLabel(const std::string& label, bool dirty);

} // namespace nalt
