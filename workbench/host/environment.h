#pragma once

#include "host/services.h"

namespace kebu::workbench {

/// The paths of an ERP installation. Nothing exists at them.
class Environment : public host::EnvironmentService {
 public:
  void Initialize(const Ref<host::Cinterface>& /*host*/) override {}
  std::string GetPath(std::int32_t kind, const std::string& /*argument*/) override {
    constexpr std::int32_t installationFolder = 6;
    return kind == installationFolder ? "C:\\ERP" : "";
  }
};

}  // namespace kebu::workbench
