#pragma once

#include <array>
#include <cstdint>
#include <iterator>
#include <span>
#include <string_view>

#include "forms/anagrafica/discounts/list_types.h"

namespace kebu::forms {

/// A fixed-choice combo: its rows in order and the code chosen at first.
struct FixedChoice {
  struct Row {
    std::int32_t code;
    std::string_view caption;
  };
  std::span<const Row> rows;
  std::int32_t initial;
  bool showsCodes;
};

namespace choices {

inline constexpr FixedChoice::Row stockRows[] = {
    {0, "Effettiva"},
    {1, "Attuale"},
    {2, "Disponibile"},
};
inline constexpr FixedChoice stock{stockRows, 0, true};

inline constexpr FixedChoice::Row importDepositRows[] = {
    {0, "Come da personalizzazione documento"},
    {1, "Come da specifica"},
};
inline constexpr FixedChoice importDeposit{importDepositRows, 0, true};

// The ERP's own valuation codes, with their gaps.
inline constexpr FixedChoice::Row valuationRows[] = {
    {0, "Nessuna valorizzazione"},
    {2, "Costo ult./prod. del deposito"},
    {4, "Costo standard del deposito"},
    {6, "Magg. ult. 2 costi acq. del deposito"},
    {8, "Costo medio del deposito"},
    {10, "Costo fifo anno in corso del deposito"},
    {12, "Costo fifo storico del deposito"},
    {14, "Costo lifo del deposito"},
    {15, "Costo medio fornitori"},
    {16, "Listino di acquisto"},
    {17, "Listino di vendita"},
};
// No row has the initial code: the combo begins without a choice.
inline constexpr FixedChoice valuation{valuationRows, 1, false};

inline constexpr auto discountListRows = [] {
  std::array<FixedChoice::Row, std::size(discountListTypes)> rows{};
  for (std::size_t i = 0; i < rows.size(); ++i) {
    rows[i] = {discountListTypes[i].number, discountListTypes[i].caption};
  }
  return rows;
}();
inline constexpr FixedChoice discountList{discountListRows, 0, false};

inline constexpr FixedChoice::Row ruleApplicationRows[] = {
    {1, "Regola di inclusione: applicare lo sconto alle categorie e ai prodotti selezionati"},
    {2,
     "Regola di esclusione: applicare lo sconto a tutti i prodotti tranne a quelli specificati "
     "nella selezione"},
};
inline constexpr FixedChoice ruleApplication{ruleApplicationRows, 1, false};

}  // namespace choices

}  // namespace kebu::forms
