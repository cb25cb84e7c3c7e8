#include "script/ApiDocuments.h"

#include <cstdio>
#include <fstream>

// Writes the documents that are made from the table of script functions into the folder it is given.

namespace {

bool write(const std::string& path, const std::string& text)
{
  std::ofstream file(path, std::ios::binary);
  file << text;
  file.close();
  if (!file) std::fprintf(stderr, "Can't write %s\n", path.c_str());
  return bool(file);
}

} // namespace

int main(int argc, char** argv)
{
  if (argc != 2) {
    std::fprintf(stderr, "Usage: %s FOLDER\n", argv[0]);
    return 2;
  }
  const std::string folder = argv[1];
  const bool good =
      write(folder + "/lua-api.md", nalt::apiManual()) && write(folder + "/nalt.d.lua", nalt::apiAnnotations());
  return good ? 0 : 1;
}
