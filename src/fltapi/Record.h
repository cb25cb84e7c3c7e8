#pragma once

#include "fltapi/Field.h"
#include "fltapi/RecordBuffer.h"

#include <osg/Referenced>
#include <osg/ref_ptr>
#include <string>
#include <vector>

namespace fltapi {

class FltFile;
class Output;
class PrimNodeRecord;
class RecordReader;
class RecordVisitor;

/// One record of an OpenFlight file: a counted handle on a raw buffer in file layout. What the program doesn't
/// understand thus stays as it is. While in memory the numbers of the content are in host byte order and the layout is
/// that of version 16.2, whatever the file was.
///
/// Vertices come in millions, so a record is as small as it can be; what few records need lives elsewhere.
class Record : public osg::Referenced {
public:
  explicit Record(Buffer data);
  Record(const Record&) = delete;
  Record& operator=(const Record&) = delete;

  // ---- identity -----------------------------------------------------------------------------------------------------

  /// A new record of the same class with default content, without a file.
  virtual Record* cloneType() const = 0;
  /// A copy of this record alone, belonging to `target` (or to this record's file when null). Null without a file.
  virtual Record* clone(FltFile* target) const;
  virtual const char* className() const;
  virtual int opcode() const { return 0; }
  /// The name that users see for records of this kind.
  const char* displayName() const;

  // ---- content ------------------------------------------------------------------------------------------------------

  std::byte* data() { return data_.get(); }
  const std::byte* data() const { return data_.get(); }
  /// Bytes of the buffer, head included.
  std::size_t length() const { return recordLength(data_.get()); }
  void replaceData(Buffer data) { data_ = std::move(data); }
  /// Gives the buffer another length; what is new is zero. False when memory is out, with nothing changed.
  bool resize(std::size_t length);

  /// The value of a field, or an empty one where the buffer is too short to hold it.
  template <class T>
  typename Field<T>::Value get(const Field<T>& field) const
  {
    if (field.end() > length()) return {};
    return Field<T>::Traits::load(data() + field.offset());
  }
  /// Changes nothing where the buffer is too short.
  template <class T>
  void set(const Field<T>& field, const typename Field<T>::Value& value)
  {
    if (field.end() <= length()) Field<T>::Traits::store(data() + field.offset(), value);
  }
  virtual const FieldTable& fieldTable() const;

  /// Length of this record in a file of format `version`; 0 when that version doesn't know it.
  virtual std::size_t size(int version) const = 0;
  /// True while the content is in file order.
  bool swapped() const { return swapped_; }
  /// Reverses every multi-byte field of the content.
  void swapBytes();
  /// Brings a content that was just read to host order; the last `length - scope.length` bytes already are.
  void takeFromFile(const SwapScope& scope);
  /// Reverses the fields of `content`, which has this record's layout: this record's own buffer or a copy of it.
  virtual void swapContent(std::byte* content, const SwapScope& scope) const;
  /// Same opcode, same length, same bytes.
  virtual bool equals(const Record& other) const;

  // ---- families -----------------------------------------------------------------------------------------------------

  virtual bool isPrimary() const { return false; }
  virtual bool isControl() const { return false; }
  virtual bool isAncillary() const { return false; }
  virtual PrimNodeRecord* asNode() { return nullptr; }
  const PrimNodeRecord* asNode() const { return const_cast<Record*>(this)->asNode(); }

  virtual void accept(RecordVisitor& visitor) = 0;
  virtual void traverse(RecordVisitor&) {}

  // ---- names --------------------------------------------------------------------------------------------------------

  virtual std::string getName() const { return {}; }
  /// False when the name is taken and duplicates aren't allowed; nothing has changed then.
  virtual bool setName(const std::string&, bool /*allowDuplicate*/ = true) { return true; }
  /// Gives the record the next free name of its kind ("g12"). Does nothing for kinds without such names.
  virtual void assignUniqueName() {}

  // ---- place in the tree --------------------------------------------------------------------------------------------

  PrimNodeRecord* parent() const { return parent_; }
  /// Further parents, for content that hangs in several places.
  virtual const std::vector<PrimNodeRecord*>& parents() const;
  /// The file that this record belongs to; null for none.
  FltFile* file() const { return file_; }
  void setFile(FltFile* file) { file_ = file; }
  /// Position among the siblings, -1 when detached.
  int index() const { return index_; }
  /// A number that no other record of this process ever had or will have.
  std::uint32_t serial() const { return serial_; }
  /// Bits for who shows the record, all 0 at first. They are no part of the document: neither copied nor saved.
  std::uint8_t marks() const { return marks_; }
  void setMarks(std::uint8_t marks) { marks_ = marks; }

  // ---- streams ------------------------------------------------------------------------------------------------------

  /// Reads what belongs to this record behind its own bytes. False when the load has to stop.
  virtual bool read(RecordReader&) { return false; }
  virtual bool write(Output& output) const;
  /// Sets in `content`, a copy of this record in host order, what only the output knows: versions and offsets.
  virtual void prepareForFile(std::byte* /*content*/, const Output&) const {}

protected:
  ~Record() override = default;

private:
  friend class PrimNodeRecord;
  void attachTo(PrimNodeRecord* parent) { parent_ = parent; }

  // The order fills the gap that osg::Referenced leaves at its end.
  bool swapped_ = false;
  std::uint8_t marks_ = 0;
  std::uint32_t serial_;
  std::int32_t index_ = -1;
  Buffer data_;
  PrimNodeRecord* parent_ = nullptr;
  FltFile* file_ = nullptr;
};

/// The opcode that a raw buffer says it holds.
inline int opcodeOf(const Record& record)
{
  return recordOpcode(record.data());
}

} // namespace fltapi
