#pragma once

#include <cstdint>
#include <string>

#include "host/services.h"
#include "workbench/host/user.h"

namespace kebu::workbench {

/// The host's log: shows an error with its details in a box with Abort, Retry and Ignore.
class ErrorLog : public host::LogService {
 public:
  explicit ErrorLog(User& user) : user_(user) {}

  void SetError(std::int32_t number, const std::string& description,
                const std::string& source) override;
  void SetConnectionErrors(const ado::ErrorSource& connection) override;
  std::int16_t ShowError(const std::string& application, const std::string& caption,
                         const std::string& procedure, std::int32_t style) override;

 private:
  User& user_;
  std::int32_t number_ = 0;
  std::string description_;
  std::string source_;
  ado::Errors connectionErrors_;
};

}  // namespace kebu::workbench
