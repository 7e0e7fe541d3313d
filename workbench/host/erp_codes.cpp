#include "workbench/host/erp_codes.h"

#include <algorithm>

#include "common/convert.h"
#include "common/error.h"

namespace kebu::workbench {

namespace {

using Columns = std::string_view[];

constexpr Columns macroArea = {"MG07_MACROAREA"};
constexpr Columns area = {"MG08_MACROAREA_MG07", "MG08_AREA"};
constexpr Columns zone = {"MG09_MACROAREA_MG08", "MG09_AREA_MG08", "MG09_ZONA"};
constexpr Columns macroCategory = {"MG10_MACROCAT"};
constexpr Columns category = {"MG11_MACROCAT_MG10", "MG11_CATEG"};
constexpr Columns subCategory = {"MG12_MACROCAT_MG11", "MG12_CATEG_MG11", "MG12_SOTTOCAT"};
constexpr Columns grouping1 = {"MG31_RAGGRCF1"};
constexpr Columns grouping2 = {"MG32_RAGGRCF2"};
constexpr Columns grouping3 = {"MG33_RAGGRCF3"};
constexpr Columns family = {"MG53_FAM"};
constexpr Columns subFamily = {"MG54_FAM_MG53", "MG54_SFAM"};
constexpr Columns group = {"MG55_FAM_MG53", "MG55_SFAM_MG54", "MG55_GRUPPO"};
constexpr Columns subGroup = {"MG56_FAM_MG53", "MG56_SFAM_MG54", "MG56_GRUPPO_MG55",
                              "MG56_SGRUPPO"};
constexpr Columns application = {"MG57_CODAPPLIC"};
constexpr Columns discountClass = {"MG63_CLASC"};
constexpr Columns brand = {"MG64_MARCA"};
constexpr Columns article = {"MG87_CODART_MG66"};
constexpr Columns statistic1 = {"MG74_GRUSTAT1"};
constexpr Columns statistic2 = {"MG75_GRUSTAT2"};
constexpr Columns statistic3 = {"MG76_GRUSTAT3"};
constexpr Columns statistic4 = {"MG77_GRUSTAT4"};

constexpr ErpCodes all[] = {
    {"MG07", "MG07_MACROAREE", "Elenco macroaree", "MG07_TIPOCF = 0", macroArea,
     "MG07_DESCRMACROAR"},
    {"MG08", "MG08_AREE", "Elenco aree", "MG08_TIPOCF_MG07 = 0", area, "MG08_DESCRAREA"},
    {"MG09", "MG09_ZONE", "Elenco zone", "MG09_TIPOCF_MG08 = 0", zone, "MG09_DESCRZONA"},
    {"MG10", "MG10_MACROCAT", "Elenco macrocategorie", "MG10_TIPOCF = 0", macroCategory,
     "MG10_DESCRMACROCAT"},
    {"MG11", "MG11_CATEG", "Elenco categorie", "MG11_TIPOCF_MG10 = 0", category, "MG11_DESCRCAT"},
    {"MG12", "MG12_SOTTOCAT", "Elenco sottocategorie", "MG12_TIPOCF_MG11 = 0", subCategory,
     "MG12_DESCRSOTTOCAT"},
    {"MG31", "MG31_RAGGRCF1", "Elenco raggruppamenti 1", "MG31_TIPOCF = 0", grouping1,
     "MG31_DESCRAGGRCF1"},
    {"MG32", "MG32_RAGGRCF2", "Elenco raggruppamenti 2", "MG32_TIPOCF = 0", grouping2,
     "MG32_DESCRAGGRCF2"},
    {"MG33", "MG33_RAGGRCF3", "Elenco raggruppamenti 3", "MG33_TIPOCF = 0", grouping3,
     "MG33_DESCRAGGRCF3"},
    {"MG53", "MG53_FAMIGLIE", "Elenco famiglie", "", family, "MG53_DESCRFAM"},
    {"MG54", "MG54_SOTTOFAM", "Elenco sottofamiglie", "", subFamily, "MG54_DESCRSFAM"},
    {"MG55", "MG55_GRUPPI", "Elenco gruppi", "", group, "MG55_DESCRGRUPPO"},
    {"MG56", "MG56_SOTTOGRUPPI", "Elenco sottogruppi", "", subGroup, "MG56_DESCRSGRUPPO"},
    {"MG57", "MG57_APPLICAZIONI", "Elenco applicazioni", "", application, "MG57_DESCRAPPLIC"},
    {"MG63", "MG63_CLASSISC", "Elenco classi di sconto", "", discountClass, "MG63_DESCRCLASC"},
    {"MG64", "MG64_MARCHE", "Elenco marche", "", brand, "MG64_DESCRMARCA"},
    {"MG66", "MG87_ARTDESC", "Elenco articoli", "MG87_OPZIONE_MG5E = '' AND MG87_LINGUA_MG52 = ''",
     article, "MG87_DESCART"},
    {"MG74", "MG74_GRUSTAT1", "Elenco gruppi statistici 1", "", statistic1, "MG74_DESCRGRUSTAT1"},
    {"MG75", "MG75_GRUSTAT2", "Elenco gruppi statistici 2", "", statistic2, "MG75_DESCRGRUSTAT2"},
    {"MG76", "MG76_GRUSTAT3", "Elenco gruppi statistici 3", "", statistic3, "MG76_DESCRGRUSTAT3"},
    {"MG77", "MG77_GRUSTAT4", "Elenco gruppi statistici 4", "", statistic4, "MG77_DESCRGRUSTAT4"},
};

}  // namespace

const ErpCodes& erpCodes(std::string_view table) {
  const auto* const at = std::find_if(std::begin(all), std::end(all), [&](const ErpCodes& codes) {
    return equalsIgnoringCase(codes.table, table);
  });
  if (at == std::end(all)) {
    throw RuntimeError(5, "The table " + std::string(table) + " holds no codes.");
  }
  return *at;
}

std::string whereKeys(const ErpCodes& codes, const std::string& company,
                      std::span<const std::string> values, EmptyValue empty) {
  if (values.size() > codes.keys.size()) {
    throw RuntimeError(5, "The table " + std::string(codes.table) + " has fewer levels.");
  }
  std::string text = " WHERE " + std::string(codes.name.substr(0, 4)) + "_DITTA_CG18 = " + company;
  if (!codes.condition.empty()) text += " AND " + std::string(codes.condition);
  for (std::size_t i = 0; i < values.size(); ++i) {
    if (empty == EmptyValue::LeavesKeyOpen && values[i].empty()) continue;
    text += " AND " + std::string(codes.keys[i]) + " = '" + replaceAll(values[i], "'", "''") + "'";
  }
  return text;
}

}  // namespace kebu::workbench
