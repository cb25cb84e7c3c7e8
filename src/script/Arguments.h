#pragma once

#include "core/ApiReference.h"

struct lua_State;

namespace nalt {

/// The arguments of one call of a function, seen through its row in the API reference.
class Arguments {
public:
  /// Looks at the call that the Lua function in progress was made with.
  Arguments(lua_State* lua, const ApiFunction& function);

  /// Raises a Lua error, as the row and Lua itself word it, unless every argument is what it must be. Optional ones
  /// count only as far as the call reaches.
  void check() const;

  /// Where an argument of that name stands in this call, 0 when the call doesn't reach so far.
  int position(std::string_view name) const;
  /// Null if neither the fixed arguments nor the chosen form have that name.
  const ApiArgument* find(std::string_view name) const;

  /// The form that the call has chosen, null if it is none or there are none.
  const ApiForm* form() const { return form_; }

  /// Position of the first argument of the groups, and of the one behind their last.
  int groupsBegin() const { return static_cast<int>(fixed_.size()) + 1; }
  int groupsEnd() const { return count_ - flags_ + 1; }
  /// Of the booleans behind the groups, the i-th from 0; false when the call doesn't reach so far.
  bool flag(int i) const;

private:
  void chooseForm();
  void checkCount() const;
  void checkList(std::span<const ApiArgument> list, int before) const;
  void checkOne(const ApiArgument& argument, int position) const;
  void checkGroups() const;
  void checkGroupMember(const ApiArgument& argument, int position) const;

  lua_State* lua_;
  const ApiFunction& function_;
  int count_;
  int flags_ = 0; ///< booleans behind the groups
  std::span<const ApiArgument> fixed_;
  const ApiForm* form_ = nullptr;
};

} // namespace nalt
