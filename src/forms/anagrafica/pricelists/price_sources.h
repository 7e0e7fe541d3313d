#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "controls/query_grid.h"
#include "forms/page_context.h"

namespace kebu::forms {

/// Where a slot takes its price from: GM57_INDTIPO.
enum PriceSource : std::int32_t {
  tsNessuna = 0,
  tsListinoAnagArticolo = 1,
  tsListinoMacrocat = 2,
  tsListinoMacroarea = 3,
  tsListinoDeposito = 4,
  tsListinoScaglQt = 5,
  tsPriorita = 6,
};

inline constexpr controls::ValueListItem priceSlots[] = {
    {1, "Prezzo 1"}, {2, "Prezzo 2"}, {3, "Prezzo 3"}, {4, "Prezzo 4"}, {5, "Prezzo 5"},
    {6, "Prezzo 6"}, {7, "Prezzo 7"}, {8, "Prezzo 8"}, {9, "Prezzo 9"}, {10, "Prezzo 10"},
};

inline constexpr controls::ValueListItem priceSources[] = {
    {tsNessuna, "Nessuna"},
    {tsListinoAnagArticolo, "Listino Anagrafico articolo"},
    {tsListinoMacrocat, "Listino Articolo/Macrocategoria"},
    {tsListinoMacroarea, "Listino Articolo/Macroarea"},
    {tsListinoDeposito, "Listino Articolo/Deposito"},
    {tsListinoScaglQt, "Listino Articolo/Scaglioni di quantità"},
    {tsPriorita, "Da Priorità prezzi e sconti"},
};

// What is said of stored or shown slots, after their names.
inline constexpr const char* slotsWithoutSource =
    "attivi senza tipologia di listino, non pubblicano nulla.";
inline constexpr const char* pricesNotManaged =
    "I prezzi non sono gestiti: nei parametri non è scelta la gestione prezzi.";

/// Whether a slot of the type has a use for GM57_QUANTITA.
bool takesQuantity(std::int32_t type);
/// The column without which a slot of the type has no price; "" for none.
std::string_view priceKey(std::int32_t type);
/// Whether a value of that column is one: not empty, and not 0 where it is a number.
bool isPriceKeyGiven(std::int32_t type, const Value& key);

/// How the description of a key is read: a statement, and the column of its row.
struct PriceKeyDescription {
  std::string statement;
  std::string_view column;
};
/// Of a code in a key column of a slot of the type. The host is asked for the statement of a
/// customer. Not for GM57_QUANTITA, which is no code.
PriceKeyDescription priceKeyDescription(const PageContext& context, std::string_view field,
                                        std::int32_t type, const std::string& code);

}  // namespace kebu::forms
