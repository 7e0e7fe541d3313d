#include "windows/com/plugin_runtime.h"

#include <mutex>

#include "windows/support/module.h"
#include "windows/views/window/window.h"

namespace kebu::windows {

namespace {

std::mutex guard;
/// Not destroyed when the process ends: what it would call may have ended before.
PluginRuntime* current = nullptr;

}  // namespace

PluginRuntime::PluginRuntime() : commonControls_(moduleHandle()) {}

PluginRuntime::~PluginRuntime() {
  desktops_.clear();
  unregisterWindowClasses(moduleHandle());
}

forms::Runtime PluginRuntime::use() {
  const std::lock_guard lock(guard);
  if (!current) current = new PluginRuntime;
  auto& desktop =
      current->desktops_.try_emplace(GetCurrentThreadId(), moduleHandle(), current->commonControls_)
          .first->second;
  return {current->platform_, current->ado_, desktop};
}

bool PluginRuntime::endWhenUnused() {
  const std::lock_guard lock(guard);
  if (ModuleLock::anyHeld()) return false;
  delete current;
  current = nullptr;
  return true;
}

}  // namespace kebu::windows
