#pragma once

#include <string>
#include <string_view>

#include "sql/keys.h"

namespace kebu::sql {

/// What a predicate on one field adds to the condition on the articles, to be
/// appended to a WHERE clause over MG66_ANAGRART. The first four characters of
/// the field's name tell its table; of an unknown table nothing is added.
std::string CongiuntoArticoli(std::string_view dataField, const std::string& condition);

/// An article state's description; the state is a number and goes in as it is.
std::string DecodificaStatoArticolo(const std::string& state);
std::string ElencoStatiArticolo();

/// How many articles and customers of the company a filter selects, as QUANTI.
/// It is appended as it stands and brings its own connector.
std::string ContaArticoli(const Company& company, const std::string& filter);
std::string ContaClienti(const Company& company, const std::string& filter);

}  // namespace kebu::sql
