#pragma once

#include "controls/query_grid.h"

namespace kebu::forms {

inline constexpr controls::ColumnKind figure = controls::ColumnKind::Figure;

inline constexpr controls::GridColumn customerColumns[] = {
    {.field = "CG44_IDCLIFOR", .caption = "Id Cliente", .width = 1000, .kind = figure},
    {.field = "CG44_CODICE_CG16", .caption = "Cod. anag.", .width = 1000, .kind = figure},
    {.field = "Email", .caption = "Email", .width = 2500},
    {.field = "Azienda", .caption = "Azienda", .width = 2500},
    {.field = "Nome", .caption = "Nome", .width = 1500},
    {.field = "Cognome", .caption = "Cognome", .width = 1500},
    {.field = "PartitaIva", .caption = "PartitaIva", .width = 1500},
    {.field = "CodiceFiscale", .caption = "Codice Fiscale", .width = 1500},
    {.field = "IndirizzoPrincipaleL1", .caption = "Indirizzo", .width = 2500},
    {.field = "IndirizzoPrincipaleL2", .caption = "Indirizzo 2", .width = 2500},
    {.field = "NomeIndirizzoConsegna", .caption = "Nome IndirizzoConsegna", .width = 1500},
    {.field = "CognomeIndirizzoConsegna", .caption = "Cognome IndirizzoConsegna", .width = 1500},
    {.field = "AziendaIndirizzoConsegna", .caption = "Azienda IndirizzoConsegna", .width = 2500},
    {.field = "IndirizzoConsegnaL1", .caption = "Indirizzo Consegna", .width = 2500},
    {.field = "IndirizzoConsegnaL2", .caption = "Indirizzo Consegna 2", .width = 2500},
    {.field = "CodiceCommerciale", .caption = "Id Agente", .width = 1000},
    {.field = "NomeCategoria1", .caption = "Categoria 1", .width = 1500},
    {.field = "NomeCategoria2", .caption = "Categoria 2", .width = 1500},
    {.field = "NomeCategoria3", .caption = "Categoria 3", .width = 1500},
    {.field = "NomeCategoria4", .caption = "Categoria 4", .width = 1500},
    {.field = "UltimaModifica", .caption = "Ultima Modifica", .width = 1750},
};

inline constexpr controls::GridColumn articleColumns[] = {
    {.field = "MG87_CODART_MG66", .caption = "Articolo", .width = 1500},
    {.field = "MG87_OPZIONE_MG5E", .caption = "Variante", .width = 1500},
    {.field = "MG87_OPZIONE_MG5E",
     .caption = "Variante",
     .width = 1500},  // the same once more, and meant so
    {.field = "Nome", .caption = "Nome", .width = 1500},
    {.field = "Descrizione", .caption = "Descrizione", .width = 1500},
    {.field = "NomeCategoria1", .caption = "Categoria 1", .width = 1500},
    {.field = "NomeCategoria2", .caption = "Categoria 2", .width = 1500},
    {.field = "NomeCategoria3", .caption = "Categoria 3", .width = 1500},
    {.field = "QuantitaInStock",
     .caption = "Giancenza",
     .width = 1000,
     .kind = figure},  // spelled so
};

/// Then these of every price slot, the slot's number after field and caption.
inline constexpr controls::GridColumn articlePriceColumns[] = {
    {.field = "Prezzo", .caption = "Prezzo ", .width = 1000, .kind = figure},
    {.field = "PrezzoBarrato", .caption = "PrezzoBarrato ", .width = 1000, .kind = figure},
    {.field = "IvaInclusa", .caption = "IvaInclusa ", .width = 1000, .kind = figure},
};
inline constexpr int articlePrices = 10;

/// Then this one. The customers' caption is written otherwise, and meant so.
inline constexpr controls::GridColumn articleLastColumn = {
    .field = "UltimaModifica", .caption = "Ultima modifica", .width = 1750};

}  // namespace kebu::forms
