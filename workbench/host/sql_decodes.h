#pragma once

#include "host/services.h"

namespace kebu::workbench {

class SqlDecodes : public host::SqlDecodeService {
 public:
  void Initialize(const Ref<host::Cinterface>& /*host*/) override {}
  std::string DocumentType(const std::string& company, const std::string& code) override;
  std::string Customer(const std::string& company, const std::string& code) override;
  std::string Code(const std::string& table, const std::string& company,
                   const std::vector<std::string>& keys) override;
};

}  // namespace kebu::workbench
