#include "forms/anagrafica/pricelists/price_lists_page.h"

#include <algorithm>
#include <iterator>

#include "common/convert.h"
#include "common/nulls.h"
#include "forms/anagrafica/deposit_lookup.h"
#include "forms/anagrafica/pricelists/price_sources.h"
#include "forms/messages.h"
#include "sql/price_lists.h"
#include "sql/working_tables.h"

namespace kebu::forms {

using controls::ColumnKind;

namespace {

// A code column has no caption: that of its description stands for both.
constexpr controls::GridColumn columns[] = {
    {.field = "GM57_CODPREZZO",
     .caption = "Tarvo",
     .width = 1000,
     .kind = ColumnKind::ValueList,
     .items = priceSlots},
    {.field = "GM57_FLGATTIVO", .caption = "Attivo", .width = 1000, .kind = ColumnKind::Check},
    {.field = "GM57_INDTIPO",
     .caption = "Tipologia listino",
     .width = 2750,
     .kind = ColumnKind::ValueList,
     .items = priceSources},
    {.field = "GM57_NUMLIST_LI10",
     .width = 500,
     .kind = ColumnKind::Lookup,
     .lookup = "GM57_NUMLIST_LI10_LKP"},
    {.field = "GM57_NUMLIST_LI10_DEC",
     .caption = "Listino anagrafico",
     .width = 1750,
     .kind = ColumnKind::Description},
    {.field = "GM57_CATEGORIA",
     .width = 500,
     .kind = ColumnKind::Lookup,
     .lookup = "GM57_CATEGORIA_LKP"},
    {.field = "GM57_CATEGORIA_DEC",
     .caption = "Categoria",
     .width = 1750,
     .kind = ColumnKind::Description},
    {.field = "GM57_DEPGIACENZE_MG58",
     .width = 500,
     .kind = ColumnKind::Lookup,
     .lookup = "GM57_DEPGIACENZE_MG58_LKP"},
    {.field = "GM57_DEPGIACENZE_MG58_DEC",
     .caption = "Deposito",
     .width = 1750,
     .kind = ColumnKind::Description},
    {.field = "GM57_QUANTITA", .caption = "Quantità", .width = 1000, .kind = ColumnKind::Number},
    {.field = "GM57_CLIFOR_CG44",
     .width = 500,
     .kind = ColumnKind::Lookup,
     .lookup = "GM57_CLIFOR_CG44_LKP"},
    {.field = "GM57_CLIFOR_CG44_DEC",
     .caption = "Cliente",
     .width = 1750,
     .kind = ColumnKind::Description},
    {.field = "GM57_FLGINCLUDISCONTI",
     .caption = "Includi sconti",
     .width = 1000,
     .kind = ColumnKind::Check},
};

/// The columns that are emptied when a slot gets a type. Types 2 and 3 empty the
/// category too: macro-category and macro-area codes are not the same.
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

/// Whether the column, or the code that it describes, is a key that only other types use.
bool isUnusedKey(std::int32_t type, std::string_view field) {
  constexpr std::string_view suffix = "_DEC";
  if (field.ends_with(suffix)) field.remove_suffix(suffix.size());
  if (field == priceKey(type) || (field == "GM57_QUANTITA" && takesQuantity(type))) return false;
  return field == "GM57_QUANTITA" ||
         std::ranges::any_of(priceSources, [&](const controls::ValueListItem& source) {
           return field == priceKey(source.code);
         });
}

// The causes of notices.
constexpr const char* switchedOffCause = "price slots switched off";
constexpr const char* noSourceCause = "price slots without a source";
constexpr const char* unmanagedCause = "prices not managed";
constexpr const char* pendingCause = "price refresh with pending changes";

}  // namespace

PriceListsPage::PriceListsPage(PageContext& context, ProgressDisplay& progress)
    : QGRID_LISTINI("QGRID_LISTINI", context.services),
      context_(context),
      progress_(progress),
      load_(context, {.cause = "price lists",
                      .text = "I listini non sono stati letti.",
                      .reload = [this] { ImpostaRstListini(); },
                      .lock = [this](bool locked) { GRP_LISTINI.setLocked(locked); }}) {
  context_.profile.MaySave.on([this](bool& may) { may = may && !load_.hasFailed(); });
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
  QGRID_LISTINI.rowStateOf = [this](std::int32_t row) { return stateOf(row); };
  QGRID_LISTINI.cellUnused = [this](std::int32_t row, const std::string& field) {
    return isUnusedKey(typeOf(row), field);
  };
  QGRID_LISTINI.changed.on([this] { refreshNotices(); });
  BTN_AGGLISTINI.ButtonClick.on([this] { BTN_AGGLISTINI_ButtonClick(); });
  context_.profile.stateChanged.on([this] {
    if (!context_.profile.hasPendingChanges()) context_.notices.remove(pendingCause);
  });
}

void PriceListsPage::place(PageGroups& groups) {
  GRP_LISTINI.add(QGRID_LISTINI);
  GRP_AGGLISTINI.add(BTN_AGGLISTINI);
  groups["GRPMAIN_LISTINI"].addAll(GRP_LISTINI, GRP_AGGLISTINI);
}

void PriceListsPage::ImpostaQGRID_Listini() {
  procedure(context_, "ImpostaQGRID_Listini", [&](Procedure& p) {
    const auto translate = [this](const std::string& text) { return context_.translate(text); };
    p.step([&] {
      QGRID_LISTINI.clearColumns();
      QGRID_LISTINI.setCaption(translate("Listini"));
      QGRID_LISTINI.setKeyField("GM57_CODPREZZO");
      QGRID_LISTINI.setRowStateField("STATO");
      for (const controls::GridColumn& column : columns) QGRID_LISTINI.addColumn(column, translate);
    });
  });
}

bool PriceListsPage::InizializzaListiniPrezzi() {
  return procedure(context_, "InizializzaListiniPrezzi", [&](Procedure& p) {
    if (context_.profile.hasRecord()) p.run(sql::InizializzaListiniPrezzi(p.profile()));
    return true;
  });
}

bool PriceListsPage::CreaTabellaListini() {
  return procedure(context_, "CreaTabellaListini", [&](Procedure& p) {
    p.run(sql::EliminaTabellaLavoro(workingTable_));
    p.run(sql::CreaTabellaListini(workingTable_, p.profile()));
    return true;
  });
}

void PriceListsPage::ImpostaRstListini() {
  const bool hasSlots = InizializzaListiniPrezzi();
  const bool isMade = CreaTabellaListini();
  const bool isShown = procedure(context_, "ImpostaRstListini", [&](Procedure& p) {
    descriptions_.clear();
    context_.notices.remove(switchedOffCause);
    const Ref<ado::Recordset> rows = p.openWorkingTable(sql::RigheListini(workingTable_));
    p.show(QGRID_LISTINI, rows);
    p.step([&] { stored_.keep(QGRID_LISTINI); });
    return true;
  });
  load_.ended(hasSlots && isMade && isShown);
}

bool PriceListsPage::ConfermaModificheListini() {
  return procedure(context_, "ConfermaModificheListini", [&](Procedure& p) {
    const bool isSaved = p.run(sql::SalvaListini(workingTable_));
    const bool areSwitchedOff = p.run(sql::DisattivaListiniIncompleti(p.profile()));
    p.step([&] { showSwitchedOff(); });
    if (isSaved) p.step([&] { stored_.keep(QGRID_LISTINI); });
    return isSaved && areSwitchedOff;
  });
}

void PriceListsPage::addChanges(PlannedChanges& changes) {
  constexpr const char* active = "GM57_FLGATTIVO";
  const auto read = [&](const CellReader& valueOf) {
    return readCells(context_, QGRID_LISTINI, "GM57_CODPREZZO", valueOf);
  };
  for (std::int32_t row = 1; row <= QGRID_LISTINI.rowCount(); ++row) {
    changes.add(QGRID_LISTINI.cellText(row, 0),
                read([&](const std::string& field) { return stored_.value(row, field); }),
                read([&](const std::string& field) {
                  const bool isReset = field == active && isSwitchedOff(row);
                  return isReset ? Value(std::int16_t{0}) : QGRID_LISTINI.cell(row, field);
                }));
  }
}

void PriceListsPage::addNewSlots(PlannedChanges& changes) const {
  const std::string caption = QGRID_LISTINI.captionOf("GM57_INDTIPO");
  const std::string none = context_.translate(std::string(priceSources[0].caption));
  for (const controls::ValueListItem& slot : priceSlots) {
    changes.add(context_.translate(std::string(slot.caption)), std::nullopt,
                ReadRow{{caption, Value(priceSources[0].code), none}});
  }
}

std::int32_t PriceListsPage::typeOf(std::int32_t row) {
  return toInt32(CDecN(QGRID_LISTINI.cell(row, "GM57_INDTIPO")));
}

bool PriceListsPage::isActive(std::int32_t row) {
  return toBoolean(CDecN(QGRID_LISTINI.cell(row, "GM57_FLGATTIVO")));
}

bool PriceListsPage::hasKey(std::int32_t row) {
  const std::int32_t type = typeOf(row);
  const std::string_view key = priceKey(type);
  return key.empty() || isPriceKeyGiven(type, QGRID_LISTINI.cell(row, key));
}

// As the working table's STATO, which has no value for type 6, on purpose.
Value PriceListsPage::stateOf(std::int32_t row) {
  const std::int32_t type = typeOf(row);
  if (type < tsNessuna || type >= tsPriorita) return Null{};
  return std::int16_t{hasKey(row) ? std::int16_t{1} : std::int16_t{2}};
}

// Those that take their price by priority are set inactive even when they are not active.
bool PriceListsPage::isSwitchedOff(std::int32_t row) {
  return !hasKey(row) && (isActive(row) || typeOf(row) == tsPriorita);
}

// Which slots the save's second statement has switched off follows from the rows that were saved.
void PriceListsPage::showSwitchedOff() {
  std::string names;
  for (std::int32_t row = 1; row <= QGRID_LISTINI.rowCount(); ++row) {
    if (!isActive(row) || hasKey(row)) continue;
    QGRID_LISTINI.showInstead(row, "GM57_FLGATTIVO", std::int16_t{0});
    names += (names.empty() ? "" : ", ") + QGRID_LISTINI.cellText(row, 0);
  }
  if (names.empty()) {
    context_.notices.remove(switchedOffCause);
    return;
  }
  context_.notices.show(
      {.cause = switchedOffCause,
       .text = names + ": " + context_.translate("disattivati perché manca la loro chiave.")});
}

void PriceListsPage::refreshNotices() {
  std::string withoutSource;
  bool hasPrices = false;
  ignoringErrors([&] {
    for (std::int32_t row = 1; row <= QGRID_LISTINI.rowCount(); ++row) {
      if (!isActive(row)) continue;
      if (typeOf(row) != tsNessuna) hasPrices = true;
      if (typeOf(row) != tsNessuna) continue;
      withoutSource += (withoutSource.empty() ? "" : ", ") + QGRID_LISTINI.cellText(row, 0);
    }
  });
  if (withoutSource.empty()) {
    context_.notices.remove(noSourceCause);
  } else {
    context_.notices.show({.cause = noSourceCause,
                           .text = withoutSource + ": " + context_.translate(slotsWithoutSource)});
  }
  if (hasPrices && arePricesManaged && !arePricesManaged()) {
    context_.notices.show({.cause = unmanagedCause, .text = context_.translate(pricesNotManaged)});
  } else {
    context_.notices.remove(unmanagedCause);
  }
}

std::int32_t PriceListsPage::currentType(Procedure& p) {
  return p.step([&] { return toInt32(CDecN(QGRID_LISTINI.dataSource()->value("GM57_INDTIPO"))); });
}

void PriceListsPage::QGRID_LISTINI_OnEditing(const std::string& field, bool& cancel) {
  procedure(context_, "QGRID_LISTINI_OnEditing", [&](Procedure& p) {
    const std::int32_t type = currentType(p);
    if (field == "GM57_INDTIPO") typeBefore_ = type;
    if (field == "GM57_QUANTITA") cancel = !takesQuantity(type);
  });
}

void PriceListsPage::QGRID_LISTINI_OnEdited(const std::string& field) {
  procedure(context_, "QGRID_LISTINI_OnEdited", [&](Procedure& p) {
    if (field == "GM57_INDTIPO") {
      const std::int32_t type = currentType(p);
      if (type == typeBefore_) return;
      FormattaRecordListini(type);
    }
    context_.profile.markModified();
  });
}

void PriceListsPage::FormattaRecordListini(std::int32_t type) {
  procedure(context_, "FormattaRecordListini", [&](Procedure& p) {
    const auto* const unused = std::ranges::find(unusedColumns, type, &UnusedColumns::type);
    if (unused == std::end(unusedColumns)) return;
    std::vector<std::pair<std::string, Value>> cells;
    for (const std::string& field : unused->fields) cells.emplace_back(field, Null{});
    p.step([&] { QGRID_LISTINI.write(cells); });
  });
}

void PriceListsPage::flagClicked(const char* name, const std::string& field) {
  procedure(context_, name, [&](Procedure&) {
    if (field == "GM57_FLGATTIVO" || field == "GM57_FLGINCLUDISCONTI") {
      context_.profile.markModified();
    }
  });
}

std::string PriceListsPage::GetStringaSqlLookup(std::int32_t type) {
  return procedure(context_, "GetStringaSqlLookup",
                   [&](Procedure& p) { return sql::ElencoChiaviListino(p.company(), type); });
}

void PriceListsPage::QGRID_LISTINI_StartLookup(const std::string& field, Value& code) {
  procedure(context_, "QGRID_LISTINI_StartLookup", [&](Procedure& p) {
    auto list = lookupOf(field, p);
    if (!list) return;
    const auto* const column =
        std::find_if(std::begin(columns), std::end(columns),
                     [&](const controls::GridColumn& entry) { return entry.field == field; });
    if (column != std::end(columns)) list->key = column->lookup;
    const std::string current = RTrimN(p.value(QGRID_LISTINI.dataSource(), field));
    if (const auto chosen = p.choose(*list, current)) code = *chosen;
  });
}

std::optional<host::LookupDefinition> PriceListsPage::lookupOf(std::string_view field,
                                                               Procedure& p) {
  if (field == "GM57_NUMLIST_LI10") {
    return {{.title = "Elenco listini",
             .statement = GetStringaSqlLookup(tsListinoAnagArticolo),
             .captions = {"Listino", "Descrizione", "Valuta"}}};
  }
  if (field == "GM57_CATEGORIA") {
    const std::int32_t type = currentType(p);
    if (type == tsListinoMacrocat) {
      return {{.title = "Elenco macrocategorie",
               .statement = GetStringaSqlLookup(type),
               .captions = {"Macrocategoria", "Descrizione"}}};
    }
    if (type == tsListinoMacroarea) {
      return {{.title = "Elenco macroaree",
               .statement = GetStringaSqlLookup(type),
               .captions = {"Macroarea", "Descrizione"}}};
    }
  }
  if (field == "GM57_DEPGIACENZE_MG58") {
    return depositLookup(GetStringaSqlLookup(tsListinoDeposito));
  }
  if (field == "GM57_CLIFOR_CG44") {
    return p.step(
        [&] { return context_.hostServices.lookups->Customers(context_.companyKey().text); });
  }
  return std::nullopt;
}

void PriceListsPage::QGRID_LISTINI_DataFormatEXT(std::int32_t row, const std::string& field,
                                                 std::string& text) {
  procedure(context_, "QGRID_LISTINI_DataFormatEXT", [&](Procedure& p) {
    constexpr std::string_view suffix = "_DEC";
    const auto codeField = std::string_view(field).substr(0, field.size() - suffix.size());
    text = p.step([&] {
      const std::string code = RTrimN(QGRID_LISTINI.cell(row, codeField));
      if (code.empty()) return std::string();
      std::string description =
          describe(codeField, toInt32(CDecN(QGRID_LISTINI.cell(row, "GM57_INDTIPO"))), code);
      if (description.empty()) QGRID_LISTINI.markUnknown(row, field);
      return description;
    });
  });
}

std::string PriceListsPage::describe(std::string_view field, std::int32_t type,
                                     const std::string& code) {
  const auto [statement, column] = priceKeyDescription(context_, field, type, code);
  const auto known = descriptions_.find(statement);
  if (known != descriptions_.end()) return known->second;
  return descriptions_[statement] = context_.lookUpText(statement, column);
}

void PriceListsPage::BTN_AGGLISTINI_ButtonClick() {
  if (context_.profile.hasPendingChanges()) {
    context_.notices.show(
        {.cause = pendingCause,
         .text = context_.translate("L'aggiornamento dei prezzi usa i listini memorizzati: le "
                                    "modifiche non ancora confermate non contano.")});
  }
  const bool done = procedure(context_, "BTN_AGGLISTINI_ButtonClick", [&](Procedure& p) {
    progress_.MostraAvanzamento(true);
    const auto painted = context_.paintedMeanwhile();
    p.run(sql::AggiornaPrezzi(p.company()));
    return true;
  });
  progress_.MostraAvanzamento(false);
  if (done) context_.services.showMessage(messages::pricesUpdated, msgbox::information);
}

}  // namespace kebu::forms
