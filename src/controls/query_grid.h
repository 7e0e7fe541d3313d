#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "ado/recordset.h"
#include "controls/control.h"
#include "controls/control_host.h"
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

struct ValueListItem {
  std::int32_t code = 0;
  std::string_view caption;
};

/// A column as a table of constants states it.
struct GridColumn {
  std::string_view field;
  std::string_view caption;
  std::int32_t width = 0;  ///< twips; 0 for a column that is there for its list alone
  ColumnKind kind = ColumnKind::Text;
  const ValueListItem* items = nullptr;
  std::size_t itemCount = 0;
};

/// Rows of a recordset in columns. Cells are read as they are looked at; every
/// edit goes to the recordset at once.
class QueryGrid : public Control {
 public:
  using Items = std::vector<std::pair<std::int32_t, std::string>>;
  struct Column {
    std::string field;
    std::string caption;
    std::int32_t width = 0;
    ColumnKind kind = ColumnKind::Text;
    Items items;
  };

  QueryGrid(std::string name, ControlHost& host);

  static bool includes(ControlKind kind) { return kind == ControlKind::QueryGrid; }
  ControlKind kind() const override { return ControlKind::QueryGrid; }

  void clearColumns();
  /// Captions and value lists pass through `translator`.
  void addColumn(const GridColumn& definition, const Translator& translator);
  const std::vector<Column>& columns() const { return columns_; }
  void setKeyField(const std::string& field) { keyField_ = field; }
  const std::string& keyField() const { return keyField_; }
  /// The column whose value marks a row's state (1 in order, 2 incomplete).
  void setRowStateField(const std::string& field) { rowStateField_ = field; }
  const std::string& rowStateField() const { return rowStateField_; }

  /// Nothing takes the rows away.
  void setDataSource(const Ref<ado::Recordset>& rows);
  const Ref<ado::Recordset>& dataSource() const { return rows_; }
  /// Runs the statement of the rows again and shows what it gives.
  void requery();
  /// Reads anew what is shown.
  void refresh();

  std::int32_t rowCount() const { return cache_.rowCount(); }
  /// Writes cells of the current row to the recordset at once; an error leaves
  /// the row as it was.
  void write(const std::vector<std::pair<std::string, Value>>& cells);

  /// The current row, from 1; 0 without one.
  std::int32_t currentRow() const;
  Value cell(std::int32_t row, std::string_view field);
  /// What a person reads there: check cells as "1" or "0", codes by their captions.
  /// `index` among columns().
  std::string cellText(std::int32_t row, std::size_t index);
  bool isLocked(std::int32_t row, const Column& column);
  /// The value list of a cell: its column's, or the one that it borrows. Where
  /// there is no such row the column's.
  const Items& itemsOf(std::int32_t row, const Column& column);
  /// Nothing when the row state is not kept or null.
  Value rowState(std::int32_t row);

  /// Tells which editable cells of a row are locked now.
  std::function<bool(std::int32_t row, const std::string& field)> cellLocked;

  /// The gestures. Rows count from 1. A cell that cannot be edited there
  /// raises GestureRefused; one that a handler refuses stays as it is.
  void selectRow(std::int32_t row);
  void edit(std::int32_t row, const std::string& field, const Value& value);
  void tickCell(std::int32_t row, const std::string& field);
  void tickAll(const std::string& field, bool on);
  void lookup(std::int32_t row, const std::string& field);

  Event<> RowChanged;
  /// Editing of a cell of the current row begins; the flag refuses it.
  Event<const std::string&, bool&> OnEditing;
  /// A cell of the current row was edited and stored.
  Event<const std::string&> OnEdited;
  /// A check cell of the current row is clicked, its value still the old one.
  Event<const std::string&, bool&> SelectionBoxClick;
  /// All check cells of a column are being set; the flag refuses it.
  Event<const std::string&, bool, bool&> SelectAllClickEXT;
  /// The text of a description cell is wanted: row, field, text to fill in.
  Event<std::int32_t, const std::string&, std::string&> DataFormatEXT;
  /// A value list cell is drawn or edited: row, field, and the column to fill in
  /// whose list it borrows.
  Event<std::int32_t, const std::string&, std::string&> GetCellRenderColumn;
  /// The look-up of a code cell: field, and the code to fill in (empty: none chosen).
  Event<const std::string&, Value&> StartLookup;

 private:
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
  Ref<ado::Recordset> rows_;
  RowCache cache_;
  /// The texts of the description cells, row by row. They are made when the
  /// rows change and not when they are drawn, since each may cost a statement.
  std::vector<std::vector<std::string>> descriptions_;
};

}  // namespace kebu::controls
