#pragma once

#include <map>
#include <string>
#include <utility>

#include "host/services.h"

namespace kebu::workbench {

/// Saved conditions, kept in memory while the workbench runs.
class SavedFilters : public host::SavedFilterService {
 public:
  /// From now on every call fails.
  void withdraw() { withdrawn_ = true; }

  void Initialize(const Ref<host::Cinterface>& /*host*/) override {}
  Value Load(const std::string& key, const std::string& name) override;
  void Save(const std::string& key, const std::string& name, const std::string& text,
            bool isDefault) override;

 private:
  void requireOffered() const;

  bool withdrawn_ = false;
  std::map<std::pair<std::string, std::string>, std::string> texts_;
};

}  // namespace kebu::workbench
