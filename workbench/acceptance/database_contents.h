#pragma once

#include <map>
#include <string>
#include <vector>

#include "workbench/player/player.h"

namespace kebu::workbench {

/// The rows of every table of a database as text, sorted; of today's date only that it is today's,
/// since the time of day is never the same twice.
using DatabaseContents = std::map<std::string, std::vector<std::string>>;

DatabaseContents contentsOf(const SqlRunner& sql);

/// What differs, a line for each table and for each of its first rows that are missing or too many.
std::vector<std::string> differences(const DatabaseContents& expected,
                                     const DatabaseContents& found);

/// The statements that remove every view, procedure, function and table.
std::vector<std::string> statementsThatEmpty(const SqlRunner& sql);
/// How many tables, views, procedures and functions there are.
std::size_t objectCount(const SqlRunner& sql);

}  // namespace kebu::workbench
