#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

#include "common/value.h"
#include "workbench/engine/values/operators.h"
#include "workbench/engine/values/types.h"

namespace kebu::engine::ast {

// The tree of a batch. Nodes do not change after parsing and may be shared. The string views
// refer to the text of the batch, which must outlive the tree.

struct Expr;
struct Query;
struct Source;
struct Statement;
using ExprPtr = std::shared_ptr<const Expr>;
using QueryPtr = std::shared_ptr<const Query>;
using SourcePtr = std::shared_ptr<const Source>;
using StatementPtr = std::shared_ptr<const Statement>;

/// A name of one or more parts; `at` is its last token.
struct ObjectName {
  std::vector<std::string> parts;
  std::string_view at;
  const std::string& last() const { return parts.back(); }
};

struct Literal {
  SqlType type;
  Value value;
  int slot = -1;  ///< its place among the batch's literals; -1 when the value is here
};
struct Variable {
  std::string name;
};
struct Column {
  std::vector<std::string> parts;
};
struct Negative {
  ExprPtr operand;
};
struct Arithmetic {
  ArithmeticOperator op;
  ExprPtr left, right;
};
struct Comparison {
  ComparisonOperator op;
  ExprPtr left, right;
};
struct Not {
  ExprPtr operand;
};
/// Conditions joined by AND, or by OR. A chain is one node, however long it is.
struct Logical {
  LogicalOperator op;
  std::vector<ExprPtr> operands;
};
struct When {
  ExprPtr condition, result;
};
struct Case {
  std::vector<When> branches;
  ExprPtr otherwise;
};
struct OrderItem {
  ExprPtr expr;
  bool descending = false;
};
struct Over {
  std::vector<ExprPtr> partitionBy;
  std::vector<OrderItem> orderBy;
};
struct Call {
  std::string name;    ///< upper case
  std::string schema;  ///< as written; "" for none, as built-in functions are called
  std::vector<ExprPtr> args;
  bool star = false;
  bool distinct = false;
  std::optional<Over> over;
};
struct Cast {
  ExprPtr operand;
  SqlType type;
  int style = 0;
};
struct In {
  ExprPtr operand;
  std::vector<ExprPtr> list;
  QueryPtr query;
};
struct Like {
  ExprPtr operand, pattern, escape;
};
struct IsNull {
  ExprPtr operand;
};
struct Exists {
  QueryPtr query;
};
struct Subquery {
  QueryPtr query;
};

struct Expr {
  std::string_view at;
  std::variant<Literal, Variable, Column, Negative, Arithmetic, Comparison, Not, Logical, Case,
               Call, Cast, In, Like, IsNull, Exists, Subquery>
      node;
};

struct TableRef {
  ObjectName name;
  std::string alias;
};
struct Derived {
  QueryPtr query;
  std::string alias;
  std::vector<std::string> columns;
};
struct FunctionRef {
  ObjectName name;
  std::vector<ExprPtr> args;
  std::string alias;
};
/// Those up to Full have a condition.
enum class JoinKind { Inner, Left, Right, Full, Cross, CrossApply, OuterApply };
struct Join {
  JoinKind kind;
  SourcePtr left, right;
  ExprPtr on;
};
struct Source {
  std::string_view at;
  std::variant<TableRef, Derived, FunctionRef, Join> node;
};

struct SelectItem {
  ExprPtr expr;        ///< null for a star
  std::string starOf;  ///< the alias before ".*"
  std::string alias;
  std::string variable;  ///< SELECT @x = expr
  std::string_view at;
};
struct Select {
  bool distinct = false;
  ExprPtr top;
  std::vector<SelectItem> items;
  std::optional<ObjectName> into;
  SourcePtr from;
  ExprPtr where;
  std::vector<ExprPtr> groupBy;
  ExprPtr having;
};
struct Values {
  std::vector<std::vector<ExprPtr>> rows;
};
struct SetOperation {
  SetOperator op;
  QueryPtr left, right;
};
struct Cte {
  std::string name;
  std::vector<std::string> columns;
  QueryPtr query;
};
struct Query {
  std::string_view at;
  std::vector<Cte> ctes;
  std::variant<Select, Values, SetOperation> body;
  std::vector<OrderItem> orderBy;
};

struct Assignment {
  std::string column;
  ExprPtr value;
  std::string_view at;
};  ///< a null value is DEFAULT

struct Declaration {
  std::string name;
  SqlType type;
  ExprPtr value;
};
struct Declare {
  std::vector<Declaration> variables;
};
struct SetVariable {
  std::string name;
  ExprPtr value;
};
struct SetIdentityInsert {
  ObjectName table;
  bool on;
};
struct SetXactAbort {
  bool on;
};
struct Insert {
  ObjectName table;
  std::vector<std::string> columns;
  QueryPtr query;  ///< null for DEFAULT VALUES; DEFAULT in its VALUES is a null expression
};
struct Update {
  ObjectName table;
  std::vector<Assignment> set;
  SourcePtr from;
  ExprPtr where;
};
struct Delete {
  ObjectName table;
  SourcePtr from;
  ExprPtr where;
};
struct MergeBranch {
  enum class When { Matched, NotMatchedByTarget, NotMatchedBySource } when;
  enum class Action { Update, Delete, Insert } action;
  ExprPtr condition;
  std::vector<Assignment> set;
  std::vector<std::string> columns;
  std::vector<ExprPtr> values;
};
struct Merge {
  ObjectName table;
  std::string alias;
  SourcePtr source;
  ExprPtr on;
  std::vector<MergeBranch> branches;
};
struct ColumnDef {
  std::string name;
  SqlType type;
  std::optional<bool> nullable;
  bool identity = false;
  std::int64_t seed = 1;
  std::string defaultText;  ///< the expression as it was written
};
struct KeyDef {
  std::vector<std::string> columns;
  bool primary = true;
};
struct CreateTable {
  ObjectName name;
  std::vector<ColumnDef> columns;
  std::vector<KeyDef> keys;
};
struct CreateIndex {
  std::string name;
  ObjectName table;
  std::vector<OrderItem> columns;
  bool unique = false;
};
enum class ModuleKind { View, Procedure, TableFunction, ScalarFunction };
enum class ObjectKind { Table, View, Procedure, Function, Index };
struct CreateModule {
  ModuleKind kind = ModuleKind::View;
  ObjectName name;
  std::string_view text;
  bool alter = false;
};
struct Drop {
  ObjectKind kind = ObjectKind::Table;
  std::vector<ObjectName> names;
  bool ifExists = false;
};
struct Truncate {
  ObjectName table;
};
struct Argument {
  std::string name;
  ExprPtr value;
};  ///< no value: DEFAULT
struct Exec {
  ObjectName procedure;
  std::vector<Argument> args;
};
struct Block {
  std::vector<StatementPtr> statements;
};
struct If {
  ExprPtr condition;
  StatementPtr then, otherwise;
};
struct While {
  ExprPtr condition;
  StatementPtr body;
};
struct Return {
  ExprPtr value;
};
struct Break {};
struct Continue {};
struct Raise {
  ExprPtr message;
  bool endsBatch = false;  ///< THROW
};
struct Nothing {};  ///< without effect here: PRINT, SET NOCOUNT, …

struct Statement {
  std::string_view at;
  std::variant<Declare, SetVariable, SetIdentityInsert, SetXactAbort, QueryPtr, Insert, Update,
               Delete, Merge, CreateTable, CreateIndex, CreateModule, Drop, Truncate, Exec, Block,
               If, While, Return, Break, Continue, Raise, Nothing>
      node;
};

template <class Node>
StatementPtr makeStatement(std::string_view at, Node node) {
  return std::make_shared<const Statement>(Statement{at, std::move(node)});
}

struct Parameter {
  std::string name;
  SqlType type;
  ExprPtr defaultValue;
};
/// The parsed text of a view, procedure or function.
struct Module {
  ModuleKind kind = ModuleKind::View;
  ObjectName name;
  std::vector<std::string> columns;  ///< of a view, when it names them
  std::vector<Parameter> parameters;
  SqlType returns;
  QueryPtr query;     ///< of a view or inline function
  StatementPtr body;  ///< of a procedure or scalar function
};

}  // namespace kebu::engine::ast
