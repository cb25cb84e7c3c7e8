#pragma once

#include "fltapi/io/Input.h"
#include "fltapi/io/VertexOffsetMap.h"

#include <cstdio>
#include <vector>

namespace fltapi {

/// Records from a file on disk. Every length is compared with what is left of the file before anything is allocated.
class FileInput : public Input {
public:
  explicit FileInput(const std::string& path);
  ~FileInput() override;

  bool isOpen() const { return file_ != nullptr; }

  RawRecord readRecord() override;
  bool atEnd() const override { return !file_ || endOfFile_; }
  bool unread() override;
  std::uint64_t lastRecordPosition() const override { return recordStart_; }
  double progress() const override;

private:
  struct Head {
    int opcode = 0;
    std::size_t length = 0;
  };

  bool readHeader(Head& head);
  bool readBody(std::byte* to, std::size_t count);
  RawRecord allocate(const Head& head);
  RawRecord joinContinuations(RawRecord first, const Head& head);
  bool nextIsContinuation();
  void trackVertices(const Head& head);
  void repairVertexList(RawRecord& record) const;
  static void repairLongFace(RawRecord& record, const Head& head);

  // A block of the file: one read for many records.
  bool fill(std::size_t wanted);
  std::size_t available() const { return block_.size() - cursor_; }
  std::uint64_t position() const { return blockStart_ + cursor_; }
  std::uint64_t remaining() const { return fileSize_ > position() ? fileSize_ - position() : 0; }

  std::FILE* file_ = nullptr;
  bool endOfFile_ = true;
  std::uint64_t recordStart_ = 0;
  std::uint64_t fileSize_ = 0;
  std::uint64_t widened_ = 0; ///< memory that records shorter than their kind took beyond what the file held
  std::vector<std::byte> block_;
  std::size_t cursor_ = 0;
  std::uint64_t blockStart_ = 0;
  VertexOffsetMap offsetMap_;
};

} // namespace fltapi
