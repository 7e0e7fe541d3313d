#pragma once

#include <optional>
#include <string>
#include <vector>

#include "controls/record_frame.h"

namespace kebu::controls {

/// A fixed choice: rows of a code and a caption. Bound, it edits a column with
/// the chosen code.
class ComboBox : public OfKind<ControlKind::ComboBox, BoundControl> {
 public:
  struct Row {
    Value code;
    std::string caption;
  };

  using OfKind::OfKind;

  void clear() { setRows({}); }
  /// These rows and no others; nothing is chosen.
  void setRows(std::vector<Row> rows);
  void addRow(Value code, std::string caption);
  const std::vector<Row>& rows() const { return rows_; }
  /// Whether views show the code beside the caption.
  bool showsCodes() const { return showsCodes_; }
  void setShowsCodes(bool shows) { showsCodes_ = shows; }

  /// The chosen row; null when none is. Valid until the rows change.
  const Row* selected() const { return selected_ ? &rows_[*selected_] : nullptr; }
  /// The chosen code as text; "" when none is.
  std::string text() const { return selected_ ? toText(rows_[*selected_].code) : ""; }
  /// The caption of the row of that code; "" when there is none.
  std::string captionOf(const Value& code) const;
  /// Chooses the row of that code; one without a row leaves the combo unselected.
  void select(const Value& code);
  /// Shows a stored code. A code without a row gets one, which is removed when
  /// another is chosen: a stored value that is not offered any more is not lost.
  void setText(const std::string& code);
  Value value() const override { return selected_ ? rows_[*selected_].code : Value(Null{}); }
  void show(const Value& stored) override { select(stored); }

  /// The gesture; GestureRefused when no row has that code.
  void choose(const std::string& code);

  Event<> GotFocus;
  /// The chosen row may be another one, by the user or by the record.
  Event<> ChangeRow;
  /// The user chose.
  Event<> AfterItem;

 private:
  std::optional<std::size_t> rowOf(const Value& code) const;

  std::vector<Row> rows_;
  std::optional<std::size_t> selected_;
  bool hasAddedRow_ = false;  ///< the last row was added by setText
  bool showsCodes_ = true;
};

}  // namespace kebu::controls
