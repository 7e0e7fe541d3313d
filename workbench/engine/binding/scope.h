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

/// What was found in a SELECT besides its columns.
struct SelectFindings {
  bool aggregated = false;  ///< it has an aggregate function, so that its rows are groups
};

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

/// The column that a name refers to. SqlError 207, 209 or 4104 when there is not exactly one.
Bound resolveColumn(const Scope& scope, const ast::Column& column);

SqlError unknownColumn(const std::string& name);

}  // namespace kebu::engine
