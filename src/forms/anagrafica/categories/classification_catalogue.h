#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "forms/page_context.h"

namespace kebu::forms {

/// The ERP's classifications that are offered. Stays open as long as the window.
class ClassificationCatalogue {
 public:
  struct Entry {
    std::int32_t entity = 0;
    Value code;
    std::string description;
    bool takesCode = false;  ///< an additional code belongs to it
  };

  /// Reads the catalogue on the window's connection.
  void open(const PageContext& context);
  void close() { rows_.reset(); }

  /// All of it, in the order of presentation; nothing while it is not open.
  std::vector<Entry> entries() const;
  /// The classification of that entity; nothing when the catalogue has none.
  std::optional<Entry> find(int entity, const std::string& code) const;

 private:
  Ref<ado::Recordset> rows_;
};

}  // namespace kebu::forms
