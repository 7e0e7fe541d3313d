#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "common/value.h"
#include "workbench/engine/values/types.h"

namespace kebu::engine::ast {

// The tree of a batch. Nodes are immutable once parsed and may be shared; the
// views refer to the batch's text, which its owner keeps.

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
  int slot = -1;          ///< place among the batch's literals, when they are lifted out of it
  bool nullable = false;  ///< a parameter's value, which may be NULL in another run
};
struct Variable {
  std::string name;
};
struct Column {
  std::vector<std::string> parts;
};
struct Unary {
  std::string op;
  ExprPtr operand;
};  ///< "-", "not"
struct Binary {
  std::string op;
  ExprPtr left, right;
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
  std::string name;  ///< upper case
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
  std::variant<Literal, Variable, Column, Unary, Binary, Case, Call, Cast, In, Like, IsNull, Exists,
               Subquery>
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
  ExprPtr expr;        ///< none for a star
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
struct SetOp {
  std::string op;
  QueryPtr left, right;
};  ///< union, union all, except, intersect
struct Cte {
  std::string name;
  std::vector<std::string> columns;
  QueryPtr query;
};
struct Query {
  std::string_view at;
  std::vector<Cte> ctes;
  std::variant<Select, Values, SetOp> body;
  std::vector<OrderItem> orderBy;
};

struct Assignment {
  std::string column;
  ExprPtr value;
  std::string_view at;
};  ///< no value: DEFAULT

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
struct Insert {
  ObjectName table;
  std::vector<std::string> columns;
  QueryPtr query;  ///< none: DEFAULT VALUES; a null expression in VALUES: DEFAULT
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
struct CreateModule {
  ModuleKind kind;
  ObjectName name;
  std::string_view text;
  bool alter = false;
};
struct Drop {
  std::string kind;
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
struct LoopExit {
  bool again;
};  ///< CONTINUE or BREAK
struct Raise {
  ExprPtr message;
};
struct Nothing {};  ///< PRINT, SET NOCOUNT and the like

struct Statement {
  std::string_view at;
  std::variant<Declare, SetVariable, SetIdentityInsert, QueryPtr, Insert, Update, Delete, Merge,
               CreateTable, CreateIndex, CreateModule, Drop, Truncate, Exec, Block, If, While,
               Return, LoopExit, Raise, Nothing>
      node;
};

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
