#pragma once

#include <string>
#include <string_view>

#include "sql/keys.h"

namespace kebu::sql {

/// A condition: what a predicate on one field adds to a WHERE clause over MG66_ANAGRART, with its
/// own connector. The first four characters of the field's name tell its table: MG66 and MG87
/// are in the query, MG72_APPLICART, MG73_ARTCLIFOR and PD18_ARTPROD are asked for a row of the
/// article. A field of another table adds nothing.
std::string CongiuntoArticoli(std::string_view dataField, const std::string& condition);

/// Reads an article state's description from MG6W_STATIART. The state is a number and stands in
/// the statement as it was typed.
std::string DecodificaStatoArticolo(const std::string& state);
/// Reads the article states from MG6W_STATIART: number and description.
std::string ElencoStatiArticolo();

/// Counts the company's articles that a filter selects from MG66_ANAGRART and MG87_ARTDESC, as
/// QUANTI. The filter is appended as it stands, with its own connector, or is empty.
std::string ContaArticoli(const Company& company, const std::string& filter);
/// Counts the company's customers that a filter selects from VGM16_KBWSUSERS_KELMORIA, as QUANTI.
std::string ContaClienti(const Company& company, const std::string& filter);

}  // namespace kebu::sql
