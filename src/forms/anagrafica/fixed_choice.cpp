#include "forms/anagrafica/fixed_choice.h"

namespace kebu::forms {

void fill(const FixedChoiceCombo& filled, const PageContext& context) {
  const auto& [combo, choice] = filled;
  combo.clear();
  combo.setShowsCodes(choice.showsCodes);
  for (const FixedChoice::Row& row : choice.rows) {
    combo.addRow(row.code, context.translate(std::string(row.caption)));
  }
  combo.select(choice.initial);
}

}  // namespace kebu::forms
