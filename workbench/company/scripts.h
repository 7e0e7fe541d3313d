#pragma once

#include <span>
#include <string_view>

namespace kebu::workbench {

/// A T-SQL script that is embedded in the program.
struct Script {
  std::string_view name;
  std::string_view text;
};

/// The scripts of schema/ and demo/ in the order in which they must run.
std::span<const Script> schemaScripts();
std::span<const Script> demoScripts();

}  // namespace kebu::workbench
