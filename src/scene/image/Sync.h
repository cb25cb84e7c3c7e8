#pragma once

#include "fltapi/FltFile.h"
#include "fltapi/PrimNodeRecord.h"
#include "scene/image/FaceCullCallback.h"
#include "scene/image/FaceStore.h"
#include "scene/image/FaceTranslator.h"
#include "scene/image/LodStates.h"
#include "scene/image/SceneNode.h"
#include "scene/image/StateSets.h"

#include <osg/Group>
#include <ranges>
#include <set>
#include <unordered_map>
#include <unordered_set>
#include <vector>

namespace fltapi {
class ExternalRecord;
class FaceRecord;
class InstanceDefinitionRecord;
class InstanceReferenceRecord;
class LodRecord;
class MeshRecord;
class SwitchRecord;
} // namespace fltapi

namespace nalt {

/// The scene graph of one document: an image of its record tree, never a source of anything. Who changes records says
/// so here afterwards, and only what was touched is made anew.
///
/// Content of external references is part of the image, but can't be changed through it. One thread at a time.
class Sync {
public:
  /// Leads from a drawable that shows one record alone, such as that of a mesh, back to the record.
  class FaceUserData : public osg::Referenced {
  public:
    explicit FaceUserData(fltapi::PrimNodeRecord& record) : record_(record) {}
    fltapi::PrimNodeRecord& record() const { return record_; }

  protected:
    ~FaceUserData() override = default;

  private:
    fltapi::PrimNodeRecord& record_;
  };
  using FaceCullCallback = nalt::FaceCullCallback;
  using FaceGeodeParentUserData = nalt::FaceGeodeParentUserData;

  /// The image of `file` starts empty. Keeps the file alive.
  explicit Sync(fltapi::FltFile& file);
  Sync(const Sync&) = delete;
  Sync& operator=(const Sync&) = delete;
  ~Sync();

  fltapi::FltFile& file() const { return *file_; }
  osg::Group* root() const { return root_; }

  // ---- from records to the scene ------------------------------------------------------------------------------------

  /// Makes the whole image anew.
  void translateAll();
  /// Shows records, with all below them, that came into the tree. What has no scene node above it is left out.
  void translate(fltapi::Record& record);
  /// Brings records that changed up to date, each without what is below it. Vertices and ancillary records stand for
  /// the node that they belong to, palette entries for all that uses them.
  void update(fltapi::Record& record);
  /// Takes records, with all below them, out of the image. To be called before they leave the tree.
  void remove(fltapi::Record& record);

  // The same for many, which costs one pass over each geometry.
  template <std::ranges::input_range Records>
  void translate(const Records& records)
  {
    for (const auto& record : records)
      translateOne(*record);
    finish();
  }
  template <std::ranges::input_range Records>
  void update(const Records& records)
  {
    for (const auto& record : records)
      updateOne(*record);
    finish();
  }
  template <std::ranges::input_range Records>
  void remove(const Records& records)
  {
    for (const auto& record : records)
      removeOne(*record);
    finish();
  }

  /// After a change of palette entries of that kind, or of the files that they name: `reload` reads these again.
  void updatePalette(int opcode, bool reload = false);

  // ---- from records to nodes and back -------------------------------------------------------------------------------

  /// The scene node of a group, object, DOF, external reference, LOD, switch, light point or light point system; the
  /// root for the header. Null for all other records and for those that aren't shown.
  osg::Node* nodeOf(const fltapi::Record& record) const;
  /// The polygon that shows a face or light point; null when nothing does.
  NaltPolygon* polygonOf(const fltapi::PrimNodeRecord& record) const { return faces_.find(record); }
  /// The geode of a mesh.
  NaltGeode* meshGeodeOf(const fltapi::MeshRecord& mesh) const;
  /// The record that a node or mesh drawable stands for; null for helpers.
  static fltapi::PrimNodeRecord* recordOf(const osg::Node& node);
  /// The face or light point that a primitive set of a drawable shows; null for all others.
  static fltapi::PrimNodeRecord* recordOf(const osg::Drawable& drawable, unsigned primitiveSet);
  /// All references that show an instance.
  std::vector<fltapi::InstanceReferenceRecord*> referencesTo(const fltapi::InstanceDefinitionRecord& definition) const;

  // ---- what is selected ---------------------------------------------------------------------------------------------

