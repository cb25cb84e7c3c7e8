#include "core/Model.h"

#include "core/DefaultColors.h"
#include "core/Shell.h"
#include "core/TabLabel.h"
#include "core/Tool.h"
#include "core/selection/SelectionMarks.h"
#include "fltapi/FltFile.h"
#include "fltapi/nodes/HeaderRecord.h"
#include "fltapi/palettes/ColorPaletteRecord.h"
#include "platform/Paths.h"

#include <FL/Fl.H>
#include <FL/fl_draw.H>

#include <algorithm>
#include <bit>
#include <utility>

namespace nalt {

namespace {

constexpr int labelSize = 11;

/// Around the base's constructor: a model never becomes a child of the group that happens to be open, nor the open one.
class NoCurrentGroup {
public:
  NoCurrentGroup() { Fl_Group::current(nullptr); }
  ~NoCurrentGroup() { Fl_Group::current(before_); }

private:
  Fl_Group* before_ = Fl_Group::current();
};

/// Around what FLTK does with a text: tabs and buttons would take a "&" for the mark of a key.
class NoKeyMark {
public:
  NoKeyMark() { fl_draw_shortcut = 0; }
  NoKeyMark(const NoKeyMark&) = delete;
  NoKeyMark& operator=(const NoKeyMark&) = delete;
  ~NoKeyMark() { fl_draw_shortcut = before_; }

private:
  char before_ = fl_draw_shortcut;
};

void drawPlain(const Fl_Label* label, int x, int y, int w, int h, Fl_Align align)
{
  const NoKeyMark asItIs;
  fl_font(label->font, label->size);
  fl_color(label->color);
  fl_draw(label->value, x, y - 1, w, h, align, nullptr, /*draw_symbols=*/0); // a tab is low: room for descenders
}

void measurePlain(const Fl_Label* label, int& w, int& h)
{
  const NoKeyMark asItIs;
  fl_font(label->font, label->size);
  fl_measure(label->value, w, h, /*draw_symbols=*/0);
}

} // namespace

Fl_Labeltype plainLabel()
{
  static const bool once = (Fl::set_labeltype(FL_FREE_LABELTYPE, drawPlain, measurePlain), true);
  (void)once;
  return FL_FREE_LABELTYPE;
}

Model::Model(int x, int y, int w, int h) : Fl_Tile((NoCurrentGroup(), x), y, w, h)
{
  labeltype(plainLabel());
  labelsize(labelSize);
}

Model::~Model()
{
  removeAllViewports(/*destroy=*/true);
  commandStack_.clear(); // first, so that a tool which ends finds nothing to undo
  endTool();
  commandStack_.clear(); // what the tool handed over at its end
}

/// Nothing of a former document may be undone, selected or shown in the next one.
void Model::dropDocument()
{
  if (!file_) return;
  commandStack_.clear();
  selections_.forgetAll();
  currentParent_ = nullptr;
  if (sync_) extras_->removeChild(&sync_->highlight());
  sync_ = nullptr;
}

bool Model::createEmpty()
{
  dropDocument();
  new_ = true;
  file_ = new fltapi::FltFile;
  file_->initNew();
  if (auto* palette = file_->colorPalette()) fillDefaultColors(*palette);
  checkParent();
  return true;
}

bool Model::load(const std::string& path)
{
  dropDocument();
  file_ = new fltapi::FltFile;
  if (!file_->load(path)) {
    file_ = nullptr;
    return false;
  }
  path_ = path;
  checkParent();
  return true;
}

fltapi::FltFile* Model::fltFile() const
{
  return file_.get();
}

osg::Group* Model::sceneRoot()
{
  if (!file_) return nullptr;
  if (!sync_) {
    sync_ = std::make_unique<Sync>(*file_);
    sync_->translateAll();
    showMarks(selections_.current(), *sync_);
    extras_->addChild(&sync_->highlight());
  }
  return sync_->root();
}

void Model::setPath(std::string path)
{
  path_ = std::move(path);
  if (file_) file_->setPath(path_);
}

void Model::nameTab(const std::vector<std::string>& labelsInUse)
{
  copy_label(markedLabel(tabLabel(fileNamePart(path_), labelsInUse), dirty_).c_str());
}

void Model::setDirty(bool dirty)
{
  dirty_ = dirty;
  if (!dirty) new_ = false;
  copy_label(file_ ? markedLabel(tabText(), dirty).c_str() : "");
  labelsize(labelSize);
  if (parent()) parent()->redraw();
  Shell::get().documentChanged(*this);
}

void Model::setCurrentParent(fltapi::PrimNodeRecord* parent)
{
  if (currentParent_ == parent) return;
  currentParent_ = parent;
  Shell::get().parentChanged(*this);
}

void Model::checkParent()
{
  auto* header = file_ ? file_->header() : nullptr;
  const fltapi::PrimNodeRecord* top = currentParent_;
  while (top && top->parent())
    top = top->parent();
  if (top && header && (top == header || top->opcode() == fltapi::opcodes::instanceDefinition)) return;
  setCurrentParent(header);
}

bool Model::setTool(std::unique_ptr<Tool> tool)
{
  Shell::get().toolPointsCleared();
  endTool();
  if (tool && tool->writesRecords() && selections_.containsExternal()) {
    Shell::get().warning("Can't modify externally referenced geometry.");
    tool.reset();
  }
  tool_ = std::move(tool);
  if (tool_) {
    tool_->setModel(this);
    extras_->addChild(&tool_->sceneGroup());
    if (!selections_.empty()) tool_->selectionChanged();
    if (!Shell::get().quiet()) Shell::get().setStatusLine(tool_->statusText());
  }
  Shell::get().toolChanged(*this);
  redrawViewports();
  return tool_ != nullptr;
}

void Model::endTool()
{
  if (!tool_) return;
  tool_->setReleased(true);
  extras_->removeChild(&tool_->sceneGroup());
  // While it goes the model has none any more, whatever the tool still does.
  const auto ending = std::move(tool_);
  if (!Shell::get().quiet()) Shell::get().setStatusLine("");
}

void Model::followHistory()
{
  checkParent();
  if (tool_) tool_->refresh();
  if (sync_ && sync_->lodState() < sync_->stateCount()) sync_->setLodState(sync_->lodState());
  redrawViewports();
}

void Model::setActiveViewport(VPBase* viewport)
{
  if (viewport != activeViewport_) {
    activeViewport_ = viewport;
    for (int i = 0; i < children(); ++i) {
      if (auto* panel = dynamic_cast<VPBase*>(child(i))) panel->setActive(panel == viewport);
    }
  }
  Shell::get().activeViewportChanged(*this);
}

void Model::bindViewports()
{
  std::uint32_t bit = 1;
  std::uint32_t bits = 0; // of all that draw
  for (int i = 0; i < children(); ++i, bit = std::rotl(bit, 1)) {
    auto* panel = dynamic_cast<VPBase*>(child(i));
    if (!panel) continue;
    if (panel->drawsScene() && std::find(viewports_.begin(), viewports_.end(), panel) == viewports_.end())
      viewports_.push_back(panel);
    if (panel->drawsScene()) bits |= bit;
    panel->bind(*this, bit);
  }
  if (sync_) sync_->setViewportBits(bits);
}

void Model::removeViewport(VPBase* viewport, bool destroy)
{
  const auto place = std::find(viewports_.begin(), viewports_.end(), viewport);
  if (place == viewports_.end()) return;
  const bool wasActive = viewport == activeViewport_;
  activeViewport_ = wasActive ? nullptr : activeViewport_;
  viewports_.erase(place);
  remove(viewport->widget());
  viewport->unbind();
  if (destroy) delete viewport;
  if (wasActive) Shell::get().activeViewportChanged(*this);
}

void Model::removeAllViewports(bool destroy)
{
  while (!viewports_.empty())
    removeViewport(viewports_.back(), destroy);
}

void Model::redrawViewports()
{
  for (VPBase* viewport : viewports_)
    viewport->widget().redraw();
}

Grid& Model::grid()
{
  Grid* const shown = activeViewport_ ? activeViewport_->grid() : nullptr;
  return shown ? *shown : ownGrid_;
}

void Model::gridChanged()
{
  if (activeViewport_) activeViewport_->gridChanged();
}

void Model::setSwitches(const DisplaySwitches& switches)
{
  switches_ = switches;
  if (sync_) sync_->setShowsAllLods(switches.allLods);
  bindViewports();
}

} // namespace nalt
