#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "workbench/engine/binding/binding_context.h"
#include "workbench/engine/binding/scope.h"

namespace kebu::engine {

/// A query made into SQLite's language.
struct BoundQuery {
  struct Column {
    std::string name;
    SqlType type;
    bool nullable = true;
    std::string baseColumn;  ///< the table's column, when it is one and nothing else
  };
  std::vector<Column> columns;
  std::string sql;  ///< gives the columns as c1, c2, … and, if asked for and there is one, kb_row
  bool plain = false;      ///< may stand in a UNION as it is
  bool singleRow = false;  ///< it gives one row, whatever the tables hold
  TablePtr base;           ///< the one table whose rows these are, with kb_row
};

/// Makes SELECT, VALUES and their unions into SQLite's language.
class QueryBinder {
 public:
  explicit QueryBinder(BindingContext& context) : context_(context) {}

  /// `withRow`: adds the row's id, when the rows are those of one table.
  BoundQuery query(const ast::Query& node, const Scope* outer, bool withRow = false);
  /// A query within another one. SqlError 1033 when it has an order that nothing depends on.
  BoundQuery inner(const ast::Query& node, const Scope* outer);
  /// The columns of a select list, each with its name; "" for none.
  std::vector<Scope::Column> items(const ast::Select& node, const Scope& scope);

 private:
  BoundQuery select(const ast::Select& node, const ast::Query& whole, const Scope* outer,
                    bool withRow);
  BoundQuery values(const ast::Values& node, const Scope* outer);
  BoundQuery setOperation(const ast::SetOperation& node, const Scope* outer);
  std::string orderBy(const ast::Query& node, const std::vector<BoundQuery::Column>& columns,
                      const std::vector<Scope::Column>& items, bool distinct, const Scope& scope);

  BindingContext& context_;
};

/// The query with its columns brought to these types.
BoundQuery convertedTo(const std::vector<SqlType>& types, BoundQuery query);
/// The name under which a bound query gives a column.
std::string columnName(std::size_t index);

}  // namespace kebu::engine
