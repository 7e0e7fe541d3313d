#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "controls/check_box.h"
#include "controls/query_grid.h"
#include "forms/anagrafica/discounts/stored_rules.h"
#include "forms/anagrafica/progress_display.h"
#include "forms/changes/planned_changes.h"
#include "forms/page_context.h"
#include "sql/discount_kinds.h"

namespace kebu::forms {

/// The names that one mode of the discount rules has for its controls, procedures and columns.
struct DiscountModeNames;

/// One mode of the discount rules: its rows in a grid, the check box that
/// switches it on, and the working table of the rows. The modes differ in names
/// only.
class DiscountGrid {
 public:
  DiscountGrid(PageContext& context, ProgressDisplay& progress, sql::DiscountMode mode);

  controls::CheckBox check;
  controls::QueryGrid grid;
  /// Which of the rows are stored.
  StoredRules stored;

  sql::DiscountMode mode() const { return mode_; }
  bool isOn() const { return check.isTicked(); }
  const Ref<ado::Recordset>& rows() const { return grid.dataSource(); }

  /// The working table's name; "" before the first load.
  const std::string& table() const { return table_; }
  /// Gives the working table a new unique name.
  void renameTable();

  /// Sets up the grid's columns for a kind of this mode: ImpostaQGRID_SCONTOSUPREZZO
  /// and ImpostaQGRID_SCONTOSUGRIGLIA.
  void Imposta(const sql::DiscountKind& kind);
  /// Shows no rows.
  void empty() { grid.setDataSource(nullptr); }

  /// A rule as people call it: its name and what it is recognised by.
  std::string nameOf(const sql::RuleStatements& statements, const RowValues& row) const;
  /// A column of a stored rule as people read it; `rule` is the whole rule.
  ReadColumn readColumn(std::string_view column, const Value& value,
                        const std::vector<sql::SavedValue>& rule) const;

  /// The user changed something that is saved.
  Event<> Modified;
  /// The current row's date of the last save, when it has one.
  Event<const Date&> LastUpdate;

 private:
  void OnEditing();
  void OnEdited();
  void SelectionBoxClick(const std::string& field);
  void RowChanged();
  void GetCellRenderColumn(std::int32_t row, const std::string& field, std::string& lender);
  /// The column whose list edits the cell.
  std::string GetNodeEdit(std::int32_t row, const std::string& field);
  void SelectAllClickEXT(bool selecting, bool& cancel);
  void CheckClick();
  /// Tells in a message what the current row stands for.
  void showDetails();
  controls::Menu rowMenu(std::int32_t row);
  /// Makes the row a net price by quantity from the net price of its list. The list of its field
  /// offers the prices only while the rule is a discount on the amount.
  void takeNetPrice(std::int32_t row);
  bool isLocked(std::int32_t row, const std::string& field);
  /// Whether the row holds a text that breaks the statement which stores the rule.
  bool hasQuote(std::int32_t row);
  /// Tells of the current row, whose tick is being changed, when it cannot be stored.
  void tellOfQuote();
  /// The given name of a procedure: "QGRID_SCONTOSUPREZZO" and then "_OnEdited".
  std::string eventName(const char* event) const { return grid.Name() + event; }

  const DiscountModeNames& names_;
  sql::DiscountMode mode_;
  PageContext& context_;
  ProgressDisplay& progress_;
  std::string table_;
  const sql::DiscountKind* kind_ = nullptr;  ///< that the grid is set up for
};

}  // namespace kebu::forms
