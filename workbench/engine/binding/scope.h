#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "workbench/engine/binding/bound.h"
#include "workbench/engine/catalogue/catalogue.h"
#include "workbench/engine/syntax/ast.h"
#include "workbench/engine/values/sql_error.h"

namespace kebu::engine {

/// What the expressions of one SELECT are checked with, and what was found in them.
struct SelectFindings {
  enum class Clause { From, Where, GroupBy, Rows };

  Clause clause = Clause::Rows;        ///< which is being bound; aggregates may stand in Rows
  bool inAggregate = false;            ///< an argument of an aggregate is being bound
  bool aggregated = false;             ///< there is an aggregate, so that the rows are groups
  std::vector<std::string> groups;     ///< the expressions of GROUP BY
  std::vector<std::string> ungrouped;  ///< columns found outside of aggregates and groups

  bool isGroup(const std::string& sql) const;
  /// Notes that an expression is what GROUP BY names: the columns found in it are grouped.
  void group(const std::string& sql, std::size_t ungroupedBefore);
};
/// SQL in which the values that come with every run are not told apart.
std::string withoutPlaces(const std::string& sql);

/// What a name may refer to in one SELECT, UPDATE, … and, through `outer`, in those around it.
struct Scope {
  using Column = std::pair<std::string, Bound>;

  /// A table, view, derived table, … with its columns.
  struct Member {
    std::string alias;
    std::string table;  ///< also refers to it, when there is no alias
    std::vector<Column> columns;
    TablePtr base;  ///< the table itself, when it is one
    std::string sqliteAlias;

    const std::string& name() const { return alias.empty() ? table : alias; }
  };

  std::vector<Member> members;
  const Scope* outer = nullptr;
  SelectFindings* findings = nullptr;  ///< of the SELECT that the scope belongs to
};

/// The column that a name refers to; it is noted in the findings of its SELECT. SqlError 207, 209
/// or 4104 when there is not exactly one.
Bound resolveColumn(const Scope& scope, const ast::Column& column);

SqlError unknownColumn(const std::string& name);

}  // namespace kebu::engine
