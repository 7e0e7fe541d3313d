// The part of GridControl that finds how wide its columns must be. A column's stated width is taken
// for granted only for texts: a head, a code and a number are never cut.

#include <algorithm>

#include "windows/support/text.h"
#include "windows/views/grid/grid_control.h"

namespace kebu::windows {

using controls::ColumnKind;

namespace {

// In 96ths of an inch.
constexpr int cellPadding = 16;
constexpr int glyph = 14;
constexpr int widestCell = 260;

/// Texts may be cut, which the column's stated width is for.
bool mustBeWhole(ColumnKind kind) {
  return isNumeric(kind) || kind == ColumnKind::Lookup || kind == ColumnKind::ValueList;
}

}  // namespace

/// Measures many texts of one font.
class TextRuler {
 public:
  explicit TextRuler(HFONT font) : before_(SelectObject(screen_, font)) {}
  ~TextRuler() {
    SelectObject(screen_, before_);
    ReleaseDC(nullptr, screen_);
  }
  TextRuler(const TextRuler&) = delete;
  TextRuler& operator=(const TextRuler&) = delete;

  int widthOf(const std::string& text) const {
    const std::wstring wide = toWide(text);
    SIZE size{};
    GetTextExtentPoint32W(screen_, wide.c_str(), static_cast<int>(wide.size()), &size);
    return static_cast<int>(size.cx);
  }

 private:
  HDC screen_ = GetDC(nullptr);
  HGDIOBJ before_;
};

void GridControl::measureColumns() {
  const std::size_t count = source_.columns().size();
  const std::int32_t rows = source_.rowCount();
  if (needed_.size() != count || measuredRows_ != rows) {
    needed_.assign(count, 0);
    measuredRows_ = rows;
  }
  const TextRuler heads(theme_->strong());
  const TextRuler cells(theme_->font());
  // Columns grow with what is put into them, and do not move to and fro with it.
  for (std::size_t i = 0; i < count; ++i) {
    needed_[i] =
        std::max({needed_[i], headNeeds(source_.columns()[i], heads), cellsNeed(i, cells)});
  }
}

int GridControl::headNeeds(const GridSource::Column& column, const TextRuler& ruler) const {
  if (column.caption.empty()) return 0;
  const int box = column.kind == ColumnKind::Check ? theme_->px(16 + 5) : 0;
  return box + ruler.widthOf(column.caption) + theme_->px(cellPadding);
}

int GridControl::cellsNeed(std::size_t column, const TextRuler& ruler) const {
  const ColumnKind kind = source_.columns()[column].kind;
  if (!mustBeWhole(kind)) return 0;
  int widest = 0;
  const std::int32_t last = std::min(source_.rowCount(), topRow_ + visibleRows());
  for (std::int32_t row = topRow_; row <= last; ++row) {
    const std::string text = source_.cellText(row, column);
    if (!text.empty()) widest = std::max(widest, ruler.widthOf(text));
  }
  if (widest == 0) return 0;
  const bool showsGlyph = kind == ColumnKind::Lookup || kind == ColumnKind::ValueList;
  const int whole = widest + theme_->px(cellPadding + (showsGlyph ? glyph : 0));
  return std::min(whole, theme_->px(widestCell));
}

}  // namespace kebu::windows
