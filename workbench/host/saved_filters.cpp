#include "workbench/host/saved_filters.h"

namespace kebu::workbench {

Value SavedFilters::Load(const std::string& key, const std::string& name) {
  const auto at = texts_.find({key, name});
  return at == texts_.end() ? Value() : Value(at->second);
}

void SavedFilters::Save(const std::string& key, const std::string& name, const std::string& text,
                        bool /*isDefault*/) {
  texts_.insert_or_assign({key, name}, text);
}

}  // namespace kebu::workbench
