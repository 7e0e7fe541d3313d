#pragma once

#include <cstdint>
#include <string>

namespace kebu::sql {

/// Gives a profile without price slots its ten, of type 0.
std::string InizializzaListiniPrezzi(const std::string& profileId);

/// Copies the profile's slots into the working table, with STATO before them: 1
/// in order, 2 when the key that the type needs is missing.
std::string CreaTabellaListini(const std::string& table, const std::string& profileId);
std::string RigheListini(const std::string& table);
/// Updates the profile's slots from the working table; adds and deletes none.
std::string SalvaListini(const std::string& table);
/// Switches off the active slots whose key is missing.
std::string DisattivaListiniIncompleti(const std::string& profileId);

/// The ERP procedure that computes the published prices anew.
std::string AggiornaPrezzi(const std::string& company);

/// The choices for the key column of a price source type (1 to 4), code and
/// description first; "" for types without such a list.
std::string ElencoChiaviListino(std::int32_t type, const std::string& company);

/// Descriptions of the key columns' codes, one column each.
std::string DescrizioneNumeroListino(const std::string& company, const std::string& number);
std::string DescrizioneMacrocategoria(const std::string& company, const std::string& code);
std::string DescrizioneMacroarea(const std::string& company, const std::string& code);
std::string DescrizioneDeposito(const std::string& company, const std::string& code);

}  // namespace kebu::sql
