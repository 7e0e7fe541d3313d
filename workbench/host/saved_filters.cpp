#include "workbench/host/filter_specifications.h"

namespace kebu::workbench {

Value FilterSpecifications::Load(const std::string& key, const std::string& name) {
  const auto at = texts_.find({key, name});
  return at == texts_.end() ? Value() : Value(at->second);
}

void FilterSpecifications::Save(const std::string& key, const std::string& name,
                                const std::string& text, bool /*isDefault*/) {
  texts_.insert_or_assign({key, name}, text);
}

}  // namespace kebu::workbench
