#pragma once

#include "host/services.h"

namespace kebu::workbench {

class SqlDecodes : public host::SqlDecodeService {
 public:
  void Initialize(const Ref<host::Cinterface>& /*host*/) override {}
  std::string DocumentType(const std::string& company, const std::string& code) override;
  std::string Customer(const std::string& company, const std::string& code) override;
};

}  // namespace kebu::workbench
