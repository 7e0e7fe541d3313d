#pragma once

#include <cstdint>
#include <string>

#include "sql/keys.h"

namespace kebu::sql {

/// Gives a profile without price slots its ten, of type 0.
std::string InizializzaListiniPrezzi(const ProfileId& profileId);

/// Copies the profile's slots into the working table, with STATO before them: 1
/// in order, 2 when the key that the type needs is missing.
std::string CreaTabellaListini(const std::string& table, const ProfileId& profileId);
std::string RigheListini(const std::string& table);
/// Updates the profile's slots from the working table; adds and deletes none.
std::string SalvaListini(const std::string& table);
/// Switches off the active slots whose key is missing.
std::string DisattivaListiniIncompleti(const ProfileId& profileId);

/// The ERP procedure that computes the published prices anew.
std::string AggiornaPrezzi(const Company& company);

/// The choices for the key column of a price source type (1 to 4), code and
/// description first; "" for types without such a list.
std::string ElencoChiaviListino(const Company& company, std::int32_t type);

/// Descriptions of the key columns' codes, one column each.
std::string DescrizioneNumeroListino(const Company& company, const std::string& number);
std::string DescrizioneMacrocategoria(const Company& company, const std::string& code);
std::string DescrizioneMacroarea(const Company& company, const std::string& code);
std::string DescrizioneDeposito(const Company& company, const std::string& code);

}  // namespace kebu::sql
