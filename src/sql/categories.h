#pragma once

#include <string>

namespace kebu::sql {

/// The catalogue of classifications, and the condition that finds one of an
/// entity (1 customers, 3 articles) among its rows.
std::string Classificazioni();
std::string FiltroClassificazione(int entity, const std::string& code);

/// A row when the company has configuration variants, or article dimensions.
std::string EsisteVariante(const std::string& company);
std::string EsisteDimensione(const std::string& company);

/// The configured levels of a profile, and the condition that finds one of them.
std::string Categorie(const std::string& profileId);
std::string FiltroCategoria(int level, int entity);

/// The description of the configuration variant "A" + `code`.
std::string DecodificaVariante(const std::string& company, const std::string& code);
/// The description of an article dimension.
std::string DecodificaDimensione(const std::string& company, const std::string& number);
/// The company's article dimensions.
std::string ElencoDimensioni(const std::string& company);

}  // namespace kebu::sql
