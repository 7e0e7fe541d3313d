#pragma once

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "workbench/engine/binding/bound.h"
#include "workbench/engine/catalogue/catalogue.h"
#include "workbench/engine/syntax/ast.h"
#include "workbench/engine/values/sql_error.h"

namespace kebu::engine {

/// A value that a statement takes when it runs: a literal of the batch or a variable.
struct Slot {
  int literal = -1;
  std::string variable;
  SqlType type;
};

/// What a name may refer to in one SELECT, UPDATE, … and, around it, in the next outer one.
struct Scope {
  struct Member {
    std::string alias;
    std::string table;  ///< also refers to it, when there is no alias
    std::vector<std::pair<std::string, Bound>> columns;
    TablePtr base;
    std::string sqliteAlias;
  };
  std::vector<Member> members;
  const Scope* outer = nullptr;
};

struct BoundQuery {
  struct Column {
    std::string name;
    SqlType type;
    bool nullable = true;
    std::string baseColumn;
  };
  std::vector<Column> columns;
  std::string sql;  ///< gives the columns as c1, c2, … and, if asked for and there is one, kb_row
  bool plain = false;  ///< may stand in a UNION as it is
  TablePtr base;       ///< the one table whose rows these are, with kb_row
};

/// A variable of a batch or procedure.
struct Variable {
  SqlType type;
  Value value;  ///< empty for a parameter that was given none
};

using Variables = std::map<std::string, Variable>;

/// Binds expressions and queries to the catalogue: names become columns, every
/// expression gets its type, and the text for SQLite is made. Errors are
/// SqlErrors: 208 and 207 for unknown objects and columns.
class Binder {
 public:
  Binder(const Catalogue& catalogue, int session, const Variables& variables)
      : catalogue_(catalogue), session_(session), variables_(variables) {}

  Bound expression(const ast::Expr& expr, const Scope& scope);
  std::string condition(const ast::Expr& expr, const Scope& scope);
  /// `withRow`: adds the row's id, when the rows are those of one table.
  BoundQuery query(const ast::Query& node, const Scope* outer, bool withRow = false);
  /// The text behind FROM; its members join the scope.
  std::string source(const ast::Source& node, Scope& scope);
  /// A table with its columns, ready for UPDATE, DELETE and MERGE.
  Scope::Member member(const TablePtr& table, const std::string& alias);
  /// SqlError 208 when there is none.
  TablePtr table(const ast::ObjectName& name) const;

  /// The values that the text refers to as ?1, ?2, …
  const std::vector<Slot>& slots() const { return slots_; }
  std::string nextAlias() { return "s" + std::to_string(++aliases_); }
  /// The bound query with its columns brought to these types.
  BoundQuery converted(BoundQuery query, const std::vector<SqlType>& types);

 private:
  friend class Builtins;
  using Arguments = std::map<std::string, Bound>;
  /// The frame in which a view's or function's text is bound: its own names only.
  class ModuleFrame;

  Bound literal(const ast::Literal& node);
  Bound variable(const std::string& name, std::string_view at);
  Bound column(const ast::Column& node, std::string_view at, const Scope& scope);
  Bound caseValue(const ast::Case& node, const Scope& scope);
  Bound call(const ast::Call& node, std::string_view at, const Scope& scope);
  Bound aggregate(const ast::Call& node, const Scope& scope);
  std::string window(const ast::Over& over, const Scope& scope);
  std::string in(const ast::In& node, const Scope& scope);
  std::string orderList(const std::vector<ast::OrderItem>& items, const Scope& scope);
  Bound slot(Slot wanted);

  BoundQuery select(const ast::Select& node, const ast::Query& whole, const Scope* outer,
                    bool withRow);
  BoundQuery values(const ast::Values& node, const Scope* outer);
  BoundQuery setOperation(const ast::SetOp& node, const Scope* outer);
  std::vector<std::pair<std::string, Bound>> items(const ast::Select& node, const Scope& scope);
  std::string orderBy(const ast::Query& node, const std::vector<BoundQuery::Column>& columns,
                      const Scope& scope);

  std::string tableSource(const ast::TableRef& node, std::string_view at, Scope& scope);
  std::string derived(const BoundQuery& inner, const std::string& alias,
                      const std::vector<std::string>& names, Scope& scope);
  std::string joinSource(const ast::Join& join, Scope& scope);
  std::string apply(const ast::Join& join, const std::string& left, Scope& scope);
  std::string applyBody(const ast::Query& body, const std::string& alias,
                        const std::vector<std::string>& names, bool outerJoin,
                        const std::string& left, Scope& scope, const Scope* visible);
  ModulePtr tableFunction(const ast::FunctionRef& node) const;
  Arguments arguments(const ast::FunctionRef& node, const Module& module, const Scope& scope);

  const Catalogue& catalogue_;
  int session_;
  const Variables& variables_;
  const Arguments* arguments_ = nullptr;
  std::map<std::string, ast::Cte> ctes_;
  std::vector<Slot> slots_;
  int aliases_ = 0;
  bool sawAggregate_ = false;
};

SqlError unknownObject(const ast::ObjectName& name);
SqlError unknownColumn(const std::string& name);

}  // namespace kebu::engine
