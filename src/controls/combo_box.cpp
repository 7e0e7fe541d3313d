#include "controls/combo_box.h"

#include <utility>

#include "common/convert.h"
#include "controls/control_host.h"

namespace kebu::controls {

void ComboBox::setRows(std::vector<Row> rows) {
  rows_ = std::move(rows);
  hasAddedRow_ = false;
  selected_.reset();
  changed.raise();
}

void ComboBox::addRow(Value code, std::string caption) {
  rows_.push_back({std::move(code), std::move(caption)});
  changed.raise();
}

std::string ComboBox::captionOf(const Value& code) const {
  const auto row = rowOf(code);
  return row ? rows_[*row].caption : "";
}

void ComboBox::select(const Value& code) {
  selected_ = rowOf(code);
  if (hasAddedRow_ && selected_ != rows_.size() - 1) {
    rows_.pop_back();
    hasAddedRow_ = false;
  }
  ChangeRow.raise();
  changed.raise();
}

void ComboBox::setText(const std::string& code) {
  select(code.empty() ? Value(Null{}) : Value(code));
  if (code.empty() || selected_) return;
  rows_.push_back({code, code});
  hasAddedRow_ = true;
  select(code);
}

void ComboBox::choose(const std::string& code) {
  const Gesture gesture(gestureHost());
  requireChangesAccepted();
  const auto row = rowOf(code);
  if (!row) throw GestureRefused(Name() + " has no entry \"" + code + "\"");
  GotFocus.raise();
  if (row == selected_ || !writeToRecord(rows_[*row].code)) return;
  select(rows_[*row].code);
  AfterItem.raise();
}

std::optional<std::size_t> ComboBox::rowOf(const Value& code) const {
  // An empty variant equals 0, but a column without a value chooses nothing.
  if (code.isEmpty() || code.isNull()) return std::nullopt;
  for (std::size_t i = 0; i < rows_.size(); ++i) {
    if (equalAsVariants(rows_[i].code, code)) return i;
  }
  return std::nullopt;
}

}  // namespace kebu::controls
