#pragma once

#include "fltapi/Record.h"
#include "fltapi/RecordVisitor.h"
#include "fltapi/io/Input.h"

namespace fltapi {

class VertexPaletteBreaker;

/// Turns a stream of raw records into record objects of a file, one after the other, for those who grow the tree.
///
/// A file that simply ends ends all open levels well. A file that is damaged inside a level, or that is nested too
/// deeply, fails the load; `failure()` says why.
class RecordReader {
public:
  /// @param vertices takes what stands behind the vertex palette
  RecordReader(Input& input, FltFile& file, VertexPaletteBreaker& vertices)
      : input_(input), file_(file), vertices_(vertices)
  {}

  /// The next record in host order; sections of extensions and attributes are left out. Null when there is none.
  osg::ref_ptr<Record> next();
  /// What was taken too much; the next call of next() gives it again.
  void giveBack(osg::ref_ptr<Record> record) { pending_ = std::move(record); }

  FltFile& file() const { return file_; }
  VertexPaletteBreaker& vertices() const { return vertices_; }
  int version() const { return input_.version(); }
  /// File bytes of the record that next() gave last.
  std::size_t lastLength() const { return lastLength_; }

  /// Why the load can't go on, empty while it can.
  const std::string& failure() const { return failure_; }
  bool fail(const std::string& why);
  /// False, with the failure set, when the stream turned out to be damaged.
  bool streamIsSound();

  /// One for each level of nodes.
  class Level {
  public:
    explicit Level(RecordReader& reader) : reader_(reader) { ++reader_.depth_; }
    Level(const Level&) = delete;
    Level& operator=(const Level&) = delete;
    ~Level() { --reader_.depth_; }
    bool tooDeep() const { return reader_.depth_ > deepestLevel; }

  private:
    RecordReader& reader_;
  };

  /// Whether `bytes` more memory may be used for what records are widened by. The limit grows with the file.
  bool mayWiden(std::uint64_t bytes);

private:
  osg::ref_ptr<Record> readOne();
  bool skipExtension();
  bool skipAttributes();

  Input& input_;
  FltFile& file_;
  VertexPaletteBreaker& vertices_;
  osg::ref_ptr<Record> pending_;
  std::string failure_;
  std::size_t lastLength_ = 0;
  std::uint64_t totalLength_ = 0;
  std::uint64_t widened_ = 0;
  bool versionKnown_ = false;
  int depth_ = 0;
};

} // namespace fltapi
