#pragma once

#include <functional>
#include <map>
#include <optional>
#include <set>
#include <string>

#include "workbench/host/user.h"
#include "workbench/player/hands.h"
#include "workbench/windows/window_reader.h"
#include "workbench/windows/window_thread.h"

namespace kebu::workbench {

/// Works in the real window with clicks and keys. After each gesture it waits until the window is
/// idle, and has the user answer the message boxes and lists that were opened.
class WindowHands : public Hands {
 public:
  /// Pictures are saved in the folder; without one none are taken.
  WindowHands(WindowThread& thread, User& user, std::optional<std::string> pictures)
      : thread_(thread), user_(user), pictures_(std::move(pictures)) {}

  /// Has the host do something; see Stage::atHost.
  void atHost(std::function<void()> work);

  void openPage(std::int32_t view) override;
  void press(const std::string& bar, const std::string& button) override;
  void askChanges(const std::string& bar) override;
  void clickButton(const std::string& button) override;
  void type(const std::string& box, const std::string& text) override;
  void choose(const std::string& combo, const std::string& code) override;
  void tick(const std::string& check, bool on) override;
  void selectRow(const std::string& grid, std::int32_t row) override;
  void edit(const std::string& grid, std::int32_t row, const std::string& field,
            const Value& value) override;
  void tickCell(const std::string& grid, std::int32_t row, const std::string& field) override;
  void tickAll(const std::string& grid, const std::string& field, bool on) override;
  void sort(const std::string& grid, const std::string& field) override;
  void find(const std::string& grid, const std::string& text, const std::string& field) override;
  void findNext(const std::string& grid, bool backwards) override;
  std::string copy(const std::string& grid, CopiedPart part) override;
  std::string copySheet(const std::string& sheet, bool asFile) override;
  void lookup(const std::string& box) override;
  void lookupCell(const std::string& grid, std::int32_t row, const std::string& field) override;
  void details(const std::string& grid, std::int32_t row) override;
  void chooseFromRowMenu(const std::string& grid, std::int32_t row,
                         const std::string& entry) override;
  void pressNotice(const std::string& text) override;
  void pressKeys(const std::vector<std::string>& keys) override;
  void refresh() override;
  bool isFocused(const std::string& control) override;
  void interrupt() override;
  void activateWindow() override;
  void windowOpened(std::int32_t number) override;
  void toFront(std::int32_t number) override;
  void takePicture(const std::string& name) override;
  void takePictureOfNext(const std::string& name) override { nextPicture_ = name; }
  /// Whether a picture of the next box is still to be taken.
  bool wantsNextPicture() const { return pictures_ && !nextPicture_.empty(); }

  ControlView look(const std::string& control, const RowRange& rows) override;
  std::string value(const std::string& control) override;
  std::string cellText(const std::string& grid, std::int32_t row,
                       const std::string& field) override;
  std::vector<ItemView> notices() override;
  std::string tickState(const std::string& grid, const std::string& field) override;
  bool isButtonEnabled(const std::string& bar, const std::string& button) override;

 private:
  /// The window in front; StepError when there is none.
  HWND front() const;
  WindowReader reader() const { return WindowReader(front()); }
  /// A control of the kind on which a person could act now; StepError when it is not.
  windows::Inspection reachable(const std::string& name, const std::string& kind,
                                const char* kindInWords) const;
  /// The same, and it is not locked.
  windows::Inspection changeable(const std::string& name, const std::string& kind,
                                 const char* kindInWords) const;
  windows::Inspection item(const std::string& control, const std::string& key,
                           const char* itemInWords) const;
  /// A cell brought into sight.
  windows::Inspection cellInSight(const std::string& grid, std::int32_t row,
                                  const std::string& field);
  void bringRowIntoSight(const windows::Inspection& grid, std::int32_t row);
  HWND focus() const;
  /// Presses or releases Ctrl, perhaps with Shift.
  void holdControl(bool shift, bool down);
  void pressWithControl(HWND window, WPARAM key, bool shift);
  /// Answers the file dialog that a gesture opens; the text of the file that is written.
  std::string savedBy(const std::function<void()>& gesture);
  void goToCell(const std::string& grid, std::int32_t row, const std::string& field);
  /// Waits until the window is idle; the user answers message boxes and lists meanwhile.
  void settle();
  void keepPicture(HWND window, const std::string& name);
  /// The picture that takePictureOfNext asked for.
  void keepNextPicture(HWND window);

  WindowThread& thread_;
  User& user_;
  std::optional<std::string> pictures_;
  std::string nextPicture_;               ///< the name to keep the next box under; "" for none
  std::map<std::int32_t, HWND> windows_;  ///< by the host's number
  std::set<HWND> others_;                 ///< of those, the ones that the user does not work in
};

}  // namespace kebu::workbench
