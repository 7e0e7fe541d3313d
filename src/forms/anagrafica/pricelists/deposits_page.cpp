#include "forms/anagrafica/pricelists/deposits_page.h"

#include "common/convert.h"
#include "common/nulls.h"
#include "sql/deposits.h"
#include "sql/working_tables.h"

namespace kebu::forms {

using controls::ColumnKind;

namespace {

constexpr controls::GridColumn columns[] = {
    {"MG58_CODDEP", "Codice", 2000, ColumnKind::Text},
    {"MG58_DESCRDEP", "Descrizione", 6000, ColumnKind::Text},
    {"FLG_ATTIVO", "Attivo", 1000, ColumnKind::Check},
    {"FLG_PREF", "Pref.", 1000, ColumnKind::Check},
};

constexpr const char* preferredRows = "FLG_PREF = 1";
const Value on(std::int16_t{1});
const Value off(std::int16_t{0});

}  // namespace

DepositsPage::DepositsPage(PageContext& context)
    : QGRID_DEP("QGRID_DEP", context.services), context_(context) {
  QGRID_DEP.SelectionBoxClick.on([this](const std::string& field, bool& cancel) {
    QGRID_DEP_SelectionBoxClick(field, cancel);
  });
  QGRID_DEP.SelectAllClickEXT.on([this](const std::string& field, bool selecting, bool& cancel) {
    QGRID_DEP_SelectAllClickEXT(field, selecting, cancel);
  });
}

void DepositsPage::ImpostaQGRID_DEP() {
  trap(context_.services, "ImpostaQGRID_DEP", [&](Steps& step) {
    const auto translate = [this](const std::string& text) { return context_.translate(text); };
    step([&] {
      QGRID_DEP.clearColumns();
      QGRID_DEP.setCaption(translate("Depositi"));
      for (const controls::GridColumn& column : columns) QGRID_DEP.addColumn(column, translate);
    });
  });
}

void DepositsPage::CreaTabellaDepositi() {
  trap(context_.services, "CreaTabellaDepositi", [&](Steps& step) {
    step([&] { context_.connection->Execute(sql::EliminaTabellaLavoro(workingTable_)); });
    step([&] {
      context_.connection->Execute(
          sql::CreaTabellaDepositi(workingTable_, context_.profileKey(), context_.companyKey()));
    });
  });
}

void DepositsPage::ImpostaRstDepositi() {
  CreaTabellaDepositi();
  trap(context_.services, "ImpostaRstDepositi", [&](Steps& step) {
    const Ref<ado::Recordset> rows =
        step([&] { return context_.openEditable(sql::RigheDepositi(workingTable_)); });
    step([&] { QGRID_DEP.setDataSource(rows); });
  });
}

void DepositsPage::ConfermaModificheDepositi() {
  trap(context_.services, "ConfermaModificheDepositi", [&](Steps& step) {
    step([&] {
      context_.connection->Execute(sql::SalvaDepositi(workingTable_, context_.profileKey()));
    });
  });
}

bool DepositsPage::CheckPredefinito() {
  return trap(context_.services, "CheckPredefinito", [&](Steps& step) {
    return step([&] {
      const Ref<ado::Recordset> preferred = QGRID_DEP.dataSource()->Clone();
      preferred->setFilter(preferredRows);
      return !preferred->EOF_();
    });
  });
}

void DepositsPage::CambiaPredefinito() {
  trap(context_.services, "CambiaPredefinito", [&](Steps& step) {
    const Ref<ado::Recordset> preferred = step([&] { return QGRID_DEP.dataSource()->Clone(); });
    step([&] { preferred->setFilter(preferredRows); });
    while (step([&] { return !preferred->EOF_(); })) {
      step([&] {
        preferred->setValue("FLG_PREF", off);
        preferred->Update();
      });
      step([&] { preferred->MoveNext(); });
    }
    step([&] { QGRID_DEP.refresh(); });
  });
}

void DepositsPage::QGRID_DEP_SelectionBoxClick(const std::string& field, bool& cancel) {
  trap(context_.services, "QGRID_DEP_SelectionBoxClick", [&](Steps& step) {
    const auto isOn = [&](const char* name) {
      return step([&] { return toBoolean(CDecN(QGRID_DEP.dataSource()->value(name))); });
    };
    const bool active = isOn("FLG_ATTIVO");
    const bool preferred = isOn("FLG_PREF");

    if (field == "FLG_PREF") {
      // Only an active deposit can be preferred, and the mark moves by marking another one.
      cancel = !active || preferred;
      if (cancel) return;
      CambiaPredefinito();
    } else if (field == "FLG_ATTIVO") {
      if (active && preferred) {
        step([&] { QGRID_DEP.write({{"FLG_PREF", off}}); });
      } else if (!CheckPredefinito()) {
        step([&] { QGRID_DEP.write({{"FLG_PREF", on}}); });
      }
    }
    context_.profile.markModified();
  });
}

void DepositsPage::QGRID_DEP_SelectAllClickEXT(const std::string& field, bool selecting,
                                               bool& cancel) {
  trap(context_.services, "QGRID_DEP_SelectAllClickEXT", [&](Steps& step) {
    if (field == "FLG_PREF") {
      cancel = true;
      return;
    }
    if (!selecting) {
      CambiaPredefinito();
    } else if (!CheckPredefinito()) {
      step([&] { QGRID_DEP.write({{"FLG_PREF", on}}); });
    }
    context_.profile.markModified();
  });
}

}  // namespace kebu::forms
