#pragma once

#include "common/locale.h"
#include "common/platform.h"
#include "windows/support/windows_api.h"

namespace kebu::windows {

/// Windows as the operating system.
class SystemPlatform final : public Platform {
 public:
  std::optional<Guid> createGuid() override;
  void outputDebugString(const std::string& text) override;
  std::int32_t messageBox(const std::string& prompt, std::int32_t buttons,
                          const std::string& title) override;
  Date now() override;
  bool fitsCodePage(const std::string& text) override;
  std::string setting(const std::string& name) override;
  void keepSetting(const std::string& name, const std::string& value) override;
};

/// How Windows writes numbers and dates under the locale given.
Locale localeOf(LCID locale);

}  // namespace kebu::windows
