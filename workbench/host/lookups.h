#pragma once

#include "host/services.h"

namespace kebu::workbench {

class Lookups : public host::LookupService {
 public:
  void Initialize(const Ref<host::Cinterface>& /*host*/) override {}
  host::LookupDefinition DocumentTypes(const std::string& company) override;
  host::LookupDefinition Customers(const std::string& company) override;
  host::LookupDefinition Configurator(const std::string& company) override;
  host::LookupDefinition CustomerNames(const std::string& company) override;
  host::LookupDefinition Suppliers(const std::string& company) override;
  host::LookupDefinition Codes(const std::string& table, const std::string& company,
                               const std::vector<std::string>& upperKeys) override;
};

}  // namespace kebu::workbench
