#pragma once

#include <string>

#include "host/services.h"

namespace kebu::forms {

/// The list of deposits that the parameter page and the price slots share.
inline host::LookupDefinition depositLookup(const std::string& statement) {
  return {.title = "Elenco depositi",
          .statement = statement,
          .captions = {"Codice deposito", "Descrizione deposito", "Indirizzo", "CAP", "Localita'",
                       "Provincia", "Nr. telefono", "Nr. fax"}};
}

}  // namespace kebu::forms
