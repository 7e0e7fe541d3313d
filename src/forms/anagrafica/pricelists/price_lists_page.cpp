#include "forms/anagrafica/pricelists/price_lists_page.h"

#include <algorithm>
#include <iterator>

#include "common/convert.h"
#include "common/nulls.h"
#include "forms/anagrafica/deposit_lookup.h"
#include "sql/price_lists.h"
#include "sql/working_tables.h"

namespace kebu::forms {

using controls::ColumnKind;

namespace {

/// Where a slot takes its price from.
enum PriceSource : std::int32_t {
  tsNessuna = 0,
  tsListinoAnagArticolo = 1,
  tsListinoMacrocat = 2,
  tsListinoMacroarea = 3,
  tsListinoDeposito = 4,
  tsListinoScaglQt = 5,
  tsPriorita = 6,
};

constexpr controls::ValueListItem slots[] = {
    {1, "Prezzo 1"}, {2, "Prezzo 2"}, {3, "Prezzo 3"}, {4, "Prezzo 4"}, {5, "Prezzo 5"},
    {6, "Prezzo 6"}, {7, "Prezzo 7"}, {8, "Prezzo 8"}, {9, "Prezzo 9"}, {10, "Prezzo 10"},
};

constexpr controls::ValueListItem sources[] = {
    {tsNessuna, "Nessuna"},
    {tsListinoAnagArticolo, "Listino Anagrafico articolo"},
    {tsListinoMacrocat, "Listino Articolo/Macrocategoria"},
    {tsListinoMacroarea, "Listino Articolo/Macroarea"},
    {tsListinoDeposito, "Listino Articolo/Deposito"},
    {tsListinoScaglQt, "Listino Articolo/Scaglioni di quantità"},
    {tsPriorita, "Da Priorità prezzi e sconti"},
};

// A code column stands without a caption: its description's serves both.
constexpr controls::GridColumn columns[] = {
    {"GM57_CODPREZZO", "Tarvo", 1000, ColumnKind::ValueList, slots, std::size(slots)},
    {"GM57_FLGATTIVO", "Attivo", 1000, ColumnKind::Check},
    {"GM57_INDTIPO", "Tipologia listino", 2750, ColumnKind::ValueList, sources, std::size(sources)},
    {"GM57_NUMLIST_LI10", "", 500, ColumnKind::Lookup},
    {"GM57_NUMLIST_LI10_DEC", "Listino anagrafico", 1750, ColumnKind::Description},
    {"GM57_CATEGORIA", "", 500, ColumnKind::Lookup},
    {"GM57_CATEGORIA_DEC", "Categoria", 1750, ColumnKind::Description},
    {"GM57_DEPGIACENZE_MG58", "", 500, ColumnKind::Lookup},
    {"GM57_DEPGIACENZE_MG58_DEC", "Deposito", 1750, ColumnKind::Description},
    {"GM57_QUANTITA", "Quantità", 1000, ColumnKind::Number},
    {"GM57_CLIFOR_CG44", "", 500, ColumnKind::Lookup},
    {"GM57_CLIFOR_CG44_DEC", "Cliente", 1750, ColumnKind::Description},
    {"GM57_FLGINCLUDISCONTI", "Includi sconti", 1000, ColumnKind::Check},
};

/// The columns that a slot of each type does not use. Types 2 and 3 also lose
/// the category: macro-category and macro-area codes are not the same.
struct UnusedColumns {
  std::int32_t type;
  std::vector<std::string> fields;
};

const UnusedColumns unusedColumns[] = {
    {tsNessuna,
     {"GM57_NUMLIST_LI10", "GM57_CATEGORIA", "GM57_DEPGIACENZE_MG58", "GM57_QUANTITA",
      "GM57_FLGINCLUDISCONTI", "GM57_CLIFOR_CG44"}},
    {tsListinoAnagArticolo,
     {"GM57_CATEGORIA", "GM57_DEPGIACENZE_MG58", "GM57_QUANTITA", "GM57_CLIFOR_CG44"}},
    {tsListinoMacrocat,
     {"GM57_NUMLIST_LI10", "GM57_DEPGIACENZE_MG58", "GM57_QUANTITA", "GM57_CATEGORIA",
      "GM57_CLIFOR_CG44"}},
    {tsListinoMacroarea,
     {"GM57_NUMLIST_LI10", "GM57_DEPGIACENZE_MG58", "GM57_QUANTITA", "GM57_CATEGORIA",
      "GM57_CLIFOR_CG44"}},
    {tsListinoDeposito,
     {"GM57_CATEGORIA", "GM57_NUMLIST_LI10", "GM57_QUANTITA", "GM57_CLIFOR_CG44"}},
    {tsListinoScaglQt,
     {"GM57_CATEGORIA", "GM57_NUMLIST_LI10", "GM57_DEPGIACENZE_MG58", "GM57_CLIFOR_CG44"}},
    {tsPriorita, {"GM57_NUMLIST_LI10", "GM57_CATEGORIA", "GM57_DEPGIACENZE_MG58", "GM57_QUANTITA"}},
};

bool takesQuantity(std::int32_t type) {
  return type == tsListinoScaglQt || type == tsPriorita;
}

}  // namespace

PriceListsPage::PriceListsPage(PageContext& context, ProgressDisplay& progress)
    : QGRID_LISTINI("QGRID_LISTINI", context.services),
      BTN_AGGLISTINI("BTN_AGGLISTINI", "Aggiorna prezzi"),
      context_(context),
      progress_(progress) {
  QGRID_LISTINI.cellLocked = [this](std::int32_t row, const std::string& field) {
    return field == "GM57_QUANTITA" &&
           !takesQuantity(toInt32(CDecN(QGRID_LISTINI.cell(row, "GM57_INDTIPO"))));
  };
  QGRID_LISTINI.OnEditing.on(
      [this](const std::string& field, bool& cancel) { QGRID_LISTINI_OnEditing(field, cancel); });
  QGRID_LISTINI.OnEdited.on([this](const std::string& field) { QGRID_LISTINI_OnEdited(field); });
  QGRID_LISTINI.SelectionBoxClick.on([this](const std::string& field, bool&) {
    flagClicked("QGRID_LISTINI_SelectionBoxClick", field);
  });
  QGRID_LISTINI.SelectAllClickEXT.on([this](const std::string& field, bool, bool&) {
    flagClicked("QGRID_LISTINI_SelectAllClickEXT", field);
  });
  QGRID_LISTINI.StartLookup.on(
      [this](const std::string& field, Value& code) { QGRID_LISTINI_StartLookup(field, code); });
  QGRID_LISTINI.DataFormatEXT.on(
      [this](std::int32_t row, const std::string& field, std::string& text) {
        QGRID_LISTINI_DataFormatEXT(row, field, text);
      });
  BTN_AGGLISTINI.ButtonClick.on([this] { BTN_AGGLISTINI_ButtonClick(); });
}

void PriceListsPage::ImpostaQGRID_Listini() {
  trap(context_.services, "ImpostaQGRID_Listini", [&](Steps& step) {
    const auto translate = [this](const std::string& text) { return context_.translate(text); };
    step([&] {
      QGRID_LISTINI.clearColumns();
      QGRID_LISTINI.setCaption(translate("Listini"));
      QGRID_LISTINI.setKeyField("GM57_CODPREZZO");
      QGRID_LISTINI.setRowStateField("STATO");
      for (const controls::GridColumn& column : columns) QGRID_LISTINI.addColumn(column, translate);
    });
  });
}

void PriceListsPage::InizializzaListiniPrezzi() {
  trap(context_.services, "InizializzaListiniPrezzi", [&](Steps& step) {
    if (!context_.profile.hasRecord()) return;
    step([&] {
      context_.connection->Execute(sql::InizializzaListiniPrezzi(context_.profileKey()));
    });
  });
}

void PriceListsPage::CreaTabellaListini() {
  trap(context_.services, "CreaTabellaListini", [&](Steps& step) {
    step([&] { context_.connection->Execute(sql::EliminaTabellaLavoro(workingTable_)); });
    step([&] {
      context_.connection->Execute(sql::CreaTabellaListini(workingTable_, context_.profileKey()));
    });
  });
}

void PriceListsPage::ImpostaRstListini() {
  InizializzaListiniPrezzi();
  CreaTabellaListini();
  trap(context_.services, "ImpostaRstListini", [&](Steps& step) {
    descriptions_.clear();
    const Ref<ado::Recordset> rows =
        step([&] { return context_.openEditable(sql::RigheListini(workingTable_)); });
    step([&] { QGRID_LISTINI.setDataSource(rows); });
  });
}

void PriceListsPage::ConfermaModificheListini() {
  trap(context_.services, "ConfermaModificheListini", [&](Steps& step) {
    step([&] { context_.connection->Execute(sql::SalvaListini(workingTable_)); });
    step([&] {
      context_.connection->Execute(sql::DisattivaListiniIncompleti(context_.profileKey()));
    });
  });
}

std::int32_t PriceListsPage::currentType() {
  return toInt32(CDecN(QGRID_LISTINI.dataSource()->value("GM57_INDTIPO")));
}

void PriceListsPage::QGRID_LISTINI_OnEditing(const std::string& field, bool& cancel) {
  trap(context_.services, "QGRID_LISTINI_OnEditing", [&](Steps& step) {
    const std::int32_t type = step([&] { return currentType(); });
    if (field == "GM57_INDTIPO") typeBefore_ = type;
    if (field == "GM57_QUANTITA") cancel = !takesQuantity(type);
  });
}

void PriceListsPage::QGRID_LISTINI_OnEdited(const std::string& field) {
  trap(context_.services, "QGRID_LISTINI_OnEdited", [&](Steps& step) {
    if (field == "GM57_INDTIPO") {
      const std::int32_t type = step([&] { return currentType(); });
      if (type == typeBefore_) return;
      FormattaRecordListini(type);
    }
    context_.profile.markModified();
  });
}

void PriceListsPage::FormattaRecordListini(std::int32_t type) {
  trap(context_.services, "FormattaRecordListini", [&](Steps& step) {
    const auto* unused =
        std::find_if(std::begin(unusedColumns), std::end(unusedColumns),
                     [&](const UnusedColumns& entry) { return entry.type == type; });
    if (unused == std::end(unusedColumns)) return;
    std::vector<std::pair<std::string, Value>> cells;
    for (const std::string& field : unused->fields) cells.emplace_back(field, Null{});
    step([&] { QGRID_LISTINI.write(cells); });
  });
}

void PriceListsPage::flagClicked(const char* procedure, const std::string& field) {
  trap(context_.services, procedure, [&](Steps&) {
    if (field == "GM57_FLGATTIVO" || field == "GM57_FLGINCLUDISCONTI") {
      context_.profile.markModified();
    }
  });
}

std::string PriceListsPage::GetStringaSqlLookup(std::int32_t type) {
  return trap(context_.services, "GetStringaSqlLookup", [&](Steps& step) {
    return step([&] { return sql::ElencoChiaviListino(context_.companyKey(), type); });
  });
}

void PriceListsPage::QGRID_LISTINI_StartLookup(const std::string& field, Value& code) {
  trap(context_.services, "QGRID_LISTINI_StartLookup", [&](Steps& step) {
    std::optional<host::LookupDefinition> list;
    if (field == "GM57_NUMLIST_LI10") {
      list = {"Elenco listini",
              GetStringaSqlLookup(tsListinoAnagArticolo),
              {"Listino", "Descrizione", "Valuta"}};
    } else if (field == "GM57_CATEGORIA") {
      const std::int32_t type = step([&] { return currentType(); });
      if (type == tsListinoMacrocat) {
        list = {
            "Elenco macrocategorie", GetStringaSqlLookup(type), {"Macrocategoria", "Descrizione"}};
      } else if (type == tsListinoMacroarea) {
        list = {"Elenco macroaree", GetStringaSqlLookup(type), {"Macroarea", "Descrizione"}};
      }
    } else if (field == "GM57_DEPGIACENZE_MG58") {
      list = depositLookup(GetStringaSqlLookup(tsListinoDeposito));
    } else if (field == "GM57_CLIFOR_CG44") {
      list = step([&] { return context_.lookups->Customers(context_.companyKey().text); });
    }
    if (!list) return;
    if (const auto chosen = step([&] { return context_.choose(*list); })) code = *chosen;
  });
}

void PriceListsPage::QGRID_LISTINI_DataFormatEXT(std::int32_t row, const std::string& field,
                                                 std::string& text) {
  trap(context_.services, "QGRID_LISTINI_DataFormatEXT", [&](Steps& step) {
    constexpr std::string_view suffix = "_DEC";
    const auto codeField = std::string_view(field).substr(0, field.size() - suffix.size());
    text = step([&] {
      const std::string code = RTrimN(QGRID_LISTINI.cell(row, codeField));
      if (code.empty()) return std::string();
      return describe(codeField, toInt32(CDecN(QGRID_LISTINI.cell(row, "GM57_INDTIPO"))), code);
    });
  });
}

std::string PriceListsPage::describe(std::string_view field, std::int32_t type,
                                     const std::string& code) {
  const sql::Company company = context_.companyKey();
  std::string statement;
  std::string_view column;
  if (field == "GM57_NUMLIST_LI10") {
    statement = sql::DescrizioneNumeroListino(company, code);
    column = "MG44_DESCLIST";
  } else if (field == "GM57_CATEGORIA" && type == tsListinoMacroarea) {
    statement = sql::DescrizioneMacroarea(company, code);
    column = "MG07_DESCRMACROAR";
  } else if (field == "GM57_CATEGORIA") {
    statement = sql::DescrizioneMacrocategoria(company, code);
    column = "MG10_DESCRMACROCAT";
  } else if (field == "GM57_DEPGIACENZE_MG58") {
    statement = sql::DescrizioneDeposito(company, code);
    column = "MG58_DESCRDEP";
  } else {
    statement = context_.decodes->Customer(company.text, code);
    column = "CG16_RAGSOANAG";
  }
  const auto known = descriptions_.find(statement);
  if (known != descriptions_.end()) return known->second;
  return descriptions_[statement] = context_.lookUpText(statement, column);
}

void PriceListsPage::BTN_AGGLISTINI_ButtonClick() {
  const bool done = trap(context_.services, "BTN_AGGLISTINI_ButtonClick", [&](Steps& step) {
    progress_.MostraAvanzamento(true);
    step([&] { context_.connection->Execute(sql::AggiornaPrezzi(context_.companyKey())); });
    return true;
  });
  progress_.MostraAvanzamento(false);
  if (!done) return;
  constexpr std::int32_t pricesUpdated = 75210;
  context_.services.showMessage(pricesUpdated, msgbox::information);
}

}  // namespace kebu::forms
