#pragma once

#include "fltapi/VisitedRecords.h"

#include <set>

namespace fltapi {

class FltFile;
class Record;
#define FLTAPI_FORWARD(Class, Fallback) class Class;
FLTAPI_VISITED_RECORDS(FLTAPI_FORWARD, FLTAPI_FORWARD)
#undef FLTAPI_FORWARD

/// Levels of nodes below each other that a file may have. More than any model needs would exhaust the stack of whoever
/// walks the tree.
inline constexpr int deepestLevel = 1000;

/// How far a visitor goes by itself.
enum class TraversalMode : unsigned {
  none = 0,         ///< one record
  all = 1,          ///< the whole tree, through external references
  notExternals = 4, ///< the whole tree of one file
};

/// Double dispatch over the record classes. By default every node overload leads to apply(PrimNodeRecord&) and every
/// overload to apply(Record&), which goes on to the children. A class that overrides some overloads says
/// `using RecordVisitor::apply;` to keep the others in sight.
class RecordVisitor {
public:
  explicit RecordVisitor(TraversalMode mode = TraversalMode::all) : traversalMode(mode) {}
  RecordVisitor(const RecordVisitor&) = delete;
  RecordVisitor& operator=(const RecordVisitor&) = delete;
  virtual ~RecordVisitor() = default;

#define FLTAPI_APPLY(Class, Fallback) virtual void apply(Class&);
  FLTAPI_VISITED_RECORDS(FLTAPI_APPLY, FLTAPI_APPLY)
#undef FLTAPI_APPLY
  virtual void apply(Record&);

  /// When set, records are handed to this visitor instead of being traversed. Not owned.
  RecordVisitor* traversalVisitor = nullptr;
  TraversalMode traversalMode;
  /// Instance definitions that were entered.
  std::set<const InstanceDefinitionRecord*> visited;
  /// Whether a definition is entered for each of its references, and likewise a file that other shown files refer to:
  /// a short chain of files that each show the next one twice would keep a visitor busy for ever.
  bool revisit = false;

  /// One for each level that a visitor goes down. References to instances can nest levels without end where no file is
  /// deep by itself; a visitor that is this deep goes no further.
  class Level {
  public:
    explicit Level(RecordVisitor& visitor) : visitor_(visitor) { ++visitor_.depth_; }
    Level(const Level&) = delete;
    Level& operator=(const Level&) = delete;
    ~Level() { --visitor_.depth_; }
    bool tooDeep() const { return visitor_.depth_ > 2 * deepestLevel; }

  private:
    RecordVisitor& visitor_;
  };

private:
  /// Definitions that are being walked just now: one that leads back to itself isn't entered again.
  std::set<const InstanceDefinitionRecord*> entered_;
  std::set<const FltFile*> enteredFiles_; ///< through references that came in through one themselves
  int depth_ = 0;
};

} // namespace fltapi
