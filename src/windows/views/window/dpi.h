#pragma once

#include "windows/support/windows_api.h"

namespace kebu::windows {

// Windows of their own resolution. The functions for it came with Windows 10 1607. They are looked
// up when they are first needed, since an import would keep the DLL from loading on older versions
// of Windows. There every window has the resolution of the system.

/// The resolution of a window, in dots per inch.
int dpiOf(HWND window);
/// GetSystemMetrics for a resolution.
int systemMetric(int index, int dpi);
/// The font of message boxes at a resolution.
LOGFONTW messageFont(int dpi);

/// While it lives, this thread sees coordinates and sizes as windows of a certain kind do, whatever
/// the host's thread does: a host that does not know resolutions is shown scaled ones.
class DpiContext {
 public:
  /// Windows that are created meanwhile have the resolution of their monitor.
  static DpiContext perMonitor();
  /// As the window sees them. Changes nothing for null.
  static DpiContext of(HWND window);
  ~DpiContext();
  DpiContext(const DpiContext&) = delete;
  DpiContext& operator=(const DpiContext&) = delete;

 private:
  explicit DpiContext(DPI_AWARENESS_CONTEXT before) : before_(before) {}

  DPI_AWARENESS_CONTEXT before_;  ///< null when nothing was changed
};

}  // namespace kebu::windows
