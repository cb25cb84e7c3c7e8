#pragma once

#include "fltapi/ChildList.h"
#include "fltapi/Families.h"

#include <memory>
#include <osg/Matrixd>
#include <ranges>
#include <span>

namespace fltapi {

/// What other parts of the program hang on a node. Owned by the node.
class UserData {
public:
  virtual ~UserData() = default;
  /// Whether the node is hidden everywhere, and so doesn't count for the extent of the model.
  virtual bool hidden() const { return false; }
};

/// A node: a record that can have children. Ancillary records (names, matrices, bounding volumes) and sub-nodes are
/// children alike, in one order; the sub-nodes are the primary ones.
class PrimNodeRecord : public Record {
public:
  explicit PrimNodeRecord(Buffer data);

  bool isPrimary() const override { return true; }
  PrimNodeRecord* asNode() override { return this; }
  using Record::asNode;
  std::size_t size(int) const override { return length(); }
  Record* clone(FltFile* target) const override;
  void traverse(RecordVisitor& visitor) override;
  const std::vector<PrimNodeRecord*>& parents() const override;

  // ---- children -----------------------------------------------------------------------------------------------------

  const ChildList& children() const { return children_; }
  int childCount() const { return children_.size(); }
  /// The child at `index`, else null.
  Record* childAt(int index) const;
  /// The children that are nodes, in order. Not to be used while children come or go.
  auto primaryChildren() const
  {
    return std::ranges::subrange(children_.begin() + frontAncillaries_, children_.end()) |
           std::views::filter([](const Record* child) { return child->isPrimary(); }) |
           std::views::transform([](Record* child) { return child->asNode(); });
  }
  int primaryChildCount() const { return primaryCount_; }
  /// The i-th primary child, null when i is out of range.
  PrimNodeRecord* primaryChildAt(int i) const;
  /// In front of it new ancillary records are inserted. Null when there is none.
  PrimNodeRecord* firstPrimaryChild() const { return primaryChildAt(0); }
  /// Position among the primary children, -1 when `child` isn't one of them.
  int primaryIndexOf(const Record& child) const;

  Record* findChild(int opcode) const;
  template <class T>
  T* findChild() const
  {
    return static_cast<T*>(findChild(T::code));
  }
  /// All children with that opcode, in order. Served from a cache that every change of the children clears.
  std::vector<Record*> findChildren(int opcode) const;
  std::vector<Record*> findChildrenByOpcodes(std::span<const int> opcodes) const;

  /// Attaches `child`: behind the last one, or at the position that its `index` names. Nothing happens for null, for a
  /// node without a file, and for a child that is there already.
  void addChild(Record* child, bool append);
  /// At that position, or behind the last child when there are fewer.
  void insertChildAt(Record* child, int position);
  void insertChildBefore(Record* child, Record* sibling);
  void insertChildAfter(Record* child, Record* sibling);
  /// In front of the first sub-node, or at the end: the place of new ancillary records.
  void insertAncillary(Record* child);
  /// Detaches `child`. Somebody who still refers to it can put it back where it was by addChild(child, false).
  void removeChild(Record* child);
  void removeChildren(const std::vector<osg::ref_ptr<Record>>& children);
  void removeChildren(const std::vector<Record*>& children);
  void removeAllChildren();
  void removePrimaryChildren();
  /// False when the indices are equal, negative, or past the end; `to` at the end means behind the last child.
  bool moveChild(int from, int to);
  /// Only when `oldChild` is attached here. A node that takes a node's place is switched on where that one was.
  void replaceChild(Record* oldChild, Record* newChild);

  // ---- looking around -----------------------------------------------------------------------------------------------

  bool hasAncestorOfType(int opcode) const;
  /// Whether `other` is somewhere below this node, instances included.
  bool isAncestorOf(Record& other);
  /// Every record below (this one included) with one of the opcodes, in order of traversal.
  std::vector<Record*> findDescendants(std::span<const int> opcodes, bool followInstances);
  std::vector<Record*> findDescendants(int opcode, bool followInstances);

