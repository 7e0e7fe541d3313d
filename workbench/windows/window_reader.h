#pragma once

#include <optional>
#include <string>
#include <vector>

#include "windows/support/windows_api.h"
#include "windows/views/window/inspection.h"
#include "workbench/player/control_view.h"
#include "workbench/player/hands.h"

namespace kebu::workbench {

/// Asks a window of the plug-in about its controls and their parts.
class WindowReader {
 public:
  explicit WindowReader(HWND window) : window_(window) {}

  using Part = windows::Inspected;
  /// One of several parts: by its key, or without one by its index from 0.
  struct Which {
    std::string key;
    std::int32_t index = 0;
    std::int32_t row = 0;
  };
  /// Nothing when there is no such part. An empty name is the window itself.
  std::optional<windows::Inspection> find(Part part, const std::string& control,
                                          const Which& which) const;
  /// StepError when there is no such control.
  windows::Inspection control(const std::string& name) const;
  /// The name of the first control of a kind; nothing when there is none.
  std::optional<std::string> firstOfKind(const std::string& kind) const;

  ControlView look(const std::string& name, const RowRange& rows) const;
  std::string value(const std::string& name) const;

 private:
  std::vector<std::string> controlNames() const;
  void describeItems(ControlView& view, const windows::Inspection& control) const;
  void describeGrid(ControlView& view, const windows::Inspection& control,
                    const RowRange& rows) const;
  void describeChildren(ControlView& view, const windows::Inspection& control) const;

  HWND window_;
};

std::string kindOf(const windows::Inspection& inspection);
std::string textOf(const windows::Inspection& inspection);
std::string nameOf(const windows::Inspection& inspection);
std::vector<std::string> marksOf(const windows::Inspection& inspection);
bool isMarked(const windows::Inspection& inspection, const std::string& mark);

}  // namespace kebu::workbench
