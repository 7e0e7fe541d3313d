#pragma once

#include <string>

#include "sql/keys.h"

namespace kebu::sql {

/// Reads the name of the view that publishes customers (kind 1) or articles (kind 2), as column
/// "Tabella": the customer-specific view "..._PERS" when sys.views has it, else the standard one.
std::string NomeTabella(int kind);

/// Reads the company's customers that have an e-mail address from the view. The filter is
/// appended as it stands, with its own connector, or is empty.
std::string ClientiPubblicati(const std::string& view, const Company& company,
                              const std::string& filter);
/// Reads the company's articles from the view, with the filter in the same way.
std::string ArticoliPubblicati(const std::string& view, const Company& company,
                               const std::string& filter);

}  // namespace kebu::sql
