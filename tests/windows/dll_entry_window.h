#pragma once

#include <string>
#include <vector>

#include "tests/values/entry_window.h"
#include "tests/windows/dll_host.h"
#include "tests/windows/import_patch.h"
#include "workbench/windows/window_reader.h"

namespace kebu::tests {

/// Enters values in the DLL's own window, as a person who pastes them.
class DllEntryWindow : public EntryWindow {
 public:
  /// The host has opened the window, and outlives this.
  explicit DllEntryWindow(DllHost& host);

  void openPage(std::int32_t view) override;
  void refresh() override;
  std::vector<std::string> boxes() override;
  std::string text(const std::string& box) override;
  Outcome type(const std::string& box, const std::string& text) override;
  bool choose(const std::string& combo, const std::string& code) override;
  bool press(const std::string& bar, const std::string& button) override;
  bool click(const std::string& button) override;
  Outcome edit(const std::string& grid, std::int32_t row, const std::string& field,
               const std::string& text) override;
  void chooseInCell(const std::string& grid, std::int32_t row, const std::string& field,
                    std::int16_t value) override;
  void tickCell(const std::string& grid, std::int32_t row, const std::string& field) override;
  std::string cell(const std::string& grid, std::int32_t row, const std::string& field) override;
  std::string stored(const std::string& query) override;

  /// The messages and beeps since the window was opened.
  std::size_t told() const;

  /// Replaces the text of an edit control that has the focus by one that is pasted, and tells what
  /// the control shows then. A text ends where the clipboard's does, at a zero character.
  static std::string paste(HWND edit, const std::string& text);

 private:
  static workbench::WindowReader reader() { return workbench::WindowReader(shownForm()); }
  void goToCell(const std::string& grid, std::int32_t row, const std::string& field);

  DllHost& host_;
  ImportPatch beeps_;
};

}  // namespace kebu::tests
