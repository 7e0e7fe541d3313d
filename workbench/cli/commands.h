#pragma once

#include <string>
#include <vector>

namespace kebu::workbench {

/// The program's commands. Each returns the program's exit code; CommandError when it
/// cannot run.
int newCommand(const std::vector<std::string>& words);
int playCommand(const std::vector<std::string>& words);
int sqlCommand(const std::vector<std::string>& words);
#ifdef _WIN32
int showCommand(const std::vector<std::string>& words);
int verifyCommand(const std::vector<std::string>& words);
int registerCommand(const std::vector<std::string>& words);
int unregisterCommand(const std::vector<std::string>& words);
/// Whether the program is alone in its console. So it is after a double click, but not when it was
/// started from a command prompt.
bool startedByDoubleClick();
/// Closes the console and opens the window on a new demo company in memory. An error is shown in a
/// message box.
int showDemo();
#endif
int versionCommand(const std::vector<std::string>& words);
int helpCommand(const std::vector<std::string>& words);

}  // namespace kebu::workbench
