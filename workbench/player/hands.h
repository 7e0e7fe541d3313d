#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "common/value.h"
#include "workbench/player/control_view.h"

namespace kebu::workbench {

/// A range of grid rows, counted from 1. By default empty.
struct RowRange {
  std::int32_t first = 1;
  std::int32_t last = 0;
};

/// What of a grid is copied: the current cell, the current row, all rows, or all as a CSV file.
enum class CopiedPart { Cell, Row, All, Csv };

/// Makes a user's gestures in the window in front, and reads what it shows. Controls
/// are identified by name. StepError when a control does not exist or is of the wrong
/// kind, controls::GestureRefused when a person could not make the gesture.
class Hands {
 public:
  virtual ~Hands() = default;

  virtual void openPage(std::int32_t view) = 0;
  virtual void press(const std::string& bar, const std::string& button) = 0;
  /// Asks what "Conferma" of a navigator bar would change, with the arrow beside it.
  virtual void askChanges(const std::string& bar) = 0;
  virtual void clickButton(const std::string& button) = 0;
  virtual void type(const std::string& box, const std::string& text) = 0;
  virtual void choose(const std::string& combo, const std::string& code) = 0;
  virtual void tick(const std::string& check, bool on) = 0;
  virtual void selectRow(const std::string& grid, std::int32_t row) = 0;
  virtual void edit(const std::string& grid, std::int32_t row, const std::string& field,
                    const Value& value) = 0;
  virtual void tickCell(const std::string& grid, std::int32_t row, const std::string& field) = 0;
  virtual void tickAll(const std::string& grid, const std::string& field, bool on) = 0;
  /// Clicks on a column's head, which sorts the rows.
  virtual void sort(const std::string& grid, const std::string& field) = 0;
  /// Looks for a text, in one column or, for "", in all.
  virtual void find(const std::string& grid, const std::string& text, const std::string& field) = 0;
  virtual void findNext(const std::string& grid, bool backwards) = 0;
  /// Copies or exports a part of a grid; the text that comes out.
  virtual std::string copy(const std::string& grid, CopiedPart part) = 0;
  /// Copies the text of a sheet, or saves it in a file; the text that comes out.
  virtual std::string copySheet(const std::string& sheet, bool asFile) = 0;
  virtual void lookup(const std::string& box) = 0;
  virtual void lookupCell(const std::string& grid, std::int32_t row, const std::string& field) = 0;
  /// Asks for the details of a row, with the key for it.
  virtual void details(const std::string& grid, std::int32_t row) = 0;
  /// Chooses an entry of a row's context menu, by its caption without the key.
  virtual void chooseFromRowMenu(const std::string& grid, std::int32_t row,
                                 const std::string& entry) = 0;
  /// Presses the button of the first notice whose text contains `text`.
  virtual void pressNotice(const std::string& text) = 0;
  /// Presses keys, one right after the other: "F3" to "F11", "Ctrl+F1", "Ctrl+F10", "Enter", "Esc".
  /// Those that come while the window works are lost; one that means nothing now does nothing.
  virtual void pressKeys(const std::vector<std::string>& keys) = 0;
  /// Interrupts the work that the window is at. Called while a statement works, on any thread.
  virtual void interrupt() = 0;
  /// Reads again what the page shows, with the key for it.
  virtual void refresh() = 0;
  /// Whether the control was given the focus by the window.
  virtual bool isFocused(const std::string& control) = 0;
  virtual void activateWindow() = 0;
  /// The window in front is the host's window of that number.
  virtual void windowOpened(std::int32_t number) = 0;
  /// Brings that window to the front.
  virtual void toFront(std::int32_t number) = 0;
  /// Saves a picture of the window under that name. Does nothing without a screen.
  virtual void takePicture(const std::string& name) = 0;
  /// Saves a picture of the next message box or look-up list, before it is answered.
  virtual void takePictureOfNext(const std::string& name) = 0;

  /// `rows` is used for a grid.
  virtual ControlView look(const std::string& control, const RowRange& rows) = 0;
  /// The control's value: an edit box's text, a combo's code, a check box's 1 or 0.
  virtual std::string value(const std::string& control) = 0;
  virtual std::string cellText(const std::string& grid, std::int32_t row,
                               const std::string& field) = 0;
  /// The window's notices: their texts, with the captions of their buttons as marks.
  virtual std::vector<ItemView> notices() = 0;
  /// How many check cells of a column are ticked: "all", "some", "none".
  virtual std::string tickState(const std::string& grid, const std::string& field) = 0;
  virtual bool isButtonEnabled(const std::string& bar, const std::string& button) = 0;
};

/// The index of the first notice whose text contains `text`; StepError when there is none.
std::size_t noticeWith(const std::string& text, const std::vector<ItemView>& notices);

}  // namespace kebu::workbench
