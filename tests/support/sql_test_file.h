#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "workbench/engine/execution/session.h"

namespace kebu::engine {

/// A block of a file of SQL tests: blank lines separate them, lines that begin with "#" between
/// blocks are comments. The first line says what the batch below it must do:
///
///   ok                 it runs
///   rows 3             it runs and changes so many rows
///   error 207 TEXT     it fails with that number, the text in its description
///   query              it gives the rows behind "----", "|" between the values
struct SqlTestBlock {
  std::string kind;
  std::string argument;
  std::string batch;
  std::string expected;
  int line = 0;
};

std::vector<SqlTestBlock> readSqlTest(const std::filesystem::path& path);

/// Runs the batch and expects what the block says.
void runSqlTestBlock(Session& session, const SqlTestBlock& block);

/// The files of a folder in the order of their names.
std::vector<std::filesystem::path> sqlTestFiles(const std::filesystem::path& folder);

}  // namespace kebu::engine
