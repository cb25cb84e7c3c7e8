#pragma once

#include <string>

namespace nalt {

/// Where the lines go that repeat the user's edits while recording is on: the text of the script editor.
class ScriptRecorder {
public:
  virtual ~ScriptRecorder() = default;

  virtual bool recording() const = 0;
  /// Whether selections that the user makes by hand are recorded, too.
  virtual bool implicitSelections() const { return recording(); }
  virtual int lineCount() const = 0;
  virtual void appendComment(const std::string& text) = 0;
  virtual void appendScript(const std::string& text) = 0;
  /// Takes everything from that line on away.
  virtual void cutBackTo(int line) = 0;
};

} // namespace nalt
