#pragma once

#include <cstdint>
#include <string>

#include "sql/keys.h"

namespace kebu::sql {

/// Inserts the ten price slots of a profile that has none into GM57_KBLISTINI, of type 0.
std::string InizializzaListiniPrezzi(const ProfileId& profileId);

/// Creates the working table: the profile's slots from GM57_KBLISTINI, with STATO before them: 1
/// when the key is there that the slot's type needs, 2 when it is missing, NULL for type 6.
std::string CreaTabellaListini(const std::string& table, const ProfileId& profileId);
/// Reads the working table, by slot; the rows can be edited.
std::string RigheListini(const std::string& table);
/// Updates the slots in GM57_KBLISTINI from the working table; inserts and deletes none.
std::string SalvaListini(const std::string& table);
/// Switches off the profile's active slots in GM57_KBLISTINI whose key is missing, and every
/// profile's slots of type 6 without a customer.
std::string DisattivaListiniIncompleti(const ProfileId& profileId);

/// Runs the ERP procedure SPKB_AGGIORNAPREZZI_KELMORIA, which computes the published prices anew.
std::string AggiornaPrezzi(const Company& company);

/// Reads what a slot of a type can have as its key, code and description first: 1 price lists
/// (LI10_LISTARTIC, MG44_PARMAGLIST), 2 macro-categories (LI13_LISTARTCAT), 3 macro-areas
/// (LI12_LISTARTZONE), 4 deposits (MG58_DEPOSITI). "" for types without such a list.
std::string ElencoChiaviListino(const Company& company, std::int32_t type);

/// Reads the description of a sale price list's number from MG44_PARMAGLIST.
std::string DescrizioneNumeroListino(const Company& company, const std::string& number);
/// Reads the description of a customers' macro-category from MG10_MACROCAT.
std::string DescrizioneMacrocategoria(const Company& company, const std::string& code);
/// Reads the description of a customers' macro-area from MG07_MACROAREE.
std::string DescrizioneMacroarea(const Company& company, const std::string& code);
/// Reads a deposit's description from MG58_DEPOSITI.
std::string DescrizioneDeposito(const Company& company, const std::string& code);

}  // namespace kebu::sql
