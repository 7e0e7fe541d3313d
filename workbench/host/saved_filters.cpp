#include "workbench/host/saved_filters.h"

#include "common/error.h"

namespace kebu::workbench {

void SavedFilters::requireOffered() const {
  if (withdrawn_) throw RuntimeError(70, "The store of saved filters is not offered any more.");
}

Value SavedFilters::Load(const std::string& key, const std::string& name) {
  requireOffered();
  const auto at = texts_.find({key, name});
  return at == texts_.end() ? Value() : Value(at->second);
}

void SavedFilters::Save(const std::string& key, const std::string& name, const std::string& text,
                        bool /*isDefault*/) {
  requireOffered();
  texts_.insert_or_assign({key, name}, text);
}

}  // namespace kebu::workbench
