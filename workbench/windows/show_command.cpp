// Opens the window for a person.

#include "windows/support/text.h"
#include "windows/support/windows_api.h"
#include "workbench/ado/ado_objects.h"
#include "workbench/cli/command_line.h"
#include "workbench/cli/commands.h"
#include "workbench/cli/company_file.h"
#include "workbench/company/company.h"
#include "workbench/host/stand_in_host.h"
#include "workbench/windows/apartment.h"
#include "workbench/windows/class_objects.h"
#include "workbench/windows/dll_plugin.h"
#include "workbench/windows/person.h"
#include "workbench/windows/remote_database.h"

namespace kebu::workbench {

std::int32_t Person::answer(const ShownMessage& box) {
  return MessageBoxW(GetActiveWindow(), windows::toWide(box.text).c_str(),
                     windows::toWide(box.title).c_str(), static_cast<UINT>(box.style));
}

namespace {

BOOL CALLBACK noteVisible(HWND window, LPARAM context) {
  if (!IsWindowVisible(window)) return TRUE;
  *reinterpret_cast<bool*>(context) = true;
  return FALSE;
}

bool hasWindow() {
  bool found = false;
  EnumThreadWindows(GetCurrentThreadId(), noteVisible, reinterpret_cast<LPARAM>(&found));
  return found;
}

/// Passes messages on until the last window is closed.
void pumpWindows() {
  MSG message{};
  while (hasWindow() && GetMessageW(&message, nullptr, 0, 0) > 0) {
    TranslateMessage(&message);
    DispatchMessageW(&message);
  }
}

void showWindow(const CompanyDatabase& database, std::int32_t company) {
  Person person;
  const PluginLibrary plugin(PluginLibrary::besideProgram());
  StandInHost host([&] { return newPlugin(plugin); },
                   {person, database, company, {}, [](const std::string&) {}});
  host.open();
  pumpWindows();
}

}  // namespace

int showCommand(const std::vector<std::string>& words) {
  const CommandLine line(words, {"--database", "--company", "--connection"});
  const auto path = line.option("--database");
  const auto connection = line.option("--connection");
  if (!line.operands().empty() || (path && connection)) {
    throw CommandError("use: workbench show [--database FILE | --connection STRING] [--company N]");
  }
  const std::int32_t company = line.number("--company", 1);
  const Apartment apartment;
  if (connection) {
    const RemoteDatabase remote(*connection);
    showWindow(remote.company(), company);
    return 0;
  }
  const CompanyDatabase embedded =
      embeddedCompany(path ? openCompany(*path) : demoCompany(), nullptr);
  AdoLibrary objects;
  const ClassObjects classes(objects, embedded.forPlugin);
  showWindow(embedded, company);
  return 0;
}

}  // namespace kebu::workbench
