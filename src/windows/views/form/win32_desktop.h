#pragma once

#include <functional>
#include <map>
#include <memory>
#include <vector>

#include "controls/desktop.h"
#include "windows/support/windows_api.h"
#include "windows/views/window/common_controls.h"

namespace kebu::windows {

class FormWindow;

/// The real screen. A window shown modeless lives on the host's message loop, a
/// modal one on a loop of its own.
class Win32Desktop final : public controls::Desktop {
 public:
  /// `module` holds the manifest of the common controls and the window classes.
  explicit Win32Desktop(HINSTANCE module);
  ~Win32Desktop() override;

  void show(controls::Form& form) override;
  void runModal(controls::Form& form) override;
  void hide(controls::Form& form) override;
  void runLookup(controls::LookupList& list) override;
  void repaint() override;

 private:
  struct Shown;

  /// The window over which another one opens.
  HWND ownerFor(const controls::Form* form) const;
  std::vector<HWND> disableOthers(HWND except) const;
  static void enable(const std::vector<HWND>& windows);
  /// Lets the user work until `done`.
  static void pump(const std::function<bool()>& done);

  HINSTANCE module_;
  CommonControls commonControls_;
  std::map<const controls::Form*, std::unique_ptr<Shown>> shown_;
};

}  // namespace kebu::windows
