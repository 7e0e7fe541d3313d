#pragma once

#include "controls/query_grid.h"
#include "windows/views/controls/view.h"
#include "windows/views/grid/grid_control.h"

namespace kebu::windows {

/// A query grid: its model is what the grid control shows and acts on.
class QueryGridView : public View, private GridSource {
 public:
  QueryGridView(ViewSite& site, controls::QueryGrid& model, HWND parent);

  HWND handle() const override { return grid_.handle(); }
  void refresh() override;
  void applyTheme() override { grid_.themeChanged(); }
  std::function<void()> actionFor(const Key& key) override;
  bool commit() override { return grid_.commit(); }
  PartId partAt(POINT point) override { return grid_.partAt(point); }
  bool goToPart(const PartId& part) override { return grid_.goToPart(part); }

 protected:
  void describe(Inspection& inspection) override;
  bool describePart(Inspection& inspection) override;

 private:
  const std::vector<Column>& columns() const override { return columns_; }
  std::int32_t rowCount() const override { return model_.rowCount(); }
  std::int32_t currentRow() const override { return tools().placeOf(model_.currentRow()); }
  std::string cellText(std::int32_t row, std::size_t column) override;
  std::vector<std::string> itemsOf(std::int32_t row, std::size_t column) override;
  bool isEnabled() const override { return looksEnabled(); }
  bool isLocked(std::int32_t row, std::size_t column) override;
  controls::TickState tickState(std::size_t column) override {
    return model_.tickState(fieldOf(column));
  }
  bool isUnused(std::int32_t row, std::size_t column) override;
  std::string warningOf(std::int32_t row, std::size_t column) override;
  bool keepsRowState() const override { return !model_.rowStateField().empty(); }
  int rowState(std::int32_t row) override;
  void selectRow(std::int32_t row) override { model_.selectRow(rowAt(row)); }
  void edit(std::int32_t row, std::size_t column, const std::string& text) override;
  void choose(std::int32_t row, std::size_t column, std::size_t item) override;
  void empty(std::int32_t row, std::size_t column) override;
  void tick(std::int32_t row, std::size_t column) override;
  void tickAll(std::size_t column, bool on) override { model_.tickAll(fieldOf(column), on); }
  void lookup(std::int32_t row, std::size_t column) override;
  controls::Menu rowMenu() override;

  controls::GridTools& tools() override { return model_.tools(); }
  const controls::GridTools& tools() const { return model_.tools(); }
  std::string title() const override;
  void tell(const std::string& text) override { model_.tell(text); }
  Describable* description() override { return this; }

  /// What a row's mark means, in words; "" for a row without one.
  std::string stateInWords(std::int32_t row);
  /// The model's row at a place on the screen.
  std::int32_t rowAt(std::int32_t place) const { return tools().rowAt(place); }
  void readColumns();
  std::string fieldOf(std::size_t column) const { return model_.columns().at(column).field; }
  /// The column that a part is of; columns().size() when there is none.
  std::size_t columnOf(const Inspection& inspection) const;

  controls::QueryGrid& model_;
  std::vector<Column> columns_;
  GridControl grid_;
  Subscription moves_;
};

}  // namespace kebu::windows
