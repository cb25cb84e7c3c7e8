#pragma once

namespace nalt {

/// How fast the mouse moves a camera. Values run from 0 to 100; "auto" follows the size of the model instead.
struct Sensitivity {
  int pan = 50;
  int zoom = 50;
  int rotate = 50;
  bool autoPan = true;
  bool autoZoom = true;
};

/// What the user set once and for all models. Plain values: who shows them reads them when they are needed.
struct Preferences {
  bool zoomViewpointToModel = true;
  double tolerance = 0.0001;
  Sensitivity sensitivity;
  int pickTolerance = 6; ///< pixels
  int viewportCount = 1; ///< 1 to 4; anything else counts as 1
  int maxCommands = 50;
  int captureWidth = 0; ///< 0: the size of the window
  int captureHeight = 0;
  bool saveLatestVersion = true;
  bool loadExternals = true;
  double gizmoSize = 75.0; ///< pixels
  bool splash = true;
  bool showGizmos = true;
  int parameterPrecision = 12; ///< significant digits in recorded scripts
  bool uniformScale = true;
  bool convertNotAvailableToZero = true;
  bool reloadTextures = true;
  bool reloadExternals = true;
  bool reloadShaders = true;
  bool relativeTexturePaths = false;

  /// The one in force, with the defaults at first.
  static Preferences& get();
};

} // namespace nalt
