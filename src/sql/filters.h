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

/// Counts what a filter selects from the view of published articles: the articles as QUANTI, the
/// rows that the preview lists, which are their variants, as ELENCATI. The filter is appended as it
/// stands, with its own connector, or is empty.
std::string ContaArticoli(const std::string& view, const Company& company,
                          const std::string& filter);
/// The same for the view of published customers; the preview lists those with an e-mail address.
std::string ContaClienti(const std::string& view, const Company& company,
                         const std::string& filter);

}  // namespace kebu::sql
