#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "ado/recordset.h"
#include "common/convert.h"
#include "common/nulls.h"
#include "sql/discount_rules.h"

namespace kebu::forms {

/// Reads the steps of a rule. A step's value is the discount; for a rule of net
/// prices it is the price, less the discount if the rule says so.
class StepReader {
 public:
  using Row = sql::RuleStatements::Row;

  StepReader(const sql::RuleStatements& statements, const Row& row)
      : prefix_(statements.source(row).prefix()) {
    const auto number = [&](const char* column) {
      return toInt32(CDecN(statements.value(row, column)));
    };
    isPrice_ = number("GM61_TIPOGRIGLIASCONTO") == netPriceByQuantity;
    isNet_ = number("GM61_CAMPOCORVANE") != 0;
  }

  std::vector<sql::RuleStep> read(ado::Recordset& rows) const {
    std::vector<sql::RuleStep> steps;
    if (rows.EOF_()) return steps;
    const auto& fields = rows.fields();
    const std::size_t from = ado::requireIndex(fields, prefix_ + "_DAQTA");
    const std::size_t discount = ado::requireIndex(fields, prefix_ + "_SC1PER");
    const std::size_t price = ado::requireIndex(fields, prefix_ + "_PREZZO");
    for (const Row& step : rows.GetRows(stepsOfARule)) {
      steps.push_back({number(step[from]), valueOf(number(step[price]), number(step[discount]))});
    }
    return steps;
  }

 private:
  static constexpr std::int32_t stepsOfARule = 10;
  static constexpr std::int32_t netPriceByQuantity = 2;

  static Decimal number(const Value& value) { return toDecimal(CDecN(value)); }

  Decimal valueOf(const Decimal& price, const Decimal& discount) const {
    if (!isPrice_) return discount;
    return isNet_ ? price - price / Decimal(100) * discount : price;
  }

  std::string prefix_;
  bool isPrice_ = false;
  bool isNet_ = false;
};

}  // namespace kebu::forms
