#pragma once

#include "core/CommandStack.h"
#include "core/Grid.h"
#include "core/PaletteIndices.h"
#include "core/VPBase.h"
#include "core/selection/SelectionSet.h"
#include "scene/image/Sync.h"

#include <FL/Fl_Tile.H>
#include <osg/Group>
#include <osg/ref_ptr>

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace fltapi {
class FltFile;
}

namespace nalt {

class Tool;

/// Switches of the View menu that every viewport of a model follows.
struct DisplaySwitches {
  bool gizmos = true;
  bool allLods = false;
  bool snapToGrid = true;
  std::uint8_t textureLayers = 0xFF; ///< bit n: layer n is shown
};

/// One open document with all that shows and edits it. It is a page of the main window's tabs, and can be made and used
/// without a display. Made on the main thread without a parent, whatever group is current; a worker may then run `load`
/// on it. Everything else belongs to the main thread. Owned by the tabs once it is a page.
class Model : public Fl_Tile {
public:
  Model(int x, int y, int w, int h);
  ~Model() override;
  Model(const Model&) = delete;
  Model& operator=(const Model&) = delete;

  /// A fresh document that was never saved.
  bool createEmpty();
  /// Reads `path`. False leaves the model without a document; the reader has said why.
  bool load(const std::string& path);

  /// Null before a successful `createEmpty` or `load`.
  fltapi::FltFile* fltFile() const;

  /// The root of the scene graph image of the document, made and translated at the first call, so that a run without
  /// windows never builds one. Needs a document.
  osg::Group* sceneRoot();
  /// The same image while there is one, else null: edits tell it what they changed.
  Sync* sync() { return sync_.get(); }
  /// What is drawn beside the document, once in each viewport, and is no part of it: gizmos and highlights. Clicks that
  /// select pass through it.
  osg::Group* sceneExtras() { return extras_.get(); }

  const std::string& path() const { return path_; }
  void setPath(std::string path);

  /// What the tab shows, "*" included.
  std::string tabText() const { return label() ? label() : ""; }
  /// Names the tab after the path's file, with a number when `labelsInUse` has that name already.
  void nameTab(const std::vector<std::string>& labelsInUse);

  bool isDirty() const { return dirty_; }
  /// Marks or unmarks the tab and tells the shell. False also ends `isNew`.
  void setDirty(bool dirty);
  /// Created or imported and never saved, so that there is no file to go back to.
  bool isNew() const { return new_; }
  void setNew(bool isNew) { new_ = isNew; }

  // The panels among the children.
  const std::vector<VPBase*>& viewports() const { return viewports_; }
  VPBase* activeViewport() const { return activeViewport_; }
  void setActiveViewport(VPBase* viewport);
  /// Hands scene and switches to every panel. Each child has one bit of the node masks, counted from 1 in the order of
  /// children, those that aren't viewports included.
  void bindViewports();
  /// Takes `viewport` out of the tile; deletes it when `destroy` is true, else the caller owns it.
  void removeViewport(VPBase* viewport, bool destroy);
  void removeAllViewports(bool destroy);
  void redrawViewports();
  /// That of the active viewport; without one the model's own, so that scripts need no window.
  Grid& grid();
  /// Shows the grid anew after a change of it.
  void gridChanged();

  CommandStack& commandStack() { return commandStack_; }
  SelectionSet& selections() { return selections_; }
  /// Where new nodes go: the header unless the user chose another node. Null without a document.
  fltapi::PrimNodeRecord* currentParent() const { return currentParent_.get(); }
  void setCurrentParent(fltapi::PrimNodeRecord* parent);
  /// After an edit that can take nodes away: a parent that is no longer in the tree gives way to the header.
  void checkParent();

  /// Null while no tool is active.
  Tool* tool() const { return tool_.get(); }
  /// Ends the current tool and makes `tool` current; null ends only. False when no tool is current afterwards: one that
  /// writes to records refuses, after a message, to start on what belongs to an external reference.
  bool setTool(std::unique_ptr<Tool> tool);

  PaletteIndices& paletteIndices() { return paletteIndices_; }
  /// Brings what depends on the edits up to date after one was undone or redone.
  void followHistory();

  const DisplaySwitches& switches() const { return switches_; }
  /// Stores the switches and passes them on to every viewport.
  void setSwitches(const DisplaySwitches& switches);

private:
  void endTool();
  void dropDocument();

  osg::ref_ptr<fltapi::FltFile> file_;
  std::unique_ptr<Sync> sync_;
  osg::ref_ptr<osg::Group> extras_ = new osg::Group;
  std::string path_;
  bool dirty_ = false;
  bool new_ = false;
  std::vector<VPBase*> viewports_;
  VPBase* activeViewport_ = nullptr;
  DisplaySwitches switches_;
  Grid ownGrid_;
  osg::ref_ptr<fltapi::PrimNodeRecord> currentParent_;
  PaletteIndices paletteIndices_{*this};
  SelectionSet selections_{*this};
  CommandStack commandStack_{*this};
  std::unique_ptr<Tool> tool_;
};

/// Draws a label as it is: a file name may hold the "@" and "&" that FLTK would take for symbols and shortcuts.
Fl_Labeltype plainLabel();

} // namespace nalt
