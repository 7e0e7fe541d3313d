#pragma once

#include <array>
#include <string_view>

#include "controls/check_box.h"
#include "controls/combo_box.h"
#include "controls/simple_controls.h"
#include "forms/anagrafica/fixed_choice.h"
#include "forms/page_context.h"
#include "forms/procedure.h"
#include "sql/discount_rules.h"

namespace kebu::forms {

/// The controls of the discount page that hold for all rules: the list type that is shown, and the
/// options that every stored rule carries.
class DiscountOptions {
 public:
  explicit DiscountOptions(PageContext& context);

  controls::GroupBox GRB_GENERALESCONTI{"GRB_GENERALESCONTI", "Generale"};
  controls::ComboBox CMB_LISTINISCONTO{"CMB_LISTINISCONTO", "Tipologia sconto"};
  controls::ComboBox CMB_REGAPPLICAZIONE{"CMB_REGAPPLICAZIONE", "Regola di applicazione"};
  controls::CheckBox CHK_VISPREZZIBARRATI{"CHK_VISPREZZIBARRATI", "Visualizza prezzi barrati"};
  controls::CheckBox CHK_NONTRATTAREALTRISCONTI{"CHK_NONTRATTAREALTRISCONTI",
                                                "Non trattare altri sconti"};
  controls::CheckBox CHK_MONOUSO{"CHK_MONOUSO", "Monouso"};

  void place(controls::GroupBox& page);
  /// The combos with their rows. They are filled together with those of the parameters.
  std::array<FixedChoiceCombo, 2> fixedChoices();

  /// Sets the options to what new rules have.
  void reset();
  /// The control of the option that a column of a rule carries; null for another column.
  const controls::BoundControl* controlOf(std::string_view column) const;
  /// Shows the options that a stored rule carries.
  void show(const Ref<ado::Recordset>& rule, Procedure& p);
  /// The options as rules carry them when they are stored today.
  sql::RuleOptions values() const;

  /// The user changed an option.
  Event<> Modified;

 private:
  void optionChanged(const std::string& name);

  PageContext& context_;
};

}  // namespace kebu::forms
