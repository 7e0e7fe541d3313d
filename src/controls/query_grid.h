#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <set>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "ado/recordset.h"
#include "controls/control.h"
#include "controls/control_host.h"
#include "controls/grid/grid_tools.h"
#include "controls/menu.h"
#include "controls/row_cache.h"

namespace kebu::controls {

enum class ColumnKind {
  Text,         ///< shown, not edited
  Number,       ///< edited as a number
  Figure,       ///< a number that is shown, not edited
  Check,        ///< a flag, 1 or 0
  ValueList,    ///< a code shown by its caption
  Lookup,       ///< a code with a look-up
  Description,  ///< decoded from a code; has no field of its own. For grids of few rows
};

/// Whether the user changes cells of such a column at all.
constexpr bool isChangeable(ColumnKind kind) {
  return kind != ColumnKind::Text && kind != ColumnKind::Figure && kind != ColumnKind::Description;
}

/// Whether its cells are numbers, which line up at their right.
constexpr bool isNumeric(ColumnKind kind) {
  return kind == ColumnKind::Number || kind == ColumnKind::Figure;
}

/// How many check cells of a column are ticked.
enum class TickState { None, Some, All };

struct ValueListItem {
  std::int32_t code = 0;
  std::string_view caption;
};

/// A column, as written in a table of constants.
struct GridColumn {
  std::string_view field = {};
  std::string_view caption = {};
  std::int32_t width = 0;  ///< twips; 0 for a hidden column, whose value list others borrow
  ColumnKind kind = ColumnKind::Text;
  std::span<const ValueListItem> items = {};  ///< of a value list
  std::string_view lookup = {};               ///< the name of a code's look-up
  bool refusesAll = false;  ///< a check column whose cells are not set all at once
};

/// Rows of a recordset in columns. Rows are read in blocks, when one of their cells
/// is asked for; every edit is written to the recordset at once. Rows count from 1.
class QueryGrid : public OfKind<ControlKind::QueryGrid>, private GridRows {
 public:
  using Items = std::vector<std::pair<std::int32_t, std::string>>;
  struct Column {
    std::string field;
    std::string caption;
    std::int32_t width = 0;
    ColumnKind kind = ColumnKind::Text;
    Items items;
    std::string lookup;
    bool refusesAll = false;
  };

  QueryGrid(std::string name, ControlHost& host);

  void clearColumns();
  /// Captions and value lists pass through `translator`.
  void addColumn(const GridColumn& definition, const Translator& translator);
  const std::vector<Column>& columns() const { return columns_; }
  /// The column that identifies a row; its cells are not edited.
  void setKeyField(const std::string& field) { keyField_ = field; }
  /// The column whose value marks a row's state (1 in order, 2 incomplete).
  void setRowStateField(const std::string& field) { rowStateField_ = field; }
  const std::string& rowStateField() const { return rowStateField_; }

  /// Shows these rows; null for none.
  void setDataSource(const Ref<ado::Recordset>& rows);
  const Ref<ado::Recordset>& dataSource() const { return rows_; }
  /// Runs the statement of the rows again and shows its result. An error leaves the
  /// rows that the recordset has then.
  void requery();
  /// Reads the rows shown again.
  void refresh();

  /// Sorting, finding and copying. Rows keep their numbers in any order.
  GridTools& tools() { return tools_; }
  /// Puts a message to the user, in Italian.
  void tell(const std::string& text);

  std::int32_t rowCount() const override { return cache_.rowCount(); }
  /// Writes cells of the current row to the recordset at once; an error leaves
  /// the row as it was.
  void write(const std::vector<std::pair<std::string, Value>>& cells);

  /// 0 when there is no current row.
  std::int32_t currentRow() const override;
  /// The value of a field, shown in a column or not; empty for an unknown field.
  /// RuntimeError 3021 when there is no such row.
  Value cell(std::int32_t row, std::string_view field);
  /// The text shown in a cell: check cells as "1" or "0", codes by their captions.
  /// `index` counts columns() from 0.
  std::string cellText(std::int32_t row, std::size_t index);
  /// Whether the user cannot edit the cell.
  bool isLocked(std::int32_t row, const Column& column);
  /// The value list of a cell: the one that it borrows, or else its column's, also
  /// when there is no such row.
  const Items& itemsOf(std::int32_t row, const Column& column);
  /// Null when no column holds the row's state.
  Value rowState(std::int32_t row);
  /// The caption that stands for a column; a code shares that of its description.
  std::string captionOf(std::string_view field) const;
  /// Shows another value than the recordset's in a cell. It is stored with the next edit of the
  /// row, and forgotten when other rows are shown.
  void showInstead(std::int32_t row, const std::string& field, const Value& value);
  /// The code that a description cell belongs to was looked for and not found. For handlers of
  /// DataFormatEXT.
  void markUnknown(std::int32_t row, const std::string& field) { unknown_.insert({row, field}); }
  bool isUnknown(std::int32_t row, const std::string& field) const {
    return unknown_.contains({row, field});
  }
  /// Shown in place of a description that was not found.
  const std::string& unknownText() const { return unknownText_; }
  void translate(const Translator& translator) override;
  /// Whether the row has no use for the cell, which is drawn grey.
  bool isUnused(std::int32_t row, const std::string& field) const {
    return cellUnused && cellUnused(row, field);
  }

