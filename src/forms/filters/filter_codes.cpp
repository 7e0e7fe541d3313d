#include "forms/filters/filter_codes.h"

#include "sql/filters.h"

namespace kebu::forms {

namespace {

using Keys = CodeField::Keys;

std::string ofTable(const PageContext& context, const CodeField& field, const Keys& keys) {
  return context.decodes->Code(field.table, context.companyKey().text, keys);
}

host::LookupDefinition listOfTable(const PageContext& context, const CodeField& field,
                                   const Keys& upperKeys) {
  return context.lookups->Codes(field.table, context.companyKey().text, upperKeys);
}

std::string ofCustomer(const PageContext& context, const CodeField&, const Keys& keys) {
  return context.decodes->Customer(context.companyKey().text, keys.back());
}

host::LookupDefinition customers(const PageContext& context, const CodeField&, const Keys&) {
  return context.lookups->Customers(context.companyKey().text);
}

host::LookupDefinition customerNames(const PageContext& context, const CodeField&, const Keys&) {
  return context.lookups->CustomerNames(context.companyKey().text);
}

host::LookupDefinition suppliers(const PageContext& context, const CodeField&, const Keys&) {
  return context.lookups->Suppliers(context.companyKey().text);
}

std::string ofState(const PageContext&, const CodeField&, const Keys& keys) {
  return sql::DecodificaStatoArticolo(keys.back());
}

host::LookupDefinition states(const PageContext&, const CodeField&, const Keys&) {
  return {"Stati dell'articolo",
          sql::ElencoStatiArticolo(),
          {"Codice stato", "Descrizione stato"},
          "LKP_STATO_ARTICOLI"};
}

constexpr std::string_view macroArea = "MG19_MACROAREA";
constexpr std::string_view area = "MG19_AREA";
constexpr std::string_view macroCategory = "MG19_MACROCAT";
constexpr std::string_view category = "MG19_CATEG";
constexpr std::string_view family = "MG66_FAM_MG53";
constexpr std::string_view subFamily = "MG66_SFAM_MG54";
constexpr std::string_view group = "MG66_GRUPPO_MG55";

constexpr CodeField ofCustomers[] = {
    {"Codice", "DecodificaClifor", "CG44", "CG16_RAGSOANAG", ofCustomer, customers, {}, 6},
    {"Ragione sociale", nullptr, "CG44", "", nullptr, customerNames},
    {"Macroarea", "DecodificaMacroArea", "MG07", "MG07_DESCRMACROAR", ofTable, listOfTable},
    {"Area", "DecodificaArea", "MG08", "MG08_DESCRAREA", ofTable, listOfTable, {macroArea}},
    {"Zona", "DecodificaZona", "MG09", "MG09_DESCRZONA", ofTable, listOfTable, {macroArea, area}},
    {"Macrocategoria", "DecodificaMacroCategoria", "MG10", "MG10_DESCRMACROCAT", ofTable,
     listOfTable},
    {"Categoria",
     "DecodificaCategoria",
     "MG11",
     "MG11_DESCRCAT",
     ofTable,
     listOfTable,
     {macroCategory}},
    {"Sottocategoria",
     "DecodificaSottoCategoria",
     "MG12",
     "MG12_DESCRSOTTOCAT",
     ofTable,
     listOfTable,
     {macroCategory, category}},
    {"Raggruppamento1", "DecodificaRaggrUno", "MG31", "MG31_DESCRAGGRCF1", ofTable, listOfTable},
    {"Raggruppamento2", "DecodificaRaggrDue", "MG32", "MG32_DESCRAGGRCF2", ofTable, listOfTable},
    {"Raggruppamento3", "DecodificaRaggrTre", "MG33", "MG33_DESCRAGGRCF3", ofTable, listOfTable},
};

constexpr CodeField ofArticles[] = {
    {"Codice articolo", "DecodificaArticolo", "MG66", "MG87_DESCART", ofTable, listOfTable},
    {"Famiglia", "DecodificaFamiglia", "MG53", "MG53_DESCRFAM", ofTable, listOfTable},
    {"Sottofamiglia",
     "DecodificaSottoFamiglia",
     "MG54",
     "MG54_DESCRSFAM",
     ofTable,
     listOfTable,
     {family}},
    {"Gruppo",
     "DecodificaGruppo",
     "MG55",
     "MG55_DESCRGRUPPO",
     ofTable,
     listOfTable,
     {family, subFamily}},
    {"Sottogruppo",
     "DecodificaSottoGruppo",
     "MG56",
     "MG56_DESCRSGRUPPO",
     ofTable,
     listOfTable,
     {family, subFamily, group}},
    {"Marca", "DecodificaMarca", "MG64", "MG64_DESCRMARCA", ofTable, listOfTable},
    {"Gruppo statistico 1", "DecodificaGruStat1", "MG74", "MG74_DESCRGRUSTAT1", ofTable,
     listOfTable},
    {"Gruppo statistico 2", "DecodificaGruStat2", "MG75", "MG75_DESCRGRUSTAT2", ofTable,
     listOfTable},
    {"Gruppo statistico 3", "DecodificaGruStat3", "MG76", "MG76_DESCRGRUSTAT3", ofTable,
     listOfTable},
    {"Gruppo statistico 4", "DecodificaGruStat4", "MG77", "MG77_DESCRGRUSTAT4", ofTable,
     listOfTable},
    {"Stato", "DecodificaStato", "MG6W", "MG6W_DESCR", ofState, states},
    {"Classe di sconto", "DecodificaClasseSconto", "MG63", "MG63_DESCRCLASC", ofTable, listOfTable},
    // Of fields that these editors do not declare.
    {"Applicazione", nullptr, "MG57", "", nullptr, listOfTable},
    {"Fornitore", nullptr, "CG44", "", nullptr, suppliers},
    {"Provenienza prodotto", nullptr, "PD18_INDPROVENIENZA", "", nullptr, listOfTable},
    {"Tipo prodotto", nullptr, "PD18_INDTIPOPROD", "", nullptr, listOfTable},
};

}  // namespace

std::span<const CodeField> customerCodes() {
  return ofCustomers;
}

std::span<const CodeField> articleCodes() {
  return ofArticles;
}

}  // namespace kebu::forms