  /// Shows the marks of the records over the model; hangs beside the root.
  Highlight& highlight() { return *highlight_; }
  /// Lets the polygons of a face or light point follow the marks of the record and of its vertices.
  void showMarks(const fltapi::PrimNodeRecord& polygon);
  /// The node that stands for any record, `nodeOf` or not; null when nothing does.
  osg::Node* shownNodeOf(const fltapi::PrimNodeRecord& record) const;

  // ---- visibility ---------------------------------------------------------------------------------------------------

  /// The bits of all viewports that the document has.
  std::uint32_t viewportBits() const { return viewportBits_; }
  void setViewportBits(std::uint32_t bits) { viewportBits_ = bits; }
  /// Shows a record in those viewports whose bit is set, as far as switches and levels of detail let it.
  void setNodeMask(const fltapi::PrimNodeRecord& record, std::uint32_t mask);

  /// Number of states of detail; 0 without levels of detail.
  int stateCount() const { return lodStates_.count(); }
  /// The current state: 0 is the farthest. At first the nearest one.
  int lodState() const { return lodState_; }
  void setLodState(int state);
  bool showsAllLods() const { return allLods_; }
  void setShowsAllLods(bool all);

  // ---- what viewports do with the image -----------------------------------------------------------------------------

  /// In the viewports of these bits every polygon is drawn a little smaller, so that neighbours can be told apart.
  void setShrinkingBits(std::uint32_t bits);
  std::uint32_t shrinkingBits() const { return viewports_->shrinkingBits(); }
  /// Another number after each change of what is shown. Who makes something of the image looks whether it is due again.
  std::uint64_t revision() const { return revision_; }
  /// Who moves a node for show, without a change of its record, says so here.
  void noteMove();

private:
  friend class TranslateVisitor;
  friend class RemoveVisitor;
  friend class UnassociateChildVisitor;

  void translateOne(fltapi::Record& record);
  void updateOne(fltapi::Record& record);
  void removeOne(fltapi::Record& record);
  /// Does what waits until all records of a call have been looked at.
  void finish();
  void clear();

  SceneNode* find(const fltapi::Record& record);
  const SceneNode* find(const fltapi::Record& record) const;
  /// The group that takes what belongs below `record`: that of the nearest node above it which isn't a polygon. Null
  /// when that node isn't shown.
  osg::Group* holderOf(const fltapi::PrimNodeRecord& record);
  /// The node of a header or definition that several references share, translated when it is new.
  const SceneNode& ensureShown(fltapi::PrimNodeRecord& shared);
  void dropIfUnused(std::uint32_t linkedSerial);
  /// Lets the node of a reference show what `linked` stands for, unless that is above it.
  void link(SceneNode& node, const SceneNode& linked);
  void unlink(SceneNode& node);
  /// Takes out what so many references lead to that nobody could draw it.
  void limitLinks();
  void applyMask(const fltapi::PrimNodeRecord& record);
  void refreshSwitch(const fltapi::SwitchRecord& record);
  void refreshLods();
  void recolorFaces();

  osg::ref_ptr<fltapi::FltFile> file_;
  std::uint32_t headerSerial_ = 0;
  osg::ref_ptr<osg::Group> root_ = new osg::Group;
  osg::ref_ptr<ViewportTable> viewports_ = new ViewportTable;
  StateSets stateSets_;
  FaceStore faces_{*viewports_};
  Complaints complaints_;
  FaceTranslator translator_{complaints_};
  PolygonShape shape_;
  /// By serial number of the record, which no other record ever has.
  std::unordered_map<std::uint32_t, SceneNode> nodes_;
  /// Files of external references that are shown, by header.
  std::unordered_map<std::uint32_t, osg::ref_ptr<fltapi::FltFile>> shownFiles_;
  std::unordered_map<std::uint32_t, fltapi::LodRecord*> lods_;
  std::unordered_map<std::uint32_t, std::set<fltapi::InstanceReferenceRecord*>> instances_; ///< by definition
  // Nodes that wait for the end of the call.
  std::unordered_map<std::uint32_t, const fltapi::SwitchRecord*> waitingSwitches_;
  bool lodsChanged_ = false;
  bool linksChanged_ = false;
  bool linksNest_ = false; ///< what references show holds references
  bool toldOfLimit_ = false;
  std::unordered_set<std::uint32_t> cutLinks_; ///< references that show nothing because of the limit
  std::uint64_t revision_ = 0;
  int depth_ = 0; ///< levels that are being translated, through instances
  osg::ref_ptr<Highlight> highlight_ = new Highlight(*this);

  std::uint32_t viewportBits_ = ~0U;
  LodStates lodStates_;
  int lodState_ = 0;
  bool allLods_ = false;
};

} // namespace nalt
