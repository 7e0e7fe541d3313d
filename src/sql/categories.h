#pragma once

#include <string>

#include "sql/keys.h"

namespace kebu::sql {

/// Reads the classifications that are not disabled from GM23_CLASSIFICAZIONI, in their order.
std::string Classificazioni();
/// A recordset filter: finds one classification of an entity (1 customers, 3 articles) among
/// the rows of Classificazioni.
std::string FiltroClassificazione(int entity, const std::string& code);

/// Reads one row from MG5F_DIMECONF when the company has configuration variants.
std::string EsisteVariante(const Company& company);
/// Reads one row from MG6F_DIMEART when the company has article dimensions.
std::string EsisteDimensione(const Company& company);

/// Reads the profile's configured levels from GM19_DETTCONF; the rows can be edited.
std::string Categorie(const ProfileId& profileId);
/// A recordset filter: finds one level of an entity among the rows of Categorie.
std::string FiltroCategoria(int entity, int level);

/// Reads from MG5F_DIMECONF the description of the configuration variant "A" + `code`.
std::string DecodificaVariante(const Company& company, const std::string& code);
/// Reads an article dimension's description from MG6F_DIMEART.
std::string DecodificaDimensione(const Company& company, const std::string& number);
/// Reads the company's article dimensions from MG6F_DIMEART: number, description and size.
std::string ElencoDimensioni(const Company& company);

}  // namespace kebu::sql
