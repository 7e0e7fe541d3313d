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

/// Creates the working table: the kind's stored rules from GM61_KBDISCOUNTRULES, ticked ones first.
std::string CaricaRegole(const std::string& table, const Company& company,
                         const DiscountKind& kind);

/// Reads a working table made by CaricaRegole, in the order in which the rules were copied; the
/// rows can be edited.
std::string RigheRegole(const std::string& table);

/// Ticks (`selected`) or clears all rows of a working table.
std::string SelezionaTutte(const std::string& table, bool selected);
/// Ticks one row of a working table by its GM61_ID.
std::string SelezionaRiga(const std::string& table, const std::string& id);

/// Deletes the company's stored rules of a mode and list type from GM61_KBDISCOUNTRULES.
std::string EliminaRegole(const Company& company, DiscountMode mode, const std::string& listType);

/// Reads the kind's ticked rows of a working table.
std::string RegoleSelezionate(const std::string& table, const DiscountKind& kind);

/// A step of a discount grid.
struct RuleStep {
  Decimal from;   ///< the quantity from which on it holds
  Decimal value;  ///< a discount in percent, or a price
};

/// What the user chose for all rules of one save.
struct RuleOptions {
  Value struckThroughPrices;  ///< GM61_FLGPRZBARRATI, 0 or 1
  Value noOtherDiscounts;     ///< GM61_FLGNONTRATTAREALTRISC, 0 or 1
  Value singleUse;            ///< GM61_FLGMONOUSO, 0 or 1
  Value application;          ///< GM61_INDREGOLEINCLUSIONE, 1 includes and 2 excludes
  std::string today;          ///< GM61_DATAULTAGG, as "yyyymmdd"
};

/// A column of a stored rule, and the value that a save writes into it.
struct SavedValue {
  std::string_view column;
  Value value;
};

/// What is written into a column of a stored rule.
enum class SavedContent : std::uint8_t;

/// The columns whose texts the INSERT of the kind takes as they stand: a quote in one breaks it.
std::vector<std::string_view> testiRegola(const DiscountKind& kind);

/// The statements by which rows of a kind's working table become stored rules.
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

  /// Reads the quantity steps of the row from its price list, by ascending quantity.
  std::string LeggiScaglioni(const Row& row) const;
  /// Reads the rows of its price list that the row may have come from: those with its customer,
  /// article, families and dates, as far as it has them.
  std::string LeggiOrigine(const Row& row) const;
  /// Inserts the row into GM61_KBDISCOUNTRULES; `steps` are for discount grids, of which the first
  /// ten are written.
  std::string InserisciRegola(const Row& row, const std::vector<RuleStep>& steps) const;
  /// What InserisciRegola stores in each column of the row, but for the key, the steps and the day
  /// of the save. The names are valid as long as this object.
  std::vector<SavedValue> savedValues(const Row& row) const;

 private:
  /// A value of the INSERT.
  struct WrittenValue {
    std::string_view column;
    SavedContent content;
    std::size_t index;  ///< of the row's value that it comes from
    std::string fixed;  ///< the text, when it is the same in all rows; else ""
  };

  std::size_t indexOf(std::string_view column) const;
  const Value& publishedValue(const Row& row) const;
  Value savedValue(const WrittenValue& written, const Row& row) const;

  const DiscountKind& kind_;
  Company company_;
  RuleOptions options_;
  std::map<std::string, std::size_t, std::less<>> columns_;
  std::string insert_;                       ///< the INSERT up to its first value
  std::vector<WrittenValue> values_;         ///< the INSERT's, in its order
  std::vector<std::string_view> unwritten_;  ///< the row's other columns, which are stored as NULL
};

}  // namespace kebu::sql
