#include "workbench/engine/binding/binding_context.h"

#include <algorithm>

#include "common/convert.h"

namespace kebu::engine {

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
  const auto found = std::find_if(slots_.begin(), slots_.end(), [&](const Slot& existing) {
    return existing.literal == wanted.literal && existing.variable == wanted.variable;
  });
  const auto place = static_cast<std::size_t>(found - slots_.begin()) + 1;
  const SqlType type = wanted.type;
  if (found == slots_.end()) slots_.push_back(std::move(wanted));
  return {"?" + std::to_string(place), type};
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

const ast::Cte* BindingContext::cte(const std::string& name) const {
  const auto found = ctes_.find(toUpperAscii(name));
  return found == ctes_.end() ? nullptr : &found->second;
}

BindingContext::CteScope::CteScope(BindingContext& context, const std::vector<ast::Cte>& ctes)
    : context_(context), outer_(context.ctes_) {
  for (const auto& cte : ctes) context_.ctes_[toUpperAscii(cte.name)] = cte;
}

BindingContext::ModuleScope::ModuleScope(BindingContext& context, const Arguments& arguments)
    : context_(context),
      outerArguments_(std::exchange(context.arguments_, &arguments)),
      outerCtes_(std::exchange(context.ctes_, {})) {}

BindingContext::ModuleScope::~ModuleScope() {
  context_.arguments_ = outerArguments_;
  context_.ctes_ = std::move(outerCtes_);
}

}  // namespace kebu::engine
