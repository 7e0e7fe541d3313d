#pragma once

#include <string>
#include <vector>

#include "workbench/engine/binding/binding_context.h"
#include "workbench/engine/binding/query_binder.h"
#include "workbench/engine/binding/scope.h"

namespace kebu::engine {

/// Makes what stands behind FROM into SQLite's language: tables, views, functions, derived
/// tables and joins.
class SourceBinder {
 public:
  explicit SourceBinder(BindingContext& context) : context_(context) {}

  /// The text behind FROM; its members join the scope.
  std::string source(const ast::Source& node, Scope& scope);
  /// A table with its columns, ready for UPDATE, DELETE and MERGE.
  Scope::Member member(const TablePtr& table, const std::string& alias);

 private:
  /// SqlError 1011 or 1013 when the scope has a member of the same name.
  static void add(Scope::Member member, Scope& scope);
  std::string table(const ast::TableRef& node, Scope& scope);
  std::string derived(const BoundQuery& inner, const std::string& alias,
                      const std::vector<std::string>& names, Scope& scope);
  std::string function(const ast::FunctionRef& node, Scope& scope);
  std::string join(const ast::Join& node, Scope& scope);
  std::string apply(const ast::Join& node, const std::string& left, Scope& scope);
  std::string applyBody(const ast::Query& body, const std::string& alias,
                        const std::vector<std::string>& names, bool outerJoin,
                        const std::string& left, Scope& scope, const Scope* visible);
  ModulePtr tableFunction(const ast::FunctionRef& node) const;
  Arguments arguments(const ast::FunctionRef& node, const Module& module, const Scope& scope);

  BindingContext& context_;
};

}  // namespace kebu::engine
