#include "platform/Process.h"

#include <spawn.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace nalt {

bool startProgram(const std::vector<std::string>& arguments)
{
  if (arguments.empty()) return false;
  std::vector<char*> pointers;
  for (const std::string& argument : arguments)
    pointers.push_back(const_cast<char*>(argument.c_str())); // not written to; the interface is older than const
  pointers.push_back(nullptr);
  pid_t pid = 0;
  if (posix_spawnp(&pid, pointers[0], nullptr, nullptr, pointers.data(), environ) != 0) return false;
  // Somebody has to take note of its end, or the system keeps it.
  std::thread([pid] { waitpid(pid, nullptr, 0); }).detach();
  return true;
}

} // namespace nalt
