#include "fltapi/io/RecordReader.h"

#include "fltapi/FltFile.h"
#include "fltapi/OpcodeTable.h"
#include "fltapi/Opcodes.h"

#include <algorithm>

namespace fltapi {

osg::ref_ptr<Record> RecordReader::readOne()
{
  auto raw = input_.readRecord();
  if (!raw) return nullptr;
  osg::ref_ptr<Record> record = file_.createRecord(std::move(raw.buffer));
  // The header says itself of what version it is, unless it ends before.
  if (record->opcode() == opcodes::header && !std::exchange(versionKnown_, true)) {
    constexpr std::size_t formatRevision = 12;
    const bool saysIt = raw.length >= formatRevision + 4;
    const auto version = static_cast<std::int32_t>(bigEndian32(record->data() + formatRevision));
    input_.setVersion(saysIt ? std::max(0, version) : currentVersion);
  }
  record->takeFromFile({.fromFile = true, .version = input_.version(), .length = raw.length});
  lastLength_ = raw.length;
  totalLength_ += raw.length;
  file_.reportReading(input_.progress());
  return record;
}

osg::ref_ptr<Record> RecordReader::next()
{
  if (pending_) return std::exchange(pending_, nullptr);
  auto record = readOne();
  while (record) {
    if (record->opcode() == opcodes::pushExtension) {
      if (!skipExtension()) return nullptr;
    } else if (record->opcode() == opcodes::pushAttribute) {
      if (!skipAttributes()) return nullptr;
    } else {
      break;
    }
    record = readOne();
  }
  return record;
}

bool RecordReader::skipExtension()
{
  for (int open = 1; open > 0;) {
    const auto record = readOne();
    if (!record) return false;
    if (record->opcode() == opcodes::pushExtension) ++open;
    if (record->opcode() == opcodes::popExtension) --open;
  }
  return true;
}

bool RecordReader::skipAttributes()
{
  for (;;) {
    const auto record = readOne();
    if (!record) return false;
    if (record->opcode() == opcodes::popAttribute) return true;
  }
}

bool RecordReader::fail(const std::string& why)
{
  if (failure_.empty()) failure_ = why;
  return false;
}

bool RecordReader::streamIsSound()
{
  if (input_.damage().empty()) return true;
  return fail("The file is damaged at byte " + std::to_string(input_.lastRecordPosition()) + ": " + input_.damage() +
              ".");
}

bool RecordReader::mayWiden(std::uint64_t bytes)
{
  if (widened_ + bytes > wideningAllowance(totalLength_)) return false;
  widened_ += bytes;
  return true;
}

} // namespace fltapi
