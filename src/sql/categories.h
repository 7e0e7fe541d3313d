#pragma once

#include <string>

#include "sql/keys.h"

namespace kebu::sql {

/// The catalogue of classifications, and the condition that finds one of an
/// entity (1 customers, 3 articles) among its rows.
std::string Classificazioni();
std::string FiltroClassificazione(int entity, const std::string& code);

/// A row when the company has configuration variants, or article dimensions.
std::string EsisteVariante(const Company& company);
std::string EsisteDimensione(const Company& company);

/// The configured levels of a profile, and the condition that finds one of an entity.
std::string Categorie(const ProfileId& profileId);
std::string FiltroCategoria(int entity, int level);

/// The description of the configuration variant "A" + `code`.
std::string DecodificaVariante(const Company& company, const std::string& code);
/// The description of an article dimension.
std::string DecodificaDimensione(const Company& company, const std::string& number);
/// The company's article dimensions.
std::string ElencoDimensioni(const Company& company);

}  // namespace kebu::sql
