// Registers and unregisters the plug-in beside the program, for all users or for the current one.

#include "common/error.h"
#include "windows/support/com_error.h"
#include "windows/support/handles.h"
#include "workbench/cli/command_line.h"
#include "workbench/cli/commands.h"
#include "workbench/windows/apartment.h"
#include "workbench/windows/plugin_library.h"
#include "workbench/windows/user_classes.h"

namespace kebu::workbench {

namespace {

int callEntryPoint(const std::vector<std::string>& words, const std::string& command,
                   HRESULT (PluginLibrary::*entryPoint)() const) {
  const CommandLine line(words, {}, {"--user"});
  if (!line.operands().empty()) throw CommandError("use: workbench " + command + " [--user]");
  const Apartment apartment;
  const PluginLibrary library(PluginLibrary::besideProgram());
  std::optional<UserClasses> redirected;
  if (line.has("--user")) redirected.emplace();
  const HRESULT result = (library.*entryPoint)();
  if (FAILED(result)) {
    throw CommandError("the plug-in could not " + command + ": " +
                       windows::errorOf(result).description() +
                       (line.has("--user") ? "" : " (for all users it takes an administrator)"));
  }
  return 0;
}

}  // namespace

int registerCommand(const std::vector<std::string>& words) {
  return callEntryPoint(words, "register", &PluginLibrary::registerServer);
}

int unregisterCommand(const std::vector<std::string>& words) {
  return callEntryPoint(words, "unregister", &PluginLibrary::unregisterServer);
}

}  // namespace kebu::workbench
