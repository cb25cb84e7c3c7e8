#pragma once

#include "core/Command.h"

#include <memory>
#include <vector>

namespace nalt {

/// A named value that a macro gets as a Lua global. Only the member that the type selects counts.
struct MacroParameter {
  enum class Type { string = 0, boolean = 1, number = 2, file = 3, folder = 4 };

  std::string name;
  Type type = Type::string;
  std::string stringValue;
  bool booleanValue = false;
  double numberValue = 0;
  std::string fileValue;
  std::string folderValue;
};

/// All edits of one run of a macro as a single step.
class MacroCommand : public Command {
public:
  MacroCommand(const std::string& path, std::vector<MacroParameter> parameters);

  void append(std::unique_ptr<Command> command) { children_.push_back(std::move(command)); }
  const std::vector<std::unique_ptr<Command>>& children() const { return children_; }

  void undo() override;
  void redo() override;
  void replaceRecord(fltapi::Record& oldRecord, fltapi::Record& newRecord) override;
  std::string scriptText() const override;
  std::string commentText() const override;

private:
  std::string path_;
  std::vector<MacroParameter> parameters_;
  std::vector<std::unique_ptr<Command>> children_;
};

} // namespace nalt
