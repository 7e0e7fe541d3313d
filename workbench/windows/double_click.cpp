// What a double click on the program does.

#include "workbench/cli/commands.h"

#include <array>
#include <exception>

#include "windows/support/text.h"
#include "windows/support/windows_api.h"

namespace kebu::workbench {

bool startedByDoubleClick() {
  std::array<DWORD, 2> processes{};
  return GetConsoleProcessList(processes.data(), static_cast<DWORD>(processes.size())) == 1;
}

int showDemo() {
  FreeConsole();
  try {
    return showCommand({});
  } catch (const std::exception& error) {
    MessageBoxW(nullptr, windows::toWide(error.what()).c_str(), L"KEBU_ANAGKELMORIA",
                MB_OK | MB_ICONERROR);
    return 1;
  }
}

}  // namespace kebu::workbench
