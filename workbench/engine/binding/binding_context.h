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
  /// A name for SQLite that no other table of the statement has. SqlError 8623 when there are
  /// more tables than a statement can have.
  std::string nextAlias();

  /// The common table expression of the name; -1 when none is visible. SqlError 253 when it is
  /// the one whose query is being bound.
  int cteIndex(const std::string& name) const;
  const ast::Cte& cte(int index) const { return *ctes_[static_cast<std::size_t>(index)]; }
  /// SqlError 8623 when the text for SQLite, which repeats parts, has grown beyond its limits.
  static void checkSize(const std::string& sql);

  /// Makes common table expressions visible until its end. SqlError 239 for two of one name.
  class CteScope {
   public:
    CteScope(BindingContext& context, const std::vector<ast::Cte>& ctes);
    CteScope(const CteScope&) = delete;
    CteScope& operator=(const CteScope&) = delete;
    ~CteScope() { context_.ctes_.resize(outer_); }

   private:
    BindingContext& context_;
    std::size_t outer_;
  };

  /// Until its end, names are those in the query of a common table expression: the ones
  /// before it are visible.
  class CteQuery {
   public:
    CteQuery(BindingContext& context, int index);
    CteQuery(const CteQuery&) = delete;
    CteQuery& operator=(const CteQuery&) = delete;
    ~CteQuery();

   private:
    BindingContext& context_;
    std::vector<const ast::Cte*> outer_;
    const ast::Cte* outerBound_;
  };

  /// Until its end, names are those in the text of a view or function: its own parameters
  /// are known, the batch's variables and common table expressions are not. SqlError 4429 for
  /// a view that contains itself, 217 for too many views within each other.
  class ModuleScope {
   public:
    ModuleScope(BindingContext& context, const Module& module, const Arguments& arguments);
    ModuleScope(const ModuleScope&) = delete;
    ModuleScope& operator=(const ModuleScope&) = delete;
    ~ModuleScope();

   private:
    BindingContext& context_;
    const Arguments* outerArguments_;
    std::vector<const ast::Cte*> outerCtes_;
  };

 private:
  Bound slot(Slot wanted);

  const Catalogue& catalogue_;
  int session_;
  const Variables& variables_;
  const Arguments* arguments_ = nullptr;  ///< null outside of a view or function
  std::vector<const ast::Cte*> ctes_;     ///< those visible, the innermost last
  const ast::Cte* boundCte_ = nullptr;    ///< whose query is being bound
  std::vector<const Module*> modules_;    ///< whose texts are being bound, the outermost first
  std::vector<Slot> slots_;
  std::map<std::pair<int, std::string>, std::size_t> places_;  ///< of literals and variables
  int aliases_ = 0;
};

SqlError unknownObject(const ast::ObjectName& name);

/// How many procedures, functions and views may be within each other.
constexpr std::size_t nestingLimit = 32;
SqlError nestedTooDeeply();

}  // namespace kebu::engine
