#pragma once

#include <string>
#include <vector>

namespace nalt::tests {

/// The folder with real models, from the environment variable NALT_TEST_DATA or beside the repository; empty when there
/// is none. It isn't part of the repository.
std::string sampleFolder();
/// Every OpenFlight file below that folder, in order.
std::vector<std::string> sampleFiles();
/// The sample whose path ends with `ending`; empty when there is none.
std::string sampleFile(const std::string& ending);

} // namespace nalt::tests
