#include "workbench/host/local_platform.h"

#include <chrono>
#include <ctime>

#include "workbench/engine/values/code_page.h"

namespace kebu::workbench {

std::optional<Guid> LocalPlatform::createGuid() {
  Guid guid;
  guid.data1 = random_();
  guid.data2 = static_cast<std::uint16_t>(random_());
  guid.data3 = static_cast<std::uint16_t>((random_() & 0x0FFFU) | 0x4000U);
  for (std::uint8_t& byte : guid.data4) byte = static_cast<std::uint8_t>(random_());
  guid.data4[0] = static_cast<std::uint8_t>((guid.data4[0] & 0x3FU) | 0x80U);
  return guid;
}

void LocalPlatform::outputDebugString(const std::string& text) {
  // Flushed at once, so that the trace is complete when the program crashes.
  trace_ << text << '\n' << std::flush;
}

std::int32_t LocalPlatform::messageBox(const std::string& prompt, std::int32_t buttons,
                                       const std::string& title) {
  return user_.answer({title, prompt, buttons});
}

bool LocalPlatform::fitsCodePage(const std::string& text) {
  return engine::inCodePage(text) == text;
}

Date LocalPlatform::now() {
  if (clock_) return clock_();
  const auto now = std::chrono::system_clock::now();
  const std::time_t seconds = std::chrono::system_clock::to_time_t(now);
  const std::tm local = *std::localtime(&seconds);  // NOLINT(concurrency-mt-unsafe): one thread
  const auto millisecond =
      std::chrono::duration_cast<std::chrono::milliseconds>(now.time_since_epoch()).count() % 1000;
  return Date::make(local.tm_year + 1900, local.tm_mon + 1, local.tm_mday, local.tm_hour,
                    local.tm_min, local.tm_sec < 60 ? local.tm_sec : 59,
                    static_cast<int>(millisecond))
      .value_or(Date{});
}

}  // namespace kebu::workbench
