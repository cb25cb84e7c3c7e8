#pragma once

#include <unistd.h>

namespace nalt::tests {

/// The rights of a user without privileges until the end of the scope, where the tests are run by root, to whom nothing
/// is forbidden. Others stay who they are.
class OrdinaryUser {
public:
  OrdinaryUser()
  {
    if (!changed_) return;
    (void)!setegid(nobody);
    (void)!seteuid(nobody);
  }
  ~OrdinaryUser()
  {
    if (!changed_) return;
    (void)!seteuid(0);
    (void)!setegid(0);
  }
  OrdinaryUser(const OrdinaryUser&) = delete;
  OrdinaryUser& operator=(const OrdinaryUser&) = delete;

private:
  static constexpr unsigned nobody = 65534;
  const bool changed_ = geteuid() == 0;
};

} // namespace nalt::tests
