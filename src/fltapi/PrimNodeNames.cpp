#include "fltapi/AllRecords.h"
#include "fltapi/FltFile.h"

// Names and comments of nodes: the short ID in the record itself, the long ones in records beside it.

namespace fltapi {

namespace {

constexpr std::size_t longestShortName = 7;
constexpr std::uint32_t largestNameNumber = 0x7fffffff;

} // namespace

std::string PrimNodeRecord::longId() const
{
  const auto* record = findChild<LongIDRecord>();
  return record ? record->text() : std::string{};
}

std::string PrimNodeRecord::getName() const
{
  if (!hasId()) return {};
  auto name = longId();
  return name.empty() ? get(nodeFields.id) : name;
}

bool PrimNodeRecord::setName(const std::string& name, bool allowDuplicate)
{
  if (!file() || !hasId()) return true;
  if (!file()->registerName(name, opcode(), allowDuplicate)) return false;
  const auto oldName = getName();
  file()->unregisterName(oldName);
  if (name == oldName) return true;

  set(nodeFields.id, name.substr(0, longestShortName));
  if (auto* record = findChild<LongIDRecord>()) removeChild(record);
  if (name.size() > longestShortName) {
    auto* record = file()->create<LongIDRecord>();
    record->setText(name);
    insertAncillary(record);
  }
  return true;
}

void PrimNodeRecord::assignUniqueName()
{
  if (!file() || !file()->header()) return;
  const auto& info = opcodeInfo(opcode());
  if (info.counter == NameCounter::none) return;
  for (auto number = file()->nextNumber(info.counter); number < largestNameNumber; ++number) {
    if (setName(info.prefix + std::to_string(number) + info.suffix, /*allowDuplicate=*/false)) return;
  }
}

std::string PrimNodeRecord::getComment() const
{
  const auto* record = findChild<CommentRecord>();
  return record ? record->text() : std::string{};
}

void PrimNodeRecord::setComment(const std::string& text)
{
  auto* record = findChild<CommentRecord>();
  if (text.empty()) {
    if (record) removeChild(record);
    return;
  }
  if (!record) {
    if (!file()) return;
    record = file()->create<CommentRecord>();
    insertAncillary(record);
  }
  record->setText(text);
}

} // namespace fltapi
