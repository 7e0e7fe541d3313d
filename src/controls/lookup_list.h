#pragma once

#include <cstdint>
#include <optional>
#include <string>
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
  /// The first row whose code or description begins with `typed`, case aside.
  std::optional<std::int32_t> search(const std::string& typed) const;

  /// The gesture; GestureRefused when there is no such row.
  void choose(std::int32_t row);
  /// The code of the chosen row; nothing when the list was left without choosing.
  std::optional<Value> chosen() const;

 private:
  std::string title_;
  std::vector<std::string> captions_;
  std::vector<RowValues> rows_;
  std::int32_t chosen_ = 0;
};

}  // namespace kebu::controls
