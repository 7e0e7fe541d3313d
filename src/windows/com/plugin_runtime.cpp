#include "windows/com/plugin_runtime.h"

#include <memory>
#include <mutex>

#include "windows/support/module.h"

namespace kebu::windows {

namespace {

std::mutex guard;
/// Not destroyed when the process ends: what it would call may have ended before.
PluginRuntime* current = nullptr;

}  // namespace

PluginRuntime::PluginRuntime() : desktop_(moduleHandle()) {}

forms::Runtime PluginRuntime::use() {
  const std::lock_guard lock(guard);
  if (!current) current = new PluginRuntime;
  return {current->platform_, current->ado_, current->desktop_};
}

void PluginRuntime::end() {
  const std::lock_guard lock(guard);
  delete current;
  current = nullptr;
}

}  // namespace kebu::windows
