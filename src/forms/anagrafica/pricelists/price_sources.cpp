#include "forms/anagrafica/pricelists/price_sources.h"

#include "common/convert.h"
#include "common/nulls.h"
#include "sql/price_lists.h"

namespace kebu::forms {

bool takesQuantity(std::int32_t type) {
  return type == tsListinoScaglQt || type == tsPriorita;
}

std::string_view priceKey(std::int32_t type) {
  switch (type) {
    case tsListinoAnagArticolo:
      return "GM57_NUMLIST_LI10";
    case tsListinoMacrocat:
    case tsListinoMacroarea:
      return "GM57_CATEGORIA";
    case tsListinoDeposito:
      return "GM57_DEPGIACENZE_MG58";
    case tsListinoScaglQt:
      return "GM57_QUANTITA";
    case tsPriorita:
      return "GM57_CLIFOR_CG44";
    default:
      return "";
  }
}

bool isPriceKeyGiven(std::int32_t type, const Value& key) {
  const bool isText =
      type == tsListinoMacrocat || type == tsListinoMacroarea || type == tsListinoDeposito;
  return isText ? !RTrimN(key).empty() : !equalAsVariants(CDecN(key), std::int32_t{0});
}

PriceKeyDescription priceKeyDescription(const PageContext& context, std::string_view field,
                                        std::int32_t type, const std::string& code) {
  const sql::Company company = context.companyKey();
  if (field == "GM57_NUMLIST_LI10") {
    return {sql::DescrizioneNumeroListino(company, code), "MG44_DESCLIST"};
  }
  if (field == "GM57_CATEGORIA" && type == tsListinoMacroarea) {
    return {sql::DescrizioneMacroarea(company, code), "MG07_DESCRMACROAR"};
  }
  if (field == "GM57_CATEGORIA") {
    return {sql::DescrizioneMacrocategoria(company, code), "MG10_DESCRMACROCAT"};
  }
  if (field == "GM57_DEPGIACENZE_MG58") {
    return {sql::DescrizioneDeposito(company, code), "MG58_DESCRDEP"};
  }
  return {context.hostServices.decodes->Customer(company.text, code), "CG16_RAGSOANAG"};
}

}  // namespace kebu::forms
