#include "forms/filters/filter_fields.h"

#include "sql/filters.h"

namespace kebu::forms {

std::string decodeFromTable(const PageContext& context, const FilterField& field,
                            const CodeKeys& keys) {
  return context.hostServices.decodes->Code(field.codes.table, context.companyKey().text, keys);
}

host::LookupDefinition listOfTable(const PageContext& context, const FilterField& field,
                                   const CodeKeys& upperKeys) {
  return context.hostServices.lookups->Codes(field.codes.table, context.companyKey().text,
                                             upperKeys);
}

namespace {

std::string decodeCustomer(const PageContext& context, const FilterField&, const CodeKeys& keys) {
  return context.hostServices.decodes->Customer(context.companyKey().text, keys.back());
}

host::LookupDefinition listCustomers(const PageContext& context, const FilterField&,
                                     const CodeKeys&) {
  return context.hostServices.lookups->Customers(context.companyKey().text);
}

host::LookupDefinition listCustomerNames(const PageContext& context, const FilterField&,
                                         const CodeKeys&) {
  return context.hostServices.lookups->CustomerNames(context.companyKey().text);
}

host::LookupDefinition listSuppliers(const PageContext& context, const FilterField&,
                                     const CodeKeys&) {
  return context.hostServices.lookups->Suppliers(context.companyKey().text);
}

std::string decodeState(const PageContext&, const FilterField&, const CodeKeys& keys) {
  return sql::DecodificaStatoArticolo(keys.back());
}

host::LookupDefinition listStates(const PageContext&, const FilterField&, const CodeKeys&) {
  return {.title = "Stati dell'articolo",
          .statement = sql::ElencoStatiArticolo(),
          .captions = {"Codice stato", "Descrizione stato"},
          .key = "LKP_STATO_ARTICOLI"};
}

constexpr std::string_view macroArea = "MG19_MACROAREA";
constexpr std::string_view area = "MG19_AREA";
constexpr std::string_view macroCategory = "MG19_MACROCAT";
constexpr std::string_view category = "MG19_CATEG";
constexpr std::string_view family = "MG66_FAM_MG53";
constexpr std::string_view subFamily = "MG66_SFAM_MG54";
constexpr std::string_view group = "MG66_GRUPPO_MG55";

constexpr FilterField ofCustomers[] = {
    {.caption = "Codice",
     .dataField = "CG44_CLIFOR",
     .length = 6,
     .isNumeric = true,
     .option7 = false,
     .codes = {"CG44", "CG16_RAGSOANAG", "DecodificaClifor"},
     .longestCode = 6,
     .decode = decodeCustomer,
     .list = listCustomers},
    {.caption = "Ragione sociale",
     .dataField = "Azienda",
     .length = 40,
     .codes = {"CG44"},
     .list = listCustomerNames},
    {.caption = "Indirizzo", .dataField = "IndirizzoPrincipaleL1", .length = 40},
    {.caption = "CAP", .dataField = "Cap", .length = 8},
    {.caption = "Città", .dataField = "Citta", .length = 40},
    {.caption = "Provincia", .dataField = "Provincia", .length = 2},
    {.caption = "Partita Iva", .dataField = "PartitaIva", .length = 16},
    {.caption = "Macroarea",
     .dataField = macroArea,
     .length = 3,
     .codes = {"MG07", "MG07_DESCRMACROAR", "DecodificaMacroArea"}},
    {.caption = "Area",
     .dataField = area,
     .length = 3,
     .codes = {"MG08", "MG08_DESCRAREA", "DecodificaArea"},
     .upper = {macroArea}},
    {.caption = "Zona",
     .dataField = "MG19_ZONA",
     .length = 3,
     .codes = {"MG09", "MG09_DESCRZONA", "DecodificaZona"},
     .upper = {macroArea, area}},
    {.caption = "Macrocategoria",
     .dataField = macroCategory,
     .length = 3,
     .codes = {"MG10", "MG10_DESCRMACROCAT", "DecodificaMacroCategoria"}},
    {.caption = "Categoria",
     .dataField = category,
     .length = 3,
     .codes = {"MG11", "MG11_DESCRCAT", "DecodificaCategoria"},
     .upper = {macroCategory}},
    {.caption = "Sottocategoria",
     .dataField = "MG19_SOTTOCAT",
     .length = 3,
     .codes = {"MG12", "MG12_DESCRSOTTOCAT", "DecodificaSottoCategoria"},
     .upper = {macroCategory, category}},
    {.caption = "Raggruppamento1",
     .dataField = "MG19_RAGGRCF1",
     .length = 3,
     .codes = {"MG31", "MG31_DESCRAGGRCF1", "DecodificaRaggrUno"}},
    {.caption = "Raggruppamento2",
     .dataField = "MG19_RAGGRCF2",
     .length = 3,
     .codes = {"MG32", "MG32_DESCRAGGRCF2", "DecodificaRaggrDue"}},
    // Spelled unlike the two before it, on purpose: saved filters use this name.
    {.caption = "Raggruppamento3",
     .dataField = "MG19_RAGGCRF3",
     .length = 3,
     .codes = {"MG33", "MG33_DESCRAGGRCF3", "DecodificaRaggrTre"}},
};

constexpr FilterField ofArticles[] = {
    {.caption = "Codice articolo",
     .dataField = "MG87_CODART_MG66",
     .length = 15,
     .option7 = false,
     .option11 = true,
     .codes = {"MG66", "MG87_DESCART", "DecodificaArticolo"}},
    {.caption = "Famiglia",
     .dataField = family,
     .length = 15,
     .codes = {"MG53", "MG53_DESCRFAM", "DecodificaFamiglia"}},
    {.caption = "Sottofamiglia",
     .dataField = subFamily,
     .length = 15,
     .codes = {"MG54", "MG54_DESCRSFAM", "DecodificaSottoFamiglia"},
     .upper = {family}},
    {.caption = "Gruppo",
     .dataField = group,
     .length = 15,
     .codes = {"MG55", "MG55_DESCRGRUPPO", "DecodificaGruppo"},
     .upper = {family, subFamily}},
    {.caption = "Sottogruppo",
     .dataField = "MG66_SGRUPPO_MG56",
     .length = 15,
     .codes = {"MG56", "MG56_DESCRSGRUPPO", "DecodificaSottoGruppo"},
     .upper = {family, subFamily, group}},
    {.caption = "Marca",
     .dataField = "MG66_MARCA_MG64",
     .length = 15,
     .codes = {"MG64", "MG64_DESCRMARCA", "DecodificaMarca"}},
    {.caption = "Gruppo statistico 1",
     .dataField = "MG66_GRUSTAT1_MG74",
     .length = 15,
     .codes = {"MG74", "MG74_DESCRGRUSTAT1", "DecodificaGruStat1"}},
    {.caption = "Gruppo statistico 2",
     .dataField = "MG66_GRUSTAT2_MG75",
     .length = 15,
     .codes = {"MG75", "MG75_DESCRGRUSTAT2", "DecodificaGruStat2"}},
    {.caption = "Gruppo statistico 3",
     .dataField = "MG66_GRUSTAT3_MG76",
     .length = 15,
     .codes = {"MG76", "MG76_DESCRGRUSTAT3", "DecodificaGruStat3"}},
    {.caption = "Gruppo statistico 4",
     .dataField = "MG66_GRUSTAT4_MG77",
     .length = 15,
     .codes = {"MG77", "MG77_DESCRGRUSTAT4", "DecodificaGruStat4"}},
    {.caption = "Stato",
     .dataField = "MG66_INDSTATO_MG6W",
     .length = 2,
     .isNumeric = true,
     .option7 = false,
     .codes = {"MG6W", "MG6W_DESCR", "DecodificaStato"},
     .decode = decodeState,
     .list = listStates},
    {.caption = "Classe di sconto",
     .dataField = "MG66_CLASC_MG63",
     .length = 15,
     .codes = {"MG63", "MG63_DESCRCLASC", "DecodificaClasseSconto"}},
    // Not declared by the editors of this system. Their look-ups are kept on purpose.
    {.caption = "Applicazione", .codes = {"MG57"}},
    {.caption = "Fornitore", .codes = {"CG44"}, .list = listSuppliers},
    {.caption = "Provenienza prodotto", .codes = {"PD18_INDPROVENIENZA"}},
    {.caption = "Tipo prodotto", .codes = {"PD18_INDTIPOPROD"}},
};

}  // namespace

std::span<const FilterField> customerFields() {
  return ofCustomers;
}

std::span<const FilterField> articleFields() {
  return ofArticles;
}

std::vector<controls::QueryField> declarationsOf(std::span<const FilterField> fields) {
  std::vector<controls::QueryField> declared;
  for (const FilterField& field : fields) {
    if (field.dataField.empty()) continue;
    declared.push_back({.group = "Standard",
                        .caption = field.caption,
                        .dataField = field.dataField,
                        .option4 = true,
                        .position = static_cast<std::int32_t>(declared.size() + 1),
                        .hasLookup = field.hasCodes(),
                        .option7 = field.option7,
                        .isNumeric = field.isNumeric,
                        .option9 = false,
                        .option10 = false,
                        .option11 = field.option11,
                        .length = field.length});
  }
  return declared;
}

}  // namespace kebu::forms
