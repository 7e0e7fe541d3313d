#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "common/row_values.h"
#include "sql/discount_kinds.h"
#include "sql/keys.h"

namespace kebu::sql {

/// Drops the working table of a discount mode when it exists.
std::string EliminaTabellaSconti(const std::string& table);

/// Makes the working table from the kind's stored rules, ticked ones first.
std::string CaricaRegole(const std::string& table, const Company& company,
                         const DiscountKind& kind);

/// The rows of a working table made by CaricaRegole, in the order in which they were copied.
std::string RigheRegole(const std::string& table);

/// Ticks or clears all rows of a working table, or ticks one.
std::string SelezionaTutte(const std::string& table, bool selected);
std::string SelezionaRiga(const std::string& table, const std::string& id);

/// Deletes the stored rules of a mode and list type.
std::string EliminaRegole(const Company& company, DiscountMode mode, const std::string& listType);

/// The ticked rows of a working table.
std::string RegoleSelezionate(const std::string& table, const DiscountKind& kind);

/// A step of a discount grid: from which quantity on, and what it gives.
struct RuleStep {
  Decimal from;
  Decimal value;
};

/// What all rules of one save have in common: numbers, and the day as "yyyymmdd".
struct RuleOptions {
  Value struckThroughPrices;
  Value noOtherDiscounts;
  Value singleUse;
  Value application;
  std::string today;
};

/// Writes rows of a kind's working table as rules. What a row's column means
/// is settled once, so that a row costs little more than its text.
class RuleStatements {
 public:
  using Row = RowValues;

  /// `columns` are the working table's, in the order of the rows' values.
  RuleStatements(Company company, const DiscountKind& kind, const std::vector<std::string>& columns,
                 const RuleOptions& options);

  /// The row's value; nothing where the working table lacks the column.
  const Value& value(const Row& row, std::string_view column) const;
  /// The price list that the row comes from.
  const DiscountSource& source(const Row& row) const;

  /// The quantity steps that the price list has for the row, by ascending quantity.
  std::string LeggiScaglioni(const Row& row) const;
  /// Stores the row as a rule; `steps` are for discount grids, ten at the most.
  /// The text stands until the next one is asked for.
  const std::string& InserisciRegola(const Row& row, const std::vector<RuleStep>& steps);

 private:
  enum class Form;
  struct SavedColumn;
  /// A value of the INSERT that rows differ by: what stands before it, how it is
  /// written, and from where in the row.
  struct Piece {
    std::string before;
    Form form;
    std::size_t index;
  };
  static const SavedColumn savedColumns[];

  Form formOf(const SavedColumn& column) const;
  /// What is the same in all rows; nothing where they differ.
  static std::optional<std::string> constantOf(Form form, const RuleOptions& options);
  std::size_t indexOf(std::string_view column) const;
  static const Value& at(const Row& row, std::size_t index);
  const Value& publishedValue(const Row& row) const;

  const DiscountKind& kind_;
  Company company_;
  std::map<std::string, std::size_t, std::less<>> columns_;
  std::vector<Piece> pieces_;
  std::string tail_;
  std::string insert_;          ///< the last INSERT's text
  std::size_t columnsEnd_ = 0;  ///< in it, where the values begin
  // Where a row has what decides on the value published.
  std::size_t type_ = 0;
  std::size_t field_ = 0;
  std::size_t discount_ = 0;
  std::size_t listPrice_ = 0;
  std::size_t netPrice_ = 0;
};

}  // namespace kebu::sql
