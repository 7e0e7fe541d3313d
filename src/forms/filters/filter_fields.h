#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "controls/query_editor.h"

// The fields by which customers and articles are filtered, as they are declared
// to the editors of the main window and of the selection dialogs alike.
namespace kebu::forms {

/// What differs between the fields of an editor. The options without a name of their own are the
/// host editor's; they are named by their place among the arguments of its declaration.
struct FilterField {
  std::string_view caption;
  std::string_view dataField;
  std::size_t length;  ///< characters of a value
  bool hasLookup = true;
  bool option7 = true;
  bool isNumeric = false;
  bool option11 = false;
};

/// The fields as they are declared, positions counted from 1.
template <std::size_t count>
constexpr std::array<controls::QueryField, count> declared(const FilterField (&fields)[count]) {
  std::array<controls::QueryField, count> declarations{};
  for (std::size_t i = 0; i < count; ++i) {
    const FilterField& field = fields[i];
    declarations[i] = {.group = "Standard",
                       .caption = field.caption,
                       .dataField = field.dataField,
                       .option4 = true,
                       .position = static_cast<std::int32_t>(i + 1),
                       .hasLookup = field.hasLookup,
                       .option7 = field.option7,
                       .isNumeric = field.isNumeric,
                       .option9 = false,
                       .option10 = false,
                       .option11 = field.option11,
                       .length = field.length};
  }
  return declarations;
}

inline constexpr auto customerFields = declared({
    {.caption = "Codice",
     .dataField = "CG44_CLIFOR",
     .length = 6,
     .option7 = false,
     .isNumeric = true},
    {.caption = "Ragione sociale", .dataField = "Azienda", .length = 40},
    {.caption = "Indirizzo",
     .dataField = "IndirizzoPrincipaleL1",
     .length = 40,
     .hasLookup = false},
    {.caption = "CAP", .dataField = "Cap", .length = 8, .hasLookup = false},
    {.caption = "Città", .dataField = "Citta", .length = 40, .hasLookup = false},
    {.caption = "Provincia", .dataField = "Provincia", .length = 2, .hasLookup = false},
    {.caption = "Partita Iva", .dataField = "PartitaIva", .length = 16, .hasLookup = false},
    {.caption = "Macroarea", .dataField = "MG19_MACROAREA", .length = 3},
    {.caption = "Area", .dataField = "MG19_AREA", .length = 3},
    {.caption = "Zona", .dataField = "MG19_ZONA", .length = 3},
    {.caption = "Macrocategoria", .dataField = "MG19_MACROCAT", .length = 3},
    {.caption = "Categoria", .dataField = "MG19_CATEG", .length = 3},
    {.caption = "Sottocategoria", .dataField = "MG19_SOTTOCAT", .length = 3},
    {.caption = "Raggruppamento1", .dataField = "MG19_RAGGRCF1", .length = 3},
    {.caption = "Raggruppamento2", .dataField = "MG19_RAGGRCF2", .length = 3},
    // Spelled unlike the two before it, on purpose: saved filters go by this name.
    {.caption = "Raggruppamento3", .dataField = "MG19_RAGGCRF3", .length = 3},
});

inline constexpr auto articleFields = declared({
    {.caption = "Codice articolo",
     .dataField = "MG87_CODART_MG66",
     .length = 15,
     .option7 = false,
     .option11 = true},
    {.caption = "Famiglia", .dataField = "MG66_FAM_MG53", .length = 15},
    {.caption = "Sottofamiglia", .dataField = "MG66_SFAM_MG54", .length = 15},
    {.caption = "Gruppo", .dataField = "MG66_GRUPPO_MG55", .length = 15},
    {.caption = "Sottogruppo", .dataField = "MG66_SGRUPPO_MG56", .length = 15},
    {.caption = "Marca", .dataField = "MG66_MARCA_MG64", .length = 15},
    {.caption = "Gruppo statistico 1", .dataField = "MG66_GRUSTAT1_MG74", .length = 15},
    {.caption = "Gruppo statistico 2", .dataField = "MG66_GRUSTAT2_MG75", .length = 15},
    {.caption = "Gruppo statistico 3", .dataField = "MG66_GRUSTAT3_MG76", .length = 15},
    {.caption = "Gruppo statistico 4", .dataField = "MG66_GRUSTAT4_MG77", .length = 15},
    {.caption = "Stato",
     .dataField = "MG66_INDSTATO_MG6W",
     .length = 2,
     .option7 = false,
     .isNumeric = true},
    {.caption = "Classe di sconto", .dataField = "MG66_CLASC_MG63", .length = 15},
});

}  // namespace kebu::forms
