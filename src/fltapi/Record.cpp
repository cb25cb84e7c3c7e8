#include "fltapi/Record.h"

#include "fltapi/FltFile.h"
#include "fltapi/OpcodeTable.h"
#include "fltapi/io/Output.h"

#include <atomic>

namespace fltapi {

namespace {

std::atomic<std::uint32_t> nextSerial{1};

} // namespace

Record::Record(Buffer data) : serial_(nextSerial.fetch_add(1, std::memory_order_relaxed)), data_(std::move(data)) {}

const char* Record::className() const
{
  return opcodeInfo(opcode()).className;
}

const char* Record::displayName() const
{
  return opcodeInfo(opcodeOf(*this)).displayName;
}

Record* Record::clone(FltFile* target) const
{
  if (!file_) return nullptr;
  auto copy = resizedCopy(data(), length());
  if (!copy) return nullptr;
  osg::ref_ptr<Record> record = makeRecord(std::move(copy));
  record->swapped_ = swapped_;
  record->file_ = target ? target : file_;
  return record.release();
}

bool Record::resize(std::size_t length)
{
  if (length == this->length()) return true;
  auto copy = resizedCopy(data(), length);
  if (!copy) return false;
  data_ = std::move(copy);
  return true;
}

const FieldTable& Record::fieldTable() const
{
  static constexpr FieldTable none;
  return none;
}

void Record::swapBytes()
{
  swapContent(data(), {.fromFile = swapped_, .version = currentVersion, .length = length()});
  swapped_ = !swapped_;
}

void Record::takeFromFile(const SwapScope& scope)
{
  swapContent(data(), scope);
  swapped_ = false;
}

void Record::swapContent(std::byte* content, const SwapScope& scope) const
{
  swapFields(fieldTable(), content, scope);
}

bool Record::equals(const Record& other) const
{
  return opcodeOf(*this) == opcodeOf(other) && length() == other.length() &&
         std::memcmp(data() + recordHeadSize, other.data() + recordHeadSize, length() - recordHeadSize) == 0;
}

const std::vector<PrimNodeRecord*>& Record::parents() const
{
  static const std::vector<PrimNodeRecord*> none;
  return none;
}

bool Record::write(Output& output) const
{
  return output.write(*this);
}

} // namespace fltapi
