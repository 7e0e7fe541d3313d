#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "ado/recordset.h"

namespace kebu::controls {

/// A list from which the user takes a row: titled columns over a recordset. The
/// first column is the code that is taken.
class LookupList {
 public:
  /// Reads all of `rows`.
  LookupList(std::string title, std::vector<std::string> captions, const Ref<ado::Recordset>& rows);

  const std::string& title() const { return title_; }
  const std::vector<std::string>& captions() const { return captions_; }
  std::int32_t rowCount() const { return static_cast<std::int32_t>(rows_.size()); }
  /// As people read it; `row` from 1, `column` from 0.
  std::string cellText(std::int32_t row, std::size_t column) const;
  /// The rows that contain `typed` somewhere in a column, case aside; all rows for "".
  std::vector<std::int32_t> matching(const std::string& typed) const;
  /// The row on which the list opens: that of the code that is chosen now, else the first one; 0
  /// when there are no rows.
  std::int32_t current() const { return current_; }
  void setCurrent(const std::string& code);

  /// What the list's window says.
  struct Texts {
    std::string search = "Cerca";
    std::string take = "Scegli";
    std::string leave = "Annulla";
    std::string nothingFound = "Nessun risultato";
  };
  const Texts& texts() const { return texts_; }
  void setTexts(Texts texts) { texts_ = std::move(texts); }

  /// The gesture; GestureRefused when there is no such row.
  void choose(std::int32_t row);
  /// The code of the chosen row; nothing when the list was left without choosing.
  std::optional<Value> chosen() const;

 private:
  std::string title_;
  std::vector<std::string> captions_;
  std::vector<RowValues> rows_;
  Texts texts_;
  std::int32_t current_ = 0;
  std::int32_t chosen_ = 0;
};

}  // namespace kebu::controls
