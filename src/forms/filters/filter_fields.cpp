#include "forms/filters/filter_fields.h"

#include "sql/filters.h"

namespace kebu::forms {

std::string decodeFromTable(const PageContext& context, const FilterField& field,
                            const CodeKeys& keys) {
  return context.hostServices.decodes->Code(field.table, context.companyKey().text, keys);
}

host::LookupDefinition listOfTable(const PageContext& context, const FilterField& field,
                                   const CodeKeys& upperKeys) {
  return context.hostServices.lookups->Codes(field.table, context.companyKey().text, upperKeys);
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
     .table = "CG44",
     .description = "CG16_RAGSOANAG",
     .decoder = "DecodificaClifor",
     .longestCode = 6,
     .decode = decodeCustomer,
     .list = listCustomers},
    {.caption = "Ragione sociale",
     .dataField = "Azienda",
     .length = 40,
     .table = "CG44",
     .list = listCustomerNames},
    {.caption = "Indirizzo", .dataField = "IndirizzoPrincipaleL1", .length = 40},
    {.caption = "CAP", .dataField = "Cap", .length = 8},
    {.caption = "Città", .dataField = "Citta", .length = 40},
    {.caption = "Provincia", .dataField = "Provincia", .length = 2},
    {.caption = "Partita Iva", .dataField = "PartitaIva", .length = 16},
    {.caption = "Macroarea",
     .dataField = macroArea,
     .length = 3,
     .table = "MG07",
     .description = "MG07_DESCRMACROAR",
     .decoder = "DecodificaMacroArea"},
    {.caption = "Area",
     .dataField = area,
     .length = 3,
     .table = "MG08",
     .description = "MG08_DESCRAREA",
     .decoder = "DecodificaArea",
     .upper = {macroArea}},
    {.caption = "Zona",
     .dataField = "MG19_ZONA",
     .length = 3,
     .table = "MG09",
     .description = "MG09_DESCRZONA",
     .decoder = "DecodificaZona",
     .upper = {macroArea, area}},
    {.caption = "Macrocategoria",
     .dataField = macroCategory,
     .length = 3,
     .table = "MG10",
     .description = "MG10_DESCRMACROCAT",
     .decoder = "DecodificaMacroCategoria"},
    {.caption = "Categoria",
     .dataField = category,
     .length = 3,
     .table = "MG11",
     .description = "MG11_DESCRCAT",
     .decoder = "DecodificaCategoria",
     .upper = {macroCategory}},
    {.caption = "Sottocategoria",
     .dataField = "MG19_SOTTOCAT",
     .length = 3,
     .table = "MG12",
     .description = "MG12_DESCRSOTTOCAT",
     .decoder = "DecodificaSottoCategoria",
     .upper = {macroCategory, category}},
    {.caption = "Raggruppamento1",
     .dataField = "MG19_RAGGRCF1",
     .length = 3,
     .table = "MG31",
     .description = "MG31_DESCRAGGRCF1",
     .decoder = "DecodificaRaggrUno"},
    {.caption = "Raggruppamento2",
     .dataField = "MG19_RAGGRCF2",
     .length = 3,
     .table = "MG32",
     .description = "MG32_DESCRAGGRCF2",
     .decoder = "DecodificaRaggrDue"},
    // Spelled unlike the two before it, on purpose: saved filters use this name.
    {.caption = "Raggruppamento3",
     .dataField = "MG19_RAGGCRF3",
     .length = 3,
     .table = "MG33",
     .description = "MG33_DESCRAGGRCF3",
     .decoder = "DecodificaRaggrTre"},
};

constexpr FilterField ofArticles[] = {
    {.caption = "Codice articolo",
     .dataField = "MG87_CODART_MG66",
     .length = 15,
     .option7 = false,
     .option11 = true,
     .table = "MG66",
     .description = "MG87_DESCART",
     .decoder = "DecodificaArticolo"},
    {.caption = "Famiglia",
     .dataField = family,
     .length = 15,
     .table = "MG53",
     .description = "MG53_DESCRFAM",
     .decoder = "DecodificaFamiglia"},
    {.caption = "Sottofamiglia",
     .dataField = subFamily,
     .length = 15,
     .table = "MG54",
     .description = "MG54_DESCRSFAM",
     .decoder = "DecodificaSottoFamiglia",
     .upper = {family}},
    {.caption = "Gruppo",
     .dataField = group,
     .length = 15,
     .table = "MG55",
     .description = "MG55_DESCRGRUPPO",
     .decoder = "DecodificaGruppo",
     .upper = {family, subFamily}},
    {.caption = "Sottogruppo",
     .dataField = "MG66_SGRUPPO_MG56",
     .length = 15,
     .table = "MG56",
     .description = "MG56_DESCRSGRUPPO",
     .decoder = "DecodificaSottoGruppo",
     .upper = {family, subFamily, group}},
    {.caption = "Marca",
     .dataField = "MG66_MARCA_MG64",
     .length = 15,
     .table = "MG64",
     .description = "MG64_DESCRMARCA",
     .decoder = "DecodificaMarca"},
    {.caption = "Gruppo statistico 1",
     .dataField = "MG66_GRUSTAT1_MG74",
     .length = 15,
     .table = "MG74",
     .description = "MG74_DESCRGRUSTAT1",
     .decoder = "DecodificaGruStat1"},
    {.caption = "Gruppo statistico 2",
     .dataField = "MG66_GRUSTAT2_MG75",
     .length = 15,
     .table = "MG75",
     .description = "MG75_DESCRGRUSTAT2",
     .decoder = "DecodificaGruStat2"},
    {.caption = "Gruppo statistico 3",
     .dataField = "MG66_GRUSTAT3_MG76",
     .length = 15,
     .table = "MG76",
     .description = "MG76_DESCRGRUSTAT3",
     .decoder = "DecodificaGruStat3"},
    {.caption = "Gruppo statistico 4",
     .dataField = "MG66_GRUSTAT4_MG77",
     .length = 15,
     .table = "MG77",
     .description = "MG77_DESCRGRUSTAT4",
     .decoder = "DecodificaGruStat4"},
    {.caption = "Stato",
     .dataField = "MG66_INDSTATO_MG6W",
     .length = 2,
     .isNumeric = true,
     .option7 = false,
     .table = "MG6W",
     .description = "MG6W_DESCR",
     .decoder = "DecodificaStato",
     .decode = decodeState,
     .list = listStates},
    {.caption = "Classe di sconto",
     .dataField = "MG66_CLASC_MG63",
     .length = 15,
     .table = "MG63",
     .description = "MG63_DESCRCLASC",
     .decoder = "DecodificaClasseSconto"},
    // Not declared by the editors of this system. Their look-ups are kept on purpose.
    {.caption = "Applicazione", .table = "MG57"},
    {.caption = "Fornitore", .table = "CG44", .list = listSuppliers},
    {.caption = "Provenienza prodotto", .table = "PD18_INDPROVENIENZA"},
    {.caption = "Tipo prodotto", .table = "PD18_INDTIPOPROD"},
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
