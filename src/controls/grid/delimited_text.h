#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "controls/grid/grid_rows.h"
#include "controls/grid/grid_task.h"

namespace kebu::controls {

/// A way to write rows as lines of text. Lines end with CR and LF.
struct TextFormat {
  char separator;
  std::string_view start;  ///< before everything else
};

/// What spreadsheets take from the clipboard.
inline constexpr TextFormat clipboardFormat{'\t', ""};
/// What spreadsheets with Italian settings open: semicolons, since the comma is the decimal
/// separator, and a mark by which they know that it is UTF-8.
inline constexpr TextFormat csvFormat{';', "\xEF\xBB\xBF"};

/// A cell, in quotes where it contains the separator, a quote or a line end.
std::string quotedCell(std::string_view text, char separator);

/// Writes rows with the heads of the columns that the user sees.
class RowsAsText final : public GridTask {
 public:
  /// `rows` are written in this order; `write` is given the text in pieces.
  RowsAsText(GridRows& source, std::vector<std::int32_t> rows, const TextFormat& format,
             std::function<void(std::string_view piece)> write);

  bool work() override;
  Progress progress() const override {
    return {static_cast<std::int64_t>(written_), static_cast<std::int64_t>(rows_.size())};
  }

 private:
  GridRows& source_;
  std::vector<std::int32_t> rows_;
  TextFormat format_;
  std::function<void(std::string_view)> write_;
  std::vector<std::size_t> columns_;
  std::size_t written_ = 0;
  bool hasHeads_ = false;
};

}  // namespace kebu::controls
