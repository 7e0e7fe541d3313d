#pragma once

#include <span>
#include <string_view>

namespace kebu::workbench {

/// A T-SQL script that the build has put into the program.
struct Script {
  std::string_view name;
  std::string_view text;
};

/// In the order in which they must run. Generated from schema/ and demo/.
std::span<const Script> schemaScripts();
std::span<const Script> demoScripts();

}  // namespace kebu::workbench
