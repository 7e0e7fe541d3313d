#pragma once

#include "controls/query_editor.h"

// The fields by which customers and articles are filtered, as they are declared
// to the editors of the main window and of the selection dialogs alike.
namespace kebu::forms {

/// The customers' options besides 6 to 8 are off.
constexpr controls::QueryField customerField(std::int32_t position, std::string_view caption,
                                             std::string_view dataField, bool option6, bool option7,
                                             bool option8, std::size_t length) {
  return {"Standard", caption, dataField, true,  position, option6,
          option7,    option8, false,     false, false,    length};
}

/// Every article field has a look-up.
constexpr controls::QueryField articleField(std::int32_t position, std::string_view caption,
                                            std::string_view dataField, bool option7, bool option8,
                                            bool option11, std::size_t length) {
  return {"Standard", caption, dataField, true,  position, true,
          option7,    option8, false,     false, option11, length};
}

inline constexpr controls::QueryField customerFields[] = {
    customerField(1, "Codice", "CG44_CLIFOR", true, false, true, 6),
    customerField(2, "Ragione sociale", "Azienda", true, true, false, 40),
    customerField(3, "Indirizzo", "IndirizzoPrincipaleL1", false, true, false, 40),
    customerField(4, "CAP", "Cap", false, true, false, 8),
    customerField(5, "Città", "Citta", false, true, false, 40),
    customerField(6, "Provincia", "Provincia", false, true, false, 2),
    customerField(7, "Partita Iva", "PartitaIva", false, true, false, 16),
    customerField(8, "Macroarea", "MG19_MACROAREA", true, true, false, 3),
    customerField(9, "Area", "MG19_AREA", true, true, false, 3),
    customerField(10, "Zona", "MG19_ZONA", true, true, false, 3),
    customerField(11, "Macrocategoria", "MG19_MACROCAT", true, true, false, 3),
    customerField(12, "Categoria", "MG19_CATEG", true, true, false, 3),
    customerField(13, "Sottocategoria", "MG19_SOTTOCAT", true, true, false, 3),
    customerField(14, "Raggruppamento1", "MG19_RAGGRCF1", true, true, false, 3),
    customerField(15, "Raggruppamento2", "MG19_RAGGRCF2", true, true, false, 3),
    // Spelled unlike the two before it; saved filters go by this name.
    customerField(16, "Raggruppamento3", "MG19_RAGGCRF3", true, true, false, 3),
};

inline constexpr controls::QueryField articleFields[] = {
    articleField(1, "Codice articolo", "MG87_CODART_MG66", false, false, true, 15),
    articleField(2, "Famiglia", "MG66_FAM_MG53", true, false, false, 15),
    articleField(3, "Sottofamiglia", "MG66_SFAM_MG54", true, false, false, 15),
    articleField(4, "Gruppo", "MG66_GRUPPO_MG55", true, false, false, 15),
    articleField(5, "Sottogruppo", "MG66_SGRUPPO_MG56", true, false, false, 15),
    articleField(6, "Marca", "MG66_MARCA_MG64", true, false, false, 15),
    articleField(7, "Gruppo statistico 1", "MG66_GRUSTAT1_MG74", true, false, false, 15),
    articleField(8, "Gruppo statistico 2", "MG66_GRUSTAT2_MG75", true, false, false, 15),
    articleField(9, "Gruppo statistico 3", "MG66_GRUSTAT3_MG76", true, false, false, 15),
    articleField(10, "Gruppo statistico 4", "MG66_GRUSTAT4_MG77", true, false, false, 15),
    articleField(11, "Stato", "MG66_INDSTATO_MG6W", false, true, false, 2),
    articleField(12, "Classe di sconto", "MG66_CLASC_MG63", true, false, false, 15),
};

}  // namespace kebu::forms
