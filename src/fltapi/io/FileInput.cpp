#include "fltapi/io/FileInput.h"

#include "fltapi/Bytes.h"
#include "fltapi/OpcodeTable.h"
#include "fltapi/Opcodes.h"

#include <algorithm>
#include <filesystem>
#include <iostream>

namespace fltapi {

namespace {

constexpr std::size_t blockSize = std::size_t{1} << 20;

/// About what a record object takes beside its buffer.
constexpr std::uint64_t objectSize = 128;

bool isVertex(int opcode)
{
  return opcode >= opcodes::vertex && opcode <= opcodes::textureVertex;
}

} // namespace

FileInput::FileInput(const std::string& path)
{
  std::error_code error;
  fileSize_ = std::filesystem::file_size(path, error);
  if (error) return;
  file_ = std::fopen(path.c_str(), "rb");
  if (!file_) return;
  std::setvbuf(file_, nullptr, _IONBF, 0);
  endOfFile_ = false;
}

FileInput::~FileInput()
{
  if (file_) std::fclose(file_);
}

double FileInput::progress() const
{
  return fileSize_ ? static_cast<double>(position()) / static_cast<double>(fileSize_) : 1.0;
}

bool FileInput::fill(std::size_t wanted)
{
  if (available() >= wanted) return true;
  // What is left of the block moves to its front; the rest of the block is read behind it.
  block_.erase(block_.begin(), block_.begin() + static_cast<std::ptrdiff_t>(cursor_));
  blockStart_ += cursor_;
  cursor_ = 0;
  const auto kept = block_.size();
  block_.resize(std::max(blockSize, wanted));
  const auto got = std::fread(block_.data() + kept, 1, block_.size() - kept, file_);
  block_.resize(kept + got);
  return available() >= wanted;
}

bool FileInput::readHeader(Head& head)
{
  recordStart_ = position();
  if (!file_ || !fill(recordHeadSize)) {
    if (file_ && available() != 0) setDamage("the file ends inside a record");
    endOfFile_ = true;
    return false;
  }
  head.opcode = bigEndian16(block_.data() + cursor_);
  head.length = bigEndian16(block_.data() + cursor_ + 2);
  cursor_ += recordHeadSize;
  if (head.length < recordHeadSize) {
    setDamage("record length " + std::to_string(head.length) + " is below " + std::to_string(recordHeadSize));
    endOfFile_ = true;
    return false;
  }
  return true;
}

bool FileInput::readBody(std::byte* to, std::size_t count)
{
  const auto inBlock = std::min(count, available());
  std::memcpy(to, block_.data() + cursor_, inBlock);
  cursor_ += inBlock;
  count -= inBlock;
  if (count == 0) return true;
  if (!fill(count)) {
    setDamage("the file ends inside a record");
    endOfFile_ = true;
    return false;
  }
  std::memcpy(to + inBlock, block_.data() + cursor_, count);
  cursor_ += count;
  return true;
}

Input::RawRecord FileInput::allocate(const Head& head)
{
  if (head.length - recordHeadSize > remaining()) {
    setDamage("record length " + std::to_string(head.length) + " reaches behind the end of the file");
    endOfFile_ = true;
    return {};
  }
  const auto size = std::max<std::size_t>(head.length, opcodeLength(head.opcode));
  if (size > head.length) widened_ += size - head.length + objectSize;
  if (widened_ > wideningAllowance(fileSize_)) {
    setDamage("too many records are shorter than their kind");
    endOfFile_ = true;
    return {};
  }
  auto buffer = allocateBuffer(head.opcode, size);
  if (buffer && size > head.length) fillDefaultContent(buffer.get());
  return {std::move(buffer), head.length};
}

Input::RawRecord FileInput::readRecord()
{
  Head head;
  if (atEnd() || !readHeader(head)) return {};
  auto record = allocate(head);
  if (!record) return {};
  if (version() < 1580) trackVertices(head);
  if (head.length > recordHeadSize && !readBody(record.buffer.get() + recordHeadSize, head.length - recordHeadSize)) {
    return {};
  }
  if (opcodeInfo(head.opcode).continues && nextIsContinuation()) {
    record = joinContinuations(std::move(record), head);
    if (!record) return {};
  }
  if (head.opcode == opcodes::vertexList && version() < 1580) repairVertexList(record);
  if (head.opcode == opcodes::face && version() >= 1600) repairLongFace(record, head);
  return record;
}

bool FileInput::nextIsContinuation()
{
  return fill(recordHeadSize) && bigEndian16(block_.data() + cursor_) == opcodes::continuation;
}

Input::RawRecord FileInput::joinContinuations(RawRecord first, const Head& head)
{
  const auto start = recordStart_;
  std::vector<std::byte> content(first.buffer.get() + recordHeadSize, first.buffer.get() + head.length);
  while (nextIsContinuation()) {
    Head piece;
    if (!readHeader(piece)) return {};
    const auto bytes = piece.length - recordHeadSize;
    if (bytes > remaining()) {
      setDamage("record length " + std::to_string(piece.length) + " reaches behind the end of the file");
      endOfFile_ = true;
      return {};
    }
    const auto old = content.size();
    content.resize(old + bytes);
    if (!readBody(content.data() + old, bytes)) return {};
  }
  recordStart_ = start;
  const auto length = recordHeadSize + content.size();
  RawRecord joined{allocateBuffer(head.opcode, std::max<std::size_t>(length, opcodeLength(head.opcode))), length};
  if (!joined) return {};
  if (recordLength(joined.buffer.get()) > length) fillDefaultContent(joined.buffer.get());
  std::memcpy(joined.buffer.get() + recordHeadSize, content.data(), content.size());
  return joined;
}

bool FileInput::unread()
{
  if (!file_ || recordStart_ < blockStart_) {
    if (!file_ || std::fseek(file_, static_cast<long>(recordStart_), SEEK_SET) != 0) return false;
    block_.clear();
    cursor_ = 0;
    blockStart_ = recordStart_;
  } else {
    cursor_ = recordStart_ - blockStart_;
  }
  endOfFile_ = false;
  return true;
}

void FileInput::trackVertices(const Head& head)
{
  if (head.opcode == opcodes::vertexPalette) {
    offsetMap_.startPalette(recordStart_);
  } else if (isVertex(head.opcode)) {
    const auto current = opcodeLength(head.opcode);
    offsetMap_.addVertex(recordStart_, current > head.length ? static_cast<std::uint32_t>(current - head.length) : 0);
  }
}

void FileInput::repairVertexList(RawRecord& record) const
{
  auto* bytes = record.buffer.get();
  for (std::size_t at = recordHeadSize; at + 4 <= record.length; at += 4) {
    const auto offset = bigEndian32(bytes + at);
    std::uint32_t current = 0;
    if (offsetMap_.find(offset, current)) {
      storeAt(bytes + at, __builtin_bswap32(current));
    } else {
      std::cerr << "Failed to find offset in map: " << offset << '\n';
    }
  }
}

/// Some files of version 16.0 hold faces of 84 bytes in which the shader index has slid by two.
void FileInput::repairLongFace(RawRecord& record, const Head& head)
{
  constexpr std::size_t mistakenLength = 84;
  constexpr std::size_t shaderIndex = 78;
  constexpr std::size_t slidShaderIndex = 80;
  if (head.length != mistakenLength) return;
  const auto length = opcodeLength(opcodes::face);
  std::memcpy(record.buffer.get() + shaderIndex, record.buffer.get() + slidShaderIndex, 2);
  record.buffer = resizedCopy(record.buffer.get(), length);
  record.length = length;
}

} // namespace fltapi
