#pragma once

#include <ostream>
#include <string>
#include <vector>

#include "workbench/engine/execution/session.h"

namespace kebu::workbench {

/// A value as a query tool shows it, independent of the locale; null as NULL.
std::string queryText(const Value& value);
/// Writes the column names and the rows, cells separated by tabs.
void writeResult(std::ostream& out, const engine::ResultSet& result,
                 const std::string& indent = {});
/// An error as a query tool shows it: number, severity, place, and the text on the next line.
std::string errorText(const engine::SqlError& error);
/// The first row of the first result that has columns, cells separated by '|';
/// "(no rows)" when there is none.
std::string firstRowText(const std::vector<engine::ResultSet>& results);

}  // namespace kebu::workbench
