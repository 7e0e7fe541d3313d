#pragma once

#include <cstdint>
#include <map>
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

/// The statements by which rows of a kind's working table become stored rules.
class RuleStatements {
 public:
  using Row = RowValues;

  /// `columns` are the working table's, in the order of the rows' values.
  RuleStatements(Company company, const DiscountKind& kind, const std::vector<std::string>& columns,
                 RuleOptions options);

  /// The row's value; nothing where the working table lacks the column.
  const Value& value(const Row& row, std::string_view column) const;
  /// The price list that the row comes from.
  const DiscountSource& source(const Row& row) const;

  /// Reads the quantity steps that the price list has for the row, by ascending quantity.
  std::string LeggiScaglioni(const Row& row) const;
  /// Inserts the row into GM61_KBDISCOUNTRULES; `steps` are for discount grids, of which the first
  /// ten are written.
  std::string InserisciRegola(const Row& row, const std::vector<RuleStep>& steps) const;

 private:
  const Value& publishedValue(const Row& row) const;

  const DiscountKind& kind_;
  Company company_;
  RuleOptions options_;
  std::map<std::string, std::size_t, std::less<>> columns_;
};

}  // namespace kebu::sql