  /// Of the check cells of a column, as they are shown.
  TickState tickState(const std::string& field);
  /// How many check cells of a column are ticked.
  std::int32_t tickedRows(const std::string& field);

  /// Tells the state of a row, when it follows from the row's other cells.
  std::function<Value(std::int32_t row)> rowStateOf;
  /// Tells which cells a row has no use for.
  std::function<bool(std::int32_t row, const std::string& field)> cellUnused;

  /// Tells which editable cells of a row are locked now.
  std::function<bool(std::int32_t row, const std::string& field)> cellLocked;

  /// What the user can do with a row besides editing its cells, for its context menu; a caption may
  /// end with a tab and the name of a key.
  std::function<Menu(std::int32_t row)> rowMenu;
  /// Tells the user in words what the current row stands for.
  std::function<void()> showDetails;

  /// The gestures. GestureRefused for a cell that does not exist or cannot be
  /// edited that way; a cell whose edit a handler refuses stays as it is.
  void selectRow(std::int32_t row) override;
  void edit(std::int32_t row, const std::string& field, const Value& value);
  void tickCell(std::int32_t row, const std::string& field);
  void tickAll(const std::string& field, bool on);
  void lookup(std::int32_t row, const std::string& field);
  void details(std::int32_t row);
  /// Chooses an entry of the row's context menu, by its caption without the key.
  void choose(std::int32_t row, std::string_view entry);

  /// Another row is the current one, or none.
  Event<> RowChanged;
  /// Editing of a cell of the current row begins; the flag refuses it.
  Event<const std::string&, bool&> OnEditing;
  /// A cell of the current row was edited and stored.
  Event<const std::string&> OnEdited;
  /// A check cell of the current row is clicked, its value still the old one.
  Event<const std::string&, bool&> SelectionBoxClick;
  /// All check cells of a column are about to be set; the flag refuses it.
  Event<const std::string&, bool, bool&> SelectAllClickEXT;
  /// The text of a description cell is wanted: row, field, text to fill in.
  Event<std::int32_t, const std::string&, std::string&> DataFormatEXT;
  /// The value list of a cell is wanted: row, field, and the column to fill in from
  /// which the cell borrows its list.
  Event<std::int32_t, const std::string&, std::string&> GetCellRenderColumn;
  /// The look-up of a code cell: field, and the code to fill in (empty: none chosen).
  Event<const std::string&, Value&> StartLookup;

 private:
  std::size_t columnCount() const override { return columns_.size(); }
  std::string field(std::size_t column) const override { return columns_.at(column).field; }
  bool isShown(std::size_t column) const override { return columns_.at(column).width > 0; }
  std::string head(std::size_t column) const override;
  std::vector<Value> cells(std::size_t column, std::int32_t first, std::int32_t count) override;
  std::string writtenText(std::int32_t row, std::size_t column) override;

  const Column* findColumn(std::string_view field) const;
  const Column& requireCell(std::int32_t row, const std::string& field);
  /// Writes a cell as the user's doing; false when it was not stored.
  bool store(const std::string& field, const Value& value);
  void commit(const std::string& field, const Value& value);
  void formatDescriptions();

  ControlHost& host_;
  std::vector<Column> columns_;
  std::string keyField_;
  std::string rowStateField_;
  std::string unknownText_ = "Codice non trovato";
  Ref<ado::Recordset> rows_;
  RowCache cache_;
  /// The texts of the description cells, row by row. They are made when the
  /// rows change and not when they are drawn, since each may cost a statement.
  std::vector<std::vector<std::string>> descriptions_;
  /// Cells by row and field.
  std::set<std::pair<std::int32_t, std::string>> unknown_;
  std::map<std::pair<std::int32_t, std::string>, Value> shownInstead_;
  /// Found out since the rows changed, by column.
  std::map<std::string, std::int32_t> tickedRows_;
  GridTools tools_;
};

}  // namespace kebu::controls
