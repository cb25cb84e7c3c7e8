#pragma once

#include <memory>

namespace nalt {

class AnimationPreviewDialog;
class CommandListDialog;
class DofPreviewDialog;
class ExternalReferencesDialog;
class Gui;
class HelpServer;
class HelpWindow;
class PreferencesDialog;
class SelectByNameDialog;
class SelectByVerticesDialog;
class SensitivityDialog;
class Viewport;
class ViewportPreferencesDialog;

/// The windows beside the main window. Each is made when it is first opened. Without a display there are none, and
/// nothing may be opened.
class Dialogs {
public:
  explicit Dialogs(Gui& gui);
  ~Dialogs();
  Dialogs(const Dialogs&) = delete;
  Dialogs& operator=(const Dialogs&) = delete;

  void openPreferences();
  /// For the active viewport unless another one is named.
  void openViewportPreferences(Viewport* viewport = nullptr);
  void openSensitivity();
  void openCommandList();
  void openSelectByName();
  void openSelectByVertices();
  void openExternalReferences();
  void openDofPreview();
  void openAnimationPreview();
  void openHelp();

  // Those that are open follow what happens elsewhere.
  /// Another model is current, its history or its document changed, or viewports came or went.
  void modelChanged();
  void preferencesChanged();
  /// A file operation starts or is over.
  void fileOperationChanged();

  /// At the end of the program.
  void hideAll();

private:
  Gui& gui_;
  std::unique_ptr<PreferencesDialog> preferences_;
  std::unique_ptr<ViewportPreferencesDialog> viewportPreferences_;
  std::unique_ptr<SensitivityDialog> sensitivity_;
  std::unique_ptr<CommandListDialog> commandList_;
  std::unique_ptr<SelectByNameDialog> selectByName_;
  std::unique_ptr<SelectByVerticesDialog> selectByVertices_;
  std::unique_ptr<ExternalReferencesDialog> externalReferences_;
  std::unique_ptr<DofPreviewDialog> dofPreview_;
  std::unique_ptr<AnimationPreviewDialog> animationPreview_;
  std::unique_ptr<HelpWindow> help_;
  std::unique_ptr<HelpServer> helpServer_;
};

} // namespace nalt
