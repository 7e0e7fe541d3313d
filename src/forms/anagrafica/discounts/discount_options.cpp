#include "forms/anagrafica/discounts/discount_options.h"

#include <array>
#include <iterator>

#include "common/convert.h"
#include "common/nulls.h"
#include "forms/anagrafica/discounts/list_types.h"

namespace kebu::forms {

namespace {

constexpr auto discountListRows = [] {
  std::array<FixedChoice::Row, std::size(discountListTypes)> rows{};
  for (std::size_t i = 0; i < rows.size(); ++i) {
    rows[i] = {discountListTypes[i].number, discountListTypes[i].caption};
  }
  return rows;
}();
constexpr FixedChoice discountList{discountListRows, 0, false};

constexpr FixedChoice::Row ruleApplicationRows[] = {
    {1, "Regola di inclusione: applicare lo sconto alle categorie e ai prodotti selezionati"},
    {2,
     "Regola di esclusione: applicare lo sconto a tutti i prodotti tranne a quelli specificati "
     "nella selezione"},
};
constexpr FixedChoice ruleApplication{ruleApplicationRows, 1, false};

// The columns of a rule that carry the options.
constexpr const char* struckThroughPrices = "GM61_FLGPRZBARRATI";
constexpr const char* noOtherDiscounts = "GM61_FLGNONTRATTAREALTRISC";
constexpr const char* singleUse = "GM61_FLGMONOUSO";
constexpr const char* application = "GM61_INDREGOLEINCLUSIONE";

}  // namespace

DiscountOptions::DiscountOptions(PageContext& context) : context_(context) {
  for (controls::CheckBox* box :
       {&CHK_VISPREZZIBARRATI, &CHK_NONTRATTAREALTRISCONTI, &CHK_MONOUSO}) {
    box->AfterChange.on([this, box] { optionChanged(box->Name() + "_AfterChange"); });
  }
  CMB_REGAPPLICAZIONE.AfterItem.on([this] { optionChanged("CMB_REGAPPLICAZIONE_AfterItem"); });
}

void DiscountOptions::place(controls::GroupBox& page) {
  GRB_GENERALESCONTI.addAll(CHK_VISPREZZIBARRATI, CHK_NONTRATTAREALTRISCONTI, CHK_MONOUSO,
                            CMB_REGAPPLICAZIONE);
  page.addAll(CMB_LISTINISCONTO, GRB_GENERALESCONTI);
}

std::array<FixedChoiceCombo, 2> DiscountOptions::fixedChoices() {
  return {{{CMB_LISTINISCONTO, discountList}, {CMB_REGAPPLICAZIONE, ruleApplication}}};
}

void DiscountOptions::optionChanged(const std::string& name) {
  procedure(context_, name, [&](Procedure&) { Modified.raise(); });
}

void DiscountOptions::reset() {
  CHK_VISPREZZIBARRATI.setTicked(false);
  CHK_NONTRATTAREALTRISCONTI.setTicked(false);
  CHK_MONOUSO.setTicked(false);
  CMB_REGAPPLICAZIONE.select(ruleApplication.initial);
}

const controls::BoundControl* DiscountOptions::controlOf(std::string_view column) const {
  if (column == struckThroughPrices) return &CHK_VISPREZZIBARRATI;
  if (column == noOtherDiscounts) return &CHK_NONTRATTAREALTRISCONTI;
  if (column == singleUse) return &CHK_MONOUSO;
  return column == application ? &CMB_REGAPPLICAZIONE : nullptr;
}

void DiscountOptions::show(const Ref<ado::Recordset>& rule, Procedure& p) {
  const auto tick = [&](controls::CheckBox& box, const char* column) {
    box.setTicked(toBoolean(CDecN(p.value(rule, column))));
  };
  tick(CHK_VISPREZZIBARRATI, struckThroughPrices);
  tick(CHK_NONTRATTAREALTRISCONTI, noOtherDiscounts);
  tick(CHK_MONOUSO, singleUse);
  CMB_REGAPPLICAZIONE.select(CDecN(p.value(rule, application)));
}

sql::RuleOptions DiscountOptions::values() const {
  return {.struckThroughPrices = CHK_VISPREZZIBARRATI.value(),
          .noOtherDiscounts = CHK_NONTRATTAREALTRISCONTI.value(),
          .singleUse = CHK_MONOUSO.value(),
          .application = CMB_REGAPPLICAZIONE.value(),
          .today = GetAnsiDate(context_.today())};
}

}  // namespace kebu::forms
