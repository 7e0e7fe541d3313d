#pragma once

#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "common/value.h"
#include "workbench/engine/binding/bound.h"
#include "workbench/engine/catalogue/catalogue.h"
#include "workbench/engine/syntax/ast.h"
#include "workbench/engine/values/sql_error.h"

namespace kebu::engine {

/// A variable of a batch or procedure.
struct Variable {
  SqlType type;
  Value value;  ///< empty for a parameter that was given none
};

using Variables = std::map<std::string, Variable>;

/// A value that a statement takes when it runs: a literal of the batch or a variable.
struct Slot {
  int literal = -1;
  std::string variable;
  SqlType type;
};

/// The bound arguments of a function, by the parameters' upper-case names.
using Arguments = std::map<std::string, Bound>;

/// What the binders of one statement share: the catalogue, the names that are known beside
/// it, and the values that the statement takes.
class BindingContext {
 public:
  BindingContext(const Catalogue& catalogue, int session, const Variables& variables)
      : catalogue_(catalogue), session_(session), variables_(variables) {}

  const Catalogue& catalogue() const { return catalogue_; }
  /// SqlError 208 when there is none.
  TablePtr table(const ast::ObjectName& name) const;

  /// The place of a literal that comes with every run.
  Bound literalSlot(int literal, const SqlType& type);
  /// A variable, parameter or @@function. SqlError 137 when there is none.
  Bound variable(const std::string& name, std::string_view at);
  /// The values that the text refers to as ?1, ?2, …
  const std::vector<Slot>& slots() const { return slots_; }
  /// A name for SQLite that no other table of the statement has.
  std::string nextAlias() { return "s" + std::to_string(++aliases_); }

  /// The common table expression of the name, or null.
  const ast::Cte* cte(const std::string& name) const;

  /// Adds common table expressions to those that are known, until its end.
  class CteScope {
   public:
    CteScope(BindingContext& context, const std::vector<ast::Cte>& ctes);
    CteScope(const CteScope&) = delete;
    CteScope& operator=(const CteScope&) = delete;
    ~CteScope() { context_.ctes_ = std::move(outer_); }

   private:
    BindingContext& context_;
    std::map<std::string, ast::Cte> outer_;
  };

  /// Until its end, names are those in the text of a view or function: its own parameters
  /// are known, the batch's variables and common table expressions are not.
  class ModuleScope {
   public:
    ModuleScope(BindingContext& context, const Arguments& arguments);
    ModuleScope(const ModuleScope&) = delete;
    ModuleScope& operator=(const ModuleScope&) = delete;
    ~ModuleScope();

   private:
    BindingContext& context_;
    const Arguments* outerArguments_;
    std::map<std::string, ast::Cte> outerCtes_;
  };

 private:
  Bound slot(Slot wanted);

  const Catalogue& catalogue_;
  int session_;
  const Variables& variables_;
  const Arguments* arguments_ = nullptr;  ///< null outside of a view or function
  std::map<std::string, ast::Cte> ctes_;
  std::vector<Slot> slots_;
  int aliases_ = 0;
};

SqlError unknownObject(const ast::ObjectName& name);

}  // namespace kebu::engine
