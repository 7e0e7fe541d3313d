#pragma once

#include "controls/query_grid.h"

namespace kebu::forms {

inline constexpr controls::ColumnKind figure = controls::ColumnKind::Figure;

inline constexpr controls::GridColumn customerColumns[] = {
    {"CG44_IDCLIFOR", "Id Cliente", 1000, figure},
    {"CG44_CODICE_CG16", "Cod. anag.", 1000, figure},
    {"Email", "Email", 2500},
    {"Azienda", "Azienda", 2500},
    {"Nome", "Nome", 1500},
    {"Cognome", "Cognome", 1500},
    {"PartitaIva", "PartitaIva", 1500},
    {"CodiceFiscale", "Codice Fiscale", 1500},
    {"IndirizzoPrincipaleL1", "Indirizzo", 2500},
    {"IndirizzoPrincipaleL2", "Indirizzo 2", 2500},
    {"NomeIndirizzoConsegna", "Nome IndirizzoConsegna", 1500},
    {"CognomeIndirizzoConsegna", "Cognome IndirizzoConsegna", 1500},
    {"AziendaIndirizzoConsegna", "Azienda IndirizzoConsegna", 2500},
    {"IndirizzoConsegnaL1", "Indirizzo Consegna", 2500},
    {"IndirizzoConsegnaL2", "Indirizzo Consegna 2", 2500},
    {"CodiceCommerciale", "Id Agente", 1000},
    {"NomeCategoria1", "Categoria 1", 1500},
    {"NomeCategoria2", "Categoria 2", 1500},
    {"NomeCategoria3", "Categoria 3", 1500},
    {"NomeCategoria4", "Categoria 4", 1500},
    {"UltimaModifica", "Ultima Modifica", 1750},
};

inline constexpr controls::GridColumn articleColumns[] = {
    {"MG87_CODART_MG66", "Articolo", 1500},
    {"MG87_OPZIONE_MG5E", "Variante", 1500},
    {"MG87_OPZIONE_MG5E", "Variante", 1500},  // the same once more, and meant so
    {"Nome", "Nome", 1500},
    {"Descrizione", "Descrizione", 1500},
    {"NomeCategoria1", "Categoria 1", 1500},
    {"NomeCategoria2", "Categoria 2", 1500},
    {"NomeCategoria3", "Categoria 3", 1500},
    {"QuantitaInStock", "Giancenza", 1000, figure},  // spelled so
};

/// Then these of every price slot, the slot's number after field and caption.
inline constexpr controls::GridColumn articlePriceColumns[] = {
    {"Prezzo", "Prezzo ", 1000, figure},
    {"PrezzoBarrato", "PrezzoBarrato ", 1000, figure},
    {"IvaInclusa", "IvaInclusa ", 1000, figure},
};
inline constexpr int articlePrices = 10;

/// Then this one. The customers' caption is written otherwise, and meant so.
inline constexpr controls::GridColumn articleLastColumn = {"UltimaModifica", "Ultima modifica",
                                                           1750};

}  // namespace kebu::forms
