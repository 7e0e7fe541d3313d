#pragma once

#include <string>

#include "sql/keys.h"

namespace kebu::sql {

/// The view from which the platform's customers (kind 1) or articles (kind 2)
/// are read, as column "Tabella": the company's own where there is one.
std::string NomeTabella(int kind);

/// The rows of such a view as they are published. `filter` begins with its own
/// connector, or is empty.
std::string ClientiPubblicati(const std::string& view, const Company& company,
                              const std::string& filter);
std::string ArticoliPubblicati(const std::string& view, const Company& company,
                               const std::string& filter);

}  // namespace kebu::sql
