#pragma once

#include <string>

namespace kebu::sql {

/// Reads one row with one column: a fresh unique identifier.
std::string NuovoIdentificativo();

/// Drops the global temporary table when it exists.
std::string EliminaTabellaLavoro(const std::string& table);

}  // namespace kebu::sql
