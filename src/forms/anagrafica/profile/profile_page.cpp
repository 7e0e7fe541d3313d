#include "forms/anagrafica/profile/profile_page.h"

#include "common/convert.h"
#include "common/nulls.h"
#include "sql/profile.h"

namespace kebu::forms {

using controls::FrameStatus;

namespace {

struct FixedValue {
  const char* column;
  std::int16_t value;
};

/// Code 1 and application 14 name this platform's profile among the company's.
constexpr FixedValue fixedValues[] = {
    {"GM03_CODICEDISPOSITIVO", 1},
    {"GM03_INDTIPO", 0},
    {"GM03_FLGTV", 0},
    {"GM03_FLGRO", 0},
    {"GM03_FLGENABLED", 1},
    {"GM03_IDAPPLICAZIONE", 14},
};

}  // namespace

ProfilePage::ProfilePage(PageContext& context, controls::NavigatorBar& navigator,
                         const ProfileDependents& dependents)
    : GRP_PROFILO("GRP_PROFILO", "Profilo di collegamento"),
      TXT_GM03_IDDISPOSITIVO("TXT_GM03_IDDISPOSITIVO", "Identificativo"),
      TXT_GM03_CODICEDISPOSITIVO("TXT_GM03_CODICEDISPOSITIVO", "Codice"),
      TXT_GM03_DESCRIZIONE("TXT_GM03_DESCRIZIONE", "Descrizione"),
      TXT_GM03_NOTE("TXT_GM03_NOTE", "Note"),
      GRP_CATART("GRP_CATART", "Categorie articoli"),
      GRP_CATCLI("GRP_CATCLI", "Categorie clienti"),
      GRP_PARCLI("GRP_PARCLI", "Parametri clienti"),
      context_(context),
      navigator_(navigator),
      dependents_(dependents) {
  controls::RecordFrame& frame = context_.profile;
  TXT_GM03_IDDISPOSITIVO.bind(frame, "GM03_IDDISPOSITIVO");
  TXT_GM03_IDDISPOSITIVO.setEditable(false);
  TXT_GM03_CODICEDISPOSITIVO.bind(frame, "GM03_CODICEDISPOSITIVO");
  TXT_GM03_DESCRIZIONE.bind(frame, "GM03_DESCRIZIONE");
  TXT_GM03_NOTE.bind(frame, "GM03_NOTE");

  frame.BeforeUpdate.on([this](bool& cancel) { FME_ANAGRAFICA_BeforeUpdate(cancel); });
  frame.AfterUpdate.on([this] { FME_ANAGRAFICA_AfterUpdate(); });
  frame.BeforeDelete.on([this](bool& cancel) { FME_ANAGRAFICA_BeforeDelete(cancel); });
  frame.AfterDelete.on([this] { FME_ANAGRAFICA_AfterDelete(); });
  frame.AfterUndo.on([this] { FME_ANAGRAFICA_AfterUndo(); });
  frame.ChangeStatus.on([this](FrameStatus status, FrameStatus previous) {
    FME_ANAGRAFICA_ChangeStatus(status, previous);
  });
  frame.IsRecordChanged.on([this](bool& changed) { FME_ANAGRAFICA_IsRecordChanged(changed); });
}

void ProfilePage::place(controls::GroupBox& parameters, controls::GroupBox& customers,
                        controls::GroupBox& articles) {
  GRP_PROFILO.addAll(TXT_GM03_IDDISPOSITIVO, TXT_GM03_CODICEDISPOSITIVO, TXT_GM03_DESCRIZIONE,
                     TXT_GM03_NOTE);
  parameters.add(GRP_PROFILO);
  customers.addAll(GRP_CATCLI, GRP_PARCLI);
  articles.add(GRP_CATART);
}

void ProfilePage::ImpostaVirtualFrame() {
  trap(context_.services, "ImpostaVirtualFrame", [&](Steps& step) {
    const Ref<ado::Recordset> rows =
        step([&] { return context_.openEditable(sql::Profilo(context_.companyKey())); });
    step([&] { dependents_.parameters.bindColumns(); });
    step([&] { context_.profile.setDataSource(rows); });
    loadedProfile_ = context_.profileId();
    step([&] { context_.profile.showRecord(); });
  });
}

void ProfilePage::FME_ANAGRAFICA_BeforeUpdate(bool& cancel) {
  trap(context_.services, "FME_ANAGRAFICA_BeforeUpdate", [&](Steps& step) {
    if (cancel) return;
    const auto set = [&](const char* column, const Value& value) {
      step([&] { context_.profile.setField(column, value); });
    };
    set("GM03_DITTA_CG18", context_.company);
    for (const FixedValue& fixed : fixedValues) set(fixed.column, fixed.value);
    const Value description = step([&] { return context_.profile.field("GM03_DESCRIZIONE"); });
    if (NVL(description, "") == Value("")) set("GM03_DESCRIZIONE", "Merkal");
    dependents_.filters.storeConditions(step, dependents_.parameters.FME_PARAMETRI, cancel);
  });
}

void ProfilePage::FME_ANAGRAFICA_AfterUpdate() {
  trap(context_.services, "FME_ANAGRAFICA_AfterUpdate", [&](Steps&) {
    dependents_.deposits.ConfermaModificheDepositi();
    dependents_.priceLists.ConfermaModificheListini();
    dependents_.synchronisation.SchedulaAttJob();
    // A profile that has just come into being has its price slots made now, and
    // the usual categories proposed.
    if (!equalAsVariants(loadedProfile_, context_.profileId())) {
      dependents_.categories.LetturaDatiConfigurazioneCategorie();
      reloadDependents();
    }
  });
}

void ProfilePage::FME_ANAGRAFICA_BeforeDelete(bool& cancel) {
  // A cascade that the user broke off must not lose the profile that it hangs on.
  cancel = !trap(context_.services, "FME_ANAGRAFICA_BeforeDelete", [&](Steps& step) {
    const auto statements = step([&] { return sql::EliminaDipendenze(context_.profileKey()); });
    for (const std::string& statement : statements) {
      step([&] { context_.connection->Execute(statement); });
    }
    return true;
  });
}

void ProfilePage::FME_ANAGRAFICA_AfterDelete() {
  trap(context_.services, "FME_ANAGRAFICA_AfterDelete", [&](Steps&) {
    dependents_.categories.LetturaDatiConfigurazioneCategorie();
    reloadDependents();
  });
}

void ProfilePage::FME_ANAGRAFICA_AfterUndo() {
  trap(context_.services, "FME_ANAGRAFICA_AfterUndo", [&](Steps& step) {
    step([&] { navigator_.refreshButtons(); });
    reloadDependents();
    // A filter that was changed and not saved is undone with the rest.
    dependents_.filters.reload();
  });
}

void ProfilePage::reloadDependents() {
  loadedProfile_ = context_.profileId();
  dependents_.deposits.ImpostaRstDepositi();
  dependents_.priceLists.ImpostaRstListini();
}

void ProfilePage::FME_ANAGRAFICA_ChangeStatus(FrameStatus status, FrameStatus previous) {
  trap(context_.services, "FME_ANAGRAFICA_ChangeStatus", [&](Steps& step) {
    for (controls::GroupBox* group : {&GRP_CATART, &GRP_CATCLI, &GRP_PARCLI}) {
      step([&] { group->setEnabled(status == FrameStatus::Browsing); });
    }
    if (status == FrameStatus::New) dependents_.parameters.ClearChild();
    if (status == FrameStatus::Browsing && previous != FrameStatus::Saving) {
      dependents_.parameters.ShowChild();
    }
    step([&] { navigator_.setEnabled(status != FrameStatus::Saving); });
  });
}

void ProfilePage::FME_ANAGRAFICA_IsRecordChanged(bool& changed) {
  trap(context_.services, "FME_ANAGRAFICA_IsRecordChanged", [&](Steps& step) {
    changed =
        step([&] { return dependents_.parameters.FME_PARAMETRI.isRecordChanged(); }) || changed;
  });
}

}  // namespace kebu::forms
