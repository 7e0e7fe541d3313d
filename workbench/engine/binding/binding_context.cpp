#include "workbench/engine/binding/binding_context.h"

#include <algorithm>

#include "common/convert.h"

namespace kebu::engine {
namespace {

SqlError outOfResources() {
  return {8623,
          "The query processor ran out of internal resources and could not produce a query plan. "
          "This is a rare event and only expected for extremely complex queries or queries that "
          "reference a very large number of tables or partitions. Please simplify the query."};
}

}  // namespace

SqlError nestedTooDeeply() {
  return {
      217,
      "Maximum stored procedure, function, trigger, or view nesting level exceeded (limit 32)."};
}

SqlError unknownObject(const ast::ObjectName& name) {
  std::string text;
  for (const auto& part : name.parts) text += (text.empty() ? "" : ".") + part;
  return {208, "Invalid object name '" + text + "'.", "42S02"};
}

TablePtr BindingContext::table(const ast::ObjectName& name) const {
  TablePtr table = catalogue_.table(name, session_);
  if (!table) throw unknownObject(name);
  return table;
}

Bound BindingContext::slot(Slot wanted) {
  const auto [found, isNew] =
      places_.emplace(std::pair(wanted.literal, wanted.variable), slots_.size() + 1);
  const SqlType type = wanted.type;
  if (isNew) slots_.push_back(std::move(wanted));
  return {"?" + std::to_string(found->second), type};
}

Bound BindingContext::literalSlot(int literal, const SqlType& type) {
  return slot({literal, {}, type});
}

Bound BindingContext::variable(const std::string& name, std::string_view at) {
  if (arguments_ != nullptr) {
    const auto found = arguments_->find(toUpperAscii(name));
    if (found != arguments_->end()) return found->second;
  } else {
    if (name == "@@ROWCOUNT" || name == "@@TRANCOUNT" || name == "@@ERROR")
      return slot({-1, name, SqlType::integer()});
    if (name == "@@IDENTITY") return slot({-1, name, SqlType::decimal(38, 0)});
    const auto found = variables_.find(name);
    if (found != variables_.end()) return slot({-1, name, found->second.type});
  }
  throw SqlError(137, "Must declare the scalar variable \"" + std::string(at) + "\".");
}

std::string BindingContext::nextAlias() {
  // Common table expressions and views that use each other twice double with every one.
  constexpr int most = 2000;
  if (++aliases_ > most) throw outOfResources();
  return "s" + std::to_string(aliases_);
}

void BindingContext::checkSize(const std::string& sql) {
  constexpr std::size_t longest = 1'000'000;
  if (sql.size() > longest) throw outOfResources();
}

int BindingContext::cteIndex(const std::string& name) const {
  for (std::size_t i = ctes_.size(); i-- > 0;) {
    if (equalsIgnoringCase(ctes_[i]->name, name)) return static_cast<int>(i);
  }
  if (boundCte_ != nullptr && equalsIgnoringCase(boundCte_->name, name)) {
    throw SqlError(253, "Recursive member of a common table expression '" + name +
                            "': recursive common table expressions are not known.");
  }
  return -1;
}

BindingContext::CteScope::CteScope(BindingContext& context, const std::vector<ast::Cte>& ctes)
    : context_(context), outer_(context.ctes_.size()) {
  for (const auto& cte : ctes) {
    const bool known = std::any_of(ctes.data(), &cte, [&](const ast::Cte& other) {
      return equalsIgnoringCase(other.name, cte.name);
    });
    if (known) {
      context_.ctes_.resize(outer_);
      throw SqlError(239,
                     "Duplicate common table expression name '" + cte.name + "' was specified.");
    }
    context_.ctes_.push_back(&cte);
  }
}

BindingContext::CteQuery::CteQuery(BindingContext& context, int index)
    : context_(context),
      outer_(context.ctes_),
      outerBound_(std::exchange(context.boundCte_, &context.cte(index))) {
  context_.ctes_.resize(static_cast<std::size_t>(index));
}

BindingContext::CteQuery::~CteQuery() {
  context_.ctes_ = std::move(outer_);
  context_.boundCte_ = outerBound_;
}

BindingContext::ModuleScope::ModuleScope(BindingContext& context, const Module& module,
                                         const Arguments& arguments)
    : context_(context) {
  auto& modules = context.modules_;
  if (std::find(modules.begin(), modules.end(), &module) != modules.end()) {
    throw SqlError(4429, "View or function '" + module.tree.name.last() +
                             "' contains a self-reference. Views or functions cannot reference "
                             "themselves directly or indirectly.");
  }
  if (modules.size() == nestingLimit) throw nestedTooDeeply();
  modules.push_back(&module);
  outerArguments_ = std::exchange(context.arguments_, &arguments);
  outerCtes_ = std::exchange(context.ctes_, {});
}

BindingContext::ModuleScope::~ModuleScope() {
  context_.modules_.pop_back();
  context_.arguments_ = outerArguments_;
  context_.ctes_ = std::move(outerCtes_);
}

}  // namespace kebu::engine
