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

/// The real screen, for the windows of one thread. A window shown modeless lives on the host's
/// message loop, a modal one on a loop of its own. A window whose owner the host destroys ends with
/// it: nothing is asked, since nothing could be answered.
class Win32Desktop final : public controls::Desktop {
 public:
  /// `module` holds the window classes.
  Win32Desktop(HINSTANCE module, const CommonControls& commonControls);
  ~Win32Desktop() override;

  void show(controls::Form& form, const std::function<void()>& setUp) override;
  void runModal(controls::Form& form) override;
  void hide(controls::Form& form) override;
  void runLookup(controls::LookupList& list) override;
  void repaint() override;
  void beginWork() override;
  void endWork() override;

 private:
  struct Shown;
  class Interruption;

  /// The window over which another one opens.
  HWND ownerFor(const controls::Form* form) const;
  /// The form's window that is `window` or owns it; null for none.
  FormWindow* formAround(HWND window) const;
  void windowLost(controls::Form& form);
  /// The form ends as its window did.
  void endLost(controls::Form& form);
  std::vector<HWND> disableOthers(HWND except) const;
  static void enable(const std::vector<HWND>& windows);
  /// Lets the user work until `done`.
  static void pump(const std::function<bool()>& done);

  /// Makes the windows look busy, or no longer busy.
  void showBusy(bool busy);

  HINSTANCE module_;
  const CommonControls& commonControls_;
  std::map<const controls::Form*, std::unique_ptr<Shown>> shown_;
  int works_ = 0;  ///< how many works are running, one inside the other
};

}  // namespace kebu::windows
