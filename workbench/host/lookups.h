#pragma once

#include "host/services.h"

namespace kebu::workbench {

class Lookups : public host::LookupService {
 public:
  void Initialize(const Ref<host::Cinterface>& /*host*/) override {}
  host::LookupDefinition DocumentTypes(const std::string& company) override;
  host::LookupDefinition Customers(const std::string& company) override;
};

}  // namespace kebu::workbench
