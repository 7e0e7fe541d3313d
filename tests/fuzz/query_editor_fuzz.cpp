// Conditions as a user enters them in a query editor: each line is a field, an operator and values,
// with tabs between them. What is composed of them always runs, and finds the rows that it should
// find. A saved filter comes back as it was; the input as a saved filter is read or refused.

#include <algorithm>
#include <vector>

#include "common/convert.h"
#include "common/query_condition.h"
#include "controls/query_operators.h"
#include "controls/saved_filter.h"
#include "sql/query_predicate.h"
#include "tests/forms/filter_oracle.h"
#include "tests/fuzz/fuzz_target.h"
#include "workbench/engine/execution/database.h"
#include "workbench/engine/execution/session.h"

namespace {

using namespace kebu;
using namespace kebu::tests;

struct Field {
  QueryColumn column;
  std::size_t place;  ///< in a row of the table
};

constexpr Field fields[] = {
    {{"MG66_COD", false}, 0}, {{"MG66_DESCR", false}, 1}, {{"MG66_STATO", true}, 2}};

constexpr QueryOperator operators[] = {
    QueryOperator::Any,   QueryOperator::Equal,  QueryOperator::Different,
    QueryOperator::Range, QueryOperator::Starts, QueryOperator::Contains,
    QueryOperator::OneOf, QueryOperator::Empty,  QueryOperator::NotEmpty,
};

using Row = std::vector<workbench::StoredValue>;

const std::vector<Row>& rows() {
  static const std::vector<Row> all = {
      {"A1", "Vernice", "0"},         {"a2", "O'Neil", "1"},   {"B_3", "100% [x]", "-5"},
      {"", std::nullopt, "12"},       {"C", "", std::nullopt}, {"MG66_", "MG66_COD", "99999"},
      {"E", "perche'", "2147483647"},
  };
  return all;
}

engine::Session& session() {
  static engine::Session made = [] {
    auto database = engine::Database::createInMemory();
    engine::Session filling(database);
    filling.execute(
        "CREATE TABLE MG66 (MG66_COD nvarchar(20) NULL, MG66_DESCR nvarchar(30) NULL, "
        "MG66_STATO int NULL)");
    for (const Row& row : rows()) {
      std::string values;
      for (const workbench::StoredValue& cell : row) {
        std::string text = "NULL";
        if (cell) {
          text = "'";
          for (const char c : *cell) text += c == '\'' ? "''" : std::string(1, c);
          text += '\'';
        }
        values += (values.empty() ? "" : ", ") + text;
      }
      filling.execute("INSERT INTO MG66 VALUES (" + values + ")");
    }
    return engine::Session(database);
  }();
  return made;
}

std::vector<std::string> split(std::string_view text, char separator) {
  std::vector<std::string> parts;
  while (true) {
    const std::size_t end = text.find(separator);
    parts.emplace_back(text.substr(0, end));
    if (end == std::string_view::npos) return parts;
    text.remove_prefix(end + 1);
  }
}

/// The oracle compares plain characters only, and knows nothing of the order of texts.
bool isForOracle(const Field& field, const QueryCondition& condition) {
  if (condition.op == QueryOperator::Range && !field.column.isNumeric) return false;
  return std::ranges::all_of(condition.values, [](const std::string& value) {
    return std::ranges::all_of(value, [](char c) { return c >= ' ' && c < 127; });
  });
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view text = textOf(data, size);
  try {
    const auto conditions = controls::readFilter(text);
    require(controls::readFilter(controls::writeFilter(conditions)) == conditions,
            "a filter that was read is another one when it is stored");
  } catch (const RuntimeError& error) {
    require(error.number() == 5 || error.number() == 13, "a filter is refused with another error");
  }
  // What a user enters is text.
  if (!isUtf8(text) || text.find('\0') != std::string_view::npos) return 0;

  std::vector<std::string> predicates;
  std::vector<std::pair<const Field*, QueryCondition>> stated;
  std::vector<controls::SavedCondition> saved;
  for (const std::string& line : split(text, '\n')) {
    if (line.size() < 2) continue;
    const Field& field = fields[static_cast<unsigned char>(line[0]) % std::size(fields)];
    QueryCondition condition{operators[static_cast<unsigned char>(line[1]) % std::size(operators)],
                             split(std::string_view(line).substr(2), '\t')};
    if (condition.op != QueryOperator::OneOf) condition.values.resize(2);
    saved.push_back({std::string(field.column.name), condition});
    try {
      predicates.push_back(sql::composePredicate(field.column, condition));
    } catch (const RuntimeError& error) {
      require(error.number() == 13 && field.column.isNumeric,
              "a value is refused as it should not be");
      continue;
    }
    if (predicates.back().empty()) continue;
    if (condition.op == QueryOperator::OneOf) {
      std::erase(condition.values, "");
    } else {
      for (std::string& value : condition.values) value = trimRight(value);
    }
    stated.emplace_back(&field, std::move(condition));
  }
  require(controls::readFilter(controls::writeFilter(saved)) == saved,
          "a stored filter comes back as another one");

  std::size_t found = 0;
  try {
    found =
        session()
            .execute("SELECT MG66_COD FROM MG66 WHERE 1 = 1" + sql::composeConjunction(predicates))
            .front()
            .rows.size();
  } catch (const engine::SqlError& error) {
    broken("a composed condition does not run: " + error.description());
  }
  const bool areKnown = std::ranges::all_of(
      stated, [](const auto& each) { return isForOracle(*each.first, each.second); });
  if (!areKnown) return 0;
  std::size_t expected = 0;
  for (const Row& row : rows()) {
    const bool passes = std::ranges::all_of(stated, [&](const auto& each) {
      const auto& [field, condition] = each;
      return workbench::holds(row[field->place], field->column.isNumeric, condition);
    });
    expected += passes ? 1 : 0;
  }
  require(found == expected, "a condition finds other rows than it states");
  return 0;
}
