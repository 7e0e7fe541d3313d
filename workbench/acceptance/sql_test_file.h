#pragma once

#include <cstdint>
#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "workbench/engine/execution/result_set.h"
#include "workbench/engine/execution/session.h"

namespace kebu::workbench {

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

/// The files of a folder in the order of their names.
std::vector<std::filesystem::path> filesIn(const std::filesystem::path& folder);

/// What a batch did.
struct SqlOutcome {
  std::vector<engine::ResultSet> results;
  std::optional<std::int64_t> rowsAffected;  ///< nothing when it is not known
  std::int32_t errorNumber = 0;              ///< the database's own; 0 when it ran
  std::string errorText;
};

/// The outcome on the engine.
SqlOutcome outcomeOf(engine::Session& session, const std::string& batch);

/// Whether the texts of errors count, or their numbers alone. Servers word them in languages.
enum class ErrorTexts { Compared, Ignored };
/// What is otherwise than the block says; "" when all is as it says.
std::string mismatch(const SqlTestBlock& block, const SqlOutcome& outcome, ErrorTexts texts);

/// Statement texts by their names.
using StatementTexts = std::map<std::string, std::string>;

/// The texts of all files of a folder, each between a comment line with its name and a line "GO".
/// std::runtime_error for a name that stands there twice and for a file without texts.
StatementTexts readStatementTexts(const std::filesystem::path& folder);
/// The names in braces in a batch, in the order in which they stand.
std::vector<std::string> namesIn(const std::string& batch);
/// The batch with a text for every name in braces. std::runtime_error for an unknown name.
std::string withTexts(std::string batch, const StatementTexts& texts);

}  // namespace kebu::workbench
