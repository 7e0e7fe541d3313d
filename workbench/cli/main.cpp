#include <algorithm>
#include <array>
#include <exception>
#include <iostream>
#include <string>
#include <string_view>

#include "workbench/cli/command_line.h"
#include "workbench/cli/commands.h"
#include "workbench/cli/program_words.h"

namespace {

using namespace kebu::workbench;

struct Command {
  std::string_view name;
  int (*run)(const std::vector<std::string>& words);
};

constexpr std::array commands{
    Command{"new", newCommand},           Command{"play", playCommand},
    Command{"sql", sqlCommand},
#ifdef _WIN32
    Command{"show", showCommand},         Command{"verify", verifyCommand},
    Command{"register", registerCommand}, Command{"unregister", unregisterCommand},
#endif
    Command{"--version", versionCommand}, Command{"--help", helpCommand},
};

int run(const std::vector<std::string>& words) {
#ifdef _WIN32
  if (words.empty() && startedByDoubleClick()) return showDemo();
#endif
  if (words.empty()) {
    std::string names;
    for (const Command& command : commands) {
      const char* const before = &command == commands.begin()     ? ""
                                 : &command == commands.end() - 1 ? " or "
                                                                  : ", ";
      names += before + std::string(command.name);
    }
    throw CommandError("a command is wanted: " + names);
  }
  const auto* const command = std::find_if(
      commands.begin(), commands.end(), [&](const Command& c) { return c.name == words.front(); });
  if (command == commands.end()) {
    throw CommandError("unknown command " + words.front() + ", see workbench --help");
  }
  return command->run({words.begin() + 1, words.end()});
}

}  // namespace

int main(int argc, char** argv) {
  try {
    const int exitCode = run(programWords(argc, argv));
    if (!std::cout.flush()) throw CommandError("the output cannot be written");
    return exitCode;
  } catch (const std::exception& error) {
    std::cout.flush();
    std::cerr << "workbench: " << error.what() << '\n';
    return 1;
  }
}
