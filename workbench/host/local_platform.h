#pragma once

#include <functional>
#include <map>
#include <optional>
#include <ostream>
#include <random>
#include <string>
#include <utility>

#include "common/platform.h"
#include "workbench/host/user.h"

namespace kebu::workbench {

/// The workbench's operating system for the plug-in: trace lines go to a stream and
/// message boxes to the user. A clock can replace the system's.
class LocalPlatform : public Platform {
 public:
  LocalPlatform(User& user, std::ostream& trace, std::function<Date()> clock = nullptr)
      : user_(user), trace_(trace), clock_(std::move(clock)) {}

  std::optional<Guid> createGuid() override;
  void outputDebugString(const std::string& text) override;
  std::int32_t messageBox(const std::string& prompt, std::int32_t buttons,
                          const std::string& title) override;
  Date now() override;
  bool fitsCodePage(const std::string& text) override;
  std::string setting(const std::string& name) override { return settings_[name]; }
  void keepSetting(const std::string& name, const std::string& value) override {
    settings_[name] = value;
  }

 private:
  User& user_;
  std::ostream& trace_;
  std::function<Date()> clock_;
  std::random_device random_;
  std::map<std::string, std::string> settings_;
};

}  // namespace kebu::workbench
