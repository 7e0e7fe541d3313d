#pragma once

#include <string>

namespace kebu::sql {

/// One row with one column: a fresh identifier.
std::string NuovoIdentificativo();

/// Drops the global temporary table when it exists.
std::string EliminaTabellaLavoro(const std::string& table);

}  // namespace kebu::sql
