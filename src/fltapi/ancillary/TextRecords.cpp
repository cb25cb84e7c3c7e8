#include "fltapi/ancillary/TextRecords.h"

namespace fltapi {

namespace {

std::string textFrom(const Record& record, std::size_t start)
{
  if (record.length() <= start) return {};
  const auto* text = reinterpret_cast<const char*>(record.data() + start);
  return {text, ::strnlen(text, record.length() - start)};
}

bool putText(Record& record, std::size_t start, const std::string& text)
{
  if (!record.resize(start + text.size() + 1)) return false;
  std::memcpy(record.data() + start, text.c_str(), text.size() + 1);
  return true;
}

constexpr std::size_t indexedTextStart = 8;

} // namespace

std::string TextAncillaryRecord::text() const
{
  return textFrom(*this, recordHeadSize);
}

bool TextAncillaryRecord::setText(const std::string& text)
{
  return putText(*this, recordHeadSize, text);
}

std::string IndexedStringRecord::text() const
{
  return textFrom(*this, indexedTextStart);
}

bool IndexedStringRecord::setText(const std::string& text)
{
  return putText(*this, indexedTextStart, text);
}

} // namespace fltapi