  // ---- names and comments -------------------------------------------------------------------------------------------

  /// Whether the record has the 8-byte ID of nodes at offset 4.
  virtual bool hasId() const { return true; }
  std::string getName() const override;
  bool setName(const std::string& name, bool allowDuplicate = true) override;
  void assignUniqueName() override;
  /// The text of the long ID, empty without one.
  std::string longId() const;
  std::string getComment() const;
  /// An empty text removes the comment.
  void setComment(const std::string& text);

  // ---- copies -------------------------------------------------------------------------------------------------------

  /// A copy of this node and everything below it, belonging to `target` and attached to nothing.
  /// @param rename every copy gets a fresh default name
  /// @param keepNamesUnique a copy keeps its name, or gets "_1", "_2" ... behind it when the name is taken
  PrimNodeRecord* cloneTree(FltFile* target, bool rename, bool keepNamesUnique) const;
  /// The same in the record's own file. Null without one.
  PrimNodeRecord* cloneTree(bool rename) const;
  /// Copies of all children, appended to those of `copy`, with their names.
  void cloneChildrenInto(PrimNodeRecord& copy) const;

  // ---- geometry -----------------------------------------------------------------------------------------------------

  /// From this node's coordinates (behind its own matrix) to those of the whole model. Row vectors, as everywhere.
  osg::Matrixd worldMatrix() const;
  /// The product of the node's own matrices; the identity for replicated groups, whose matrix moves the copies.
  osg::Matrixd localMatrix() const;
  /// Average of all vertices below; the origin when there is none.
  osg::Vec3d center();
  /// Each vertex below is transformed once; normals turn and keep their unit length.
  void transformVertices(const osg::Matrixd& matrix);

  // ---- what hangs on a node -----------------------------------------------------------------------------------------

  UserData* userData() const { return userData_.get(); }
  void setUserData(std::unique_ptr<UserData> data) { userData_ = std::move(data); }
  /// The file of the external reference through which this record came in; null for the document's own records.
  FltFile* externalFile() const { return externalFile_; }
  void setExternalFile(FltFile* file) { externalFile_ = file; }

  // ---- streams ------------------------------------------------------------------------------------------------------

  bool read(RecordReader& reader) override;
  bool write(Output& output) const override;
  /// Faces and light points: their kind of children are subfaces.
  virtual bool holdsSubfaces() const { return false; }

protected:
  ~PrimNodeRecord() override;

  /// Reads ancillaries, and the level below if one follows.
  bool readBody(RecordReader& reader);
  bool readAncillaries(RecordReader& reader);
  bool readChildren(RecordReader& reader);
  bool readSubfaces(RecordReader& reader);
  virtual bool writeChildren(Output& output) const;
  bool writeAncillaries(Output& output) const;

  // Told about every change of the primary children; the positions count primary children only.
  virtual void primaryInserted(int) {}
  virtual void primaryRemoved(int) {}
  virtual void primaryMoved(int /*from*/, int /*to*/) {}
  virtual void primariesCleared() {}

private:
  struct Extras;
  Extras& extras() const;
  void place(int position, Record* child);
  osg::ref_ptr<Record> unplace(int position);
  void insertAt(int position, Record* child);
  void attached(Record& child);
  void detached(Record& child);
  /// When that was the first parent, the last of the further ones takes its place.
  void forgetParent(PrimNodeRecord* parent);
  void renumberFrom(int position);
  bool isChild(const Record* child) const;
  int positionOf(const Record& child) const;

  ChildList children_;
  std::int32_t primaryCount_ = 0;
  std::int32_t frontAncillaries_ = 0; ///< how many children stand in front of the first primary one
  std::unique_ptr<UserData> userData_;
  FltFile* externalFile_ = nullptr;        ///< not counted: the file owns this record
  mutable std::unique_ptr<Extras> extras_; ///< what few nodes need
};

} // namespace fltapi
