#pragma once

#include <map>

#include "controls/form.h"
#include "controls/notice_list.h"
#include "controls/query_grid.h"
#include "workbench/player/hands.h"
#include "workbench/player/model_desktop.h"

namespace kebu::workbench {

/// Hands that act on the control models of the window in front.
class ModelHands : public Hands {
 public:
  explicit ModelHands(ModelDesktop& desktop) : desktop_(desktop) {}

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
  void refresh() override { window().refreshPage(); }
  bool isFocused(const std::string& name) override;
  void interrupt() override { desktop_.interruptSoon(); }
  void activateWindow() override;
  void windowOpened(std::int32_t number) override { windows_[number] = desktop_.front(); }
  void toFront(std::int32_t number) override;
  void takePicture(const std::string& /*name*/) override {}
  void takePictureOfNext(const std::string& /*name*/) override {}

  ControlView look(const std::string& name, const RowRange& rows) override;
  std::string value(const std::string& name) override;
  std::string cellText(const std::string& grid, std::int32_t row,
                       const std::string& field) override;
  std::vector<ItemView> notices() override;
  std::string tickState(const std::string& grid, const std::string& field) override;
  bool isButtonEnabled(const std::string& bar, const std::string& button) override;

 private:
  void pressKey(const std::string& key);
  controls::Form& window() const;
  controls::Control& control(const std::string& name) const;
  /// The window's notices; null when it has no place for them.
  controls::NoticeList* noticeList() const;
  /// The control of that name and kind. `kind` names the kind in the error, such as "a button".
  template <class Kind>
  Kind& require(const std::string& name, const char* kind) const;
  /// The row at a place of a grid, as the user counts.
  std::int32_t rowAt(const std::string& grid, std::int32_t place) const;
  static std::size_t columnOf(controls::QueryGrid& grid, const std::string& field);

  ModelDesktop& desktop_;
  std::map<std::int32_t, controls::Form*> windows_;  ///< by the host's number
};

}  // namespace kebu::workbench
