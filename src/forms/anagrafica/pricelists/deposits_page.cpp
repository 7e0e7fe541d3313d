#include "forms/anagrafica/pricelists/deposits_page.h"

#include "common/convert.h"
#include "common/nulls.h"
#include "controls/row_editing.h"
#include "forms/changes/record_changes.h"
#include "forms/procedure.h"
#include "sql/deposits.h"
#include "sql/working_tables.h"

namespace kebu::forms {

using controls::ColumnKind;

namespace {

constexpr controls::GridColumn columns[] = {
    {.field = "MG58_CODDEP", .caption = "Codice", .width = 2000},
    {.field = "MG58_DESCRDEP", .caption = "Descrizione", .width = 6000},
    {.field = "FLG_ATTIVO", .caption = "Attivo", .width = 1000, .kind = ColumnKind::Check},
    {.field = "FLG_PREF",
     .caption = "Pref.",
     .width = 1000,
     .kind = ColumnKind::Check,
     .refusesAll = true},
};

constexpr const char* preferredRows = "FLG_PREF = 1";
const Value on(std::int16_t{1});
const Value off(std::int16_t{0});

}  // namespace

DepositsPage::DepositsPage(PageContext& context)
    : QGRID_DEP("QGRID_DEP", context.services),
      context_(context),
      load_(context, {.cause = "deposits",
                      .text = "I depositi non sono stati letti.",
                      .reload = [this] { ImpostaRstDepositi(); },
                      .lock = [this](bool locked) { GRP_DEP.setLocked(locked); }}) {
  context_.profile.MaySave.on([this](bool& may) { may = may && !load_.hasFailed(); });
  QGRID_DEP.SelectionBoxClick.on([this](const std::string& field, bool& cancel) {
    QGRID_DEP_SelectionBoxClick(field, cancel);
  });
  QGRID_DEP.SelectAllClickEXT.on([this](const std::string& field, bool selecting, bool& cancel) {
    QGRID_DEP_SelectAllClickEXT(field, selecting, cancel);
  });
}

void DepositsPage::place(PageGroups& groups) {
  GRP_DEP.add(QGRID_DEP);
  groups["GRPMAIN_GIACENZE"].add(GRP_DEP);
}

void DepositsPage::ImpostaQGRID_DEP() {
  procedure(context_, "ImpostaQGRID_DEP", [&](Procedure& p) {
    const auto translate = [this](const std::string& text) { return context_.translate(text); };
    p.step([&] {
      QGRID_DEP.clearColumns();
      QGRID_DEP.setCaption(translate("Depositi"));
      for (const controls::GridColumn& column : columns) QGRID_DEP.addColumn(column, translate);
    });
  });
}

bool DepositsPage::CreaTabellaDepositi() {
  return procedure(context_, "CreaTabellaDepositi", [&](Procedure& p) {
    p.run(sql::EliminaTabellaLavoro(workingTable_));
    p.run(sql::CreaTabellaDepositi(workingTable_, p.profile(), p.company()));
    return true;
  });
}

void DepositsPage::ImpostaRstDepositi() {
  const bool isMade = CreaTabellaDepositi();
  const bool isShown = procedure(context_, "ImpostaRstDepositi", [&](Procedure& p) {
    const Ref<ado::Recordset> rows = p.openWorkingTable(sql::RigheDepositi(workingTable_));
    p.show(QGRID_DEP, rows);
    p.step([&] { stored_.keep(QGRID_DEP); });
    return true;
  });
  load_.ended(isMade && isShown);
}

bool DepositsPage::ConfermaModificheDepositi() {
  return procedure(context_, "ConfermaModificheDepositi", [&](Procedure& p) {
    const bool isSaved = p.run(sql::SalvaDepositi(workingTable_, p.profile()));
    if (isSaved) p.step([&] { stored_.keep(QGRID_DEP); });
    return isSaved;
  });
}

// A deposit is stored as long as it is active.
void DepositsPage::addChanges(PlannedChanges& changes) {
  const auto read = [&](const CellReader& valueOf) -> std::optional<ReadRow> {
    if (!toBoolean(CDecN(valueOf("FLG_ATTIVO")))) return std::nullopt;
    return ReadRow{readFlag(context_, QGRID_DEP.captionOf("FLG_PREF"), valueOf("FLG_PREF"))};
  };
  for (std::int32_t row = 1; row <= QGRID_DEP.rowCount(); ++row) {
    const std::string name = context_.translate("Deposito") + ' ' +
                             RTrimN(QGRID_DEP.cell(row, "MG58_CODDEP")) + " - " +
                             RTrimN(QGRID_DEP.cell(row, "MG58_DESCRDEP"));
    changes.add(name, read([&](const std::string& field) { return stored_.value(row, field); }),
                read([&](const std::string& field) { return QGRID_DEP.cell(row, field); }));
  }
}

bool DepositsPage::CheckPredefinito() {
  return procedure(context_, "CheckPredefinito", [&](Procedure& p) {
    return p.step([&] {
      const Ref<ado::Recordset> preferred = QGRID_DEP.dataSource()->Clone();
      preferred->setFilter(preferredRows);
      return !preferred->EOF_();
    });
  });
}

void DepositsPage::CambiaPredefinito() {
  procedure(context_, "CambiaPredefinito", [&](Procedure& p) {
    const Ref<ado::Recordset> preferred = p.step([&] { return QGRID_DEP.dataSource()->Clone(); });
    p.step([&] { preferred->setFilter(preferredRows); });
    // A changed row no longer passes the filter. ADO leaves it at once or at the next move, so the
    // filter is set again instead of moving. An ignored failure must not make this endless.
    const std::int32_t count = p.step([&] { return preferred->RecordCount(); });
    for (std::int32_t i = 0; i < count && p.more(preferred); ++i) {
      p.step([&] { controls::writeRow(*preferred, {{"FLG_PREF", off}}); });
      p.step([&] { preferred->setFilter(preferredRows); });
    }
    p.step([&] { QGRID_DEP.refresh(); });
  });
}

void DepositsPage::QGRID_DEP_SelectionBoxClick(const std::string& field, bool& cancel) {
  procedure(context_, "QGRID_DEP_SelectionBoxClick", [&](Procedure& p) {
    const bool active = toBoolean(CDecN(p.value(QGRID_DEP.dataSource(), "FLG_ATTIVO")));
    const bool preferred = toBoolean(CDecN(p.value(QGRID_DEP.dataSource(), "FLG_PREF")));

    if (field == "FLG_PREF") {
      // Only an active deposit can be preferred. The mark is not cleared, only given to another
      // one.
      cancel = !active || preferred;
      if (cancel) return;
      CambiaPredefinito();
    } else if (field == "FLG_ATTIVO") {
      if (active && preferred) {
        p.step([&] { QGRID_DEP.write({{"FLG_PREF", off}}); });
      } else if (!CheckPredefinito()) {
        p.step([&] { QGRID_DEP.write({{"FLG_PREF", on}}); });
      }
    }
    context_.profile.markModified();
  });
}

void DepositsPage::QGRID_DEP_SelectAllClickEXT(const std::string& field, bool selecting,
                                               bool& cancel) {
  procedure(context_, "QGRID_DEP_SelectAllClickEXT", [&](Procedure& p) {
    if (field == "FLG_PREF") {
      cancel = true;
      return;
    }
    if (!selecting) {
      CambiaPredefinito();
    } else if (!CheckPredefinito()) {
      p.step([&] { QGRID_DEP.write({{"FLG_PREF", on}}); });
    }
    context_.profile.markModified();
  });
}

}  // namespace kebu::forms
