#pragma once

#include "forms/anagrafica/fixed_choice.h"

namespace kebu::forms::choices {

inline constexpr FixedChoice::Row stockRows[] = {
    {0, "Effettiva"}, {1, "Attuale"}, {2, "Disponibile"}};
inline constexpr FixedChoice stock{stockRows, 0, true};

inline constexpr FixedChoice::Row importDepositRows[] = {{0, "Come da personalizzazione documento"},
                                                         {1, "Come da specifica"}};
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

}  // namespace kebu::forms::choices
