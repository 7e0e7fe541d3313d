#include "forms/anagrafica/profile/profile_page.h"

#include "common/convert.h"
#include "common/nulls.h"
#include "forms/procedure.h"
#include "sql/profile.h"

namespace kebu::forms {

using controls::FrameStatus;

namespace {

struct FixedValue {
  const char* column;
  std::int16_t value;
};

/// A profile of this platform has code 1 and application 14.
constexpr FixedValue fixedValues[] = {
    {.column = "GM03_CODICEDISPOSITIVO", .value = 1},
    {.column = "GM03_INDTIPO", .value = 0},
    {.column = "GM03_FLGTV", .value = 0},
    {.column = "GM03_FLGRO", .value = 0},
    {.column = "GM03_FLGENABLED", .value = 1},
    {.column = "GM03_IDAPPLICAZIONE", .value = 14},
};

// The causes of notices.
constexpr const char* activitiesCause = "activities of a new profile";
constexpr const char* brokenOffCause = "deletion broken off";
constexpr const char* staleCause = "profile changed meanwhile";
constexpr const char* savedCause = "saved";

}  // namespace

ProfilePage::ProfilePage(PageContext& context, controls::NavigatorBar& navigator,
                         const ProfileDependents& dependents)
    : context_(context), navigator_(navigator), dependents_(dependents) {
  controls::RecordFrame& frame = context_.profile;
  TXT_GM03_IDDISPOSITIVO.bind(frame, "GM03_IDDISPOSITIVO");
  TXT_GM03_IDDISPOSITIVO.setEditable(false);
  TXT_GM03_CODICEDISPOSITIVO.bind(frame, "GM03_CODICEDISPOSITIVO");
  TXT_GM03_DESCRIZIONE.bind(frame, "GM03_DESCRIZIONE");
  TXT_GM03_NOTE.bind(frame, "GM03_NOTE");
  constexpr int noteLines = 3;
  TXT_GM03_NOTE.setLines(noteLines);

  frame.setDeletedWith(
      "Vengono eliminati il profilo, i parametri, le attività, le categorie, i depositi e i "
      "listini. "
      "Le regole di sconto restano.");
  frame.BeforeUpdate.on([this](bool& cancel) { FME_ANAGRAFICA_BeforeUpdate(cancel); });
  frame.AfterUpdate.on([this] { FME_ANAGRAFICA_AfterUpdate(); });
  frame.BeforeDelete.on([this](bool& cancel) { FME_ANAGRAFICA_BeforeDelete(cancel); });
  frame.AfterDelete.on([this] { FME_ANAGRAFICA_AfterDelete(); });
  frame.DeleteBrokenOff.on([this] { deletionBrokenOff(); });
  frame.Conflict.on([this] { showConflict(); });
  frame.AfterUndo.on([this] { FME_ANAGRAFICA_AfterUndo(); });
  frame.ChangeStatus.on([this](FrameStatus status, FrameStatus previous) {
    FME_ANAGRAFICA_ChangeStatus(status, previous);
  });
  frame.IsRecordChanged.on([this](bool& changed) { FME_ANAGRAFICA_IsRecordChanged(changed); });
}

void ProfilePage::place(PageGroups& groups) {
  GRP_PROFILO.addAll(TXT_GM03_IDDISPOSITIVO, TXT_GM03_CODICEDISPOSITIVO, TXT_GM03_DESCRIZIONE,
                     TXT_GM03_NOTE);
  groups["GRPMAIN_PAR"].add(GRP_PROFILO);
}

void ProfilePage::ImpostaVirtualFrame() {
  procedure(context_, "ImpostaVirtualFrame", [&](Procedure& p) {
    const Ref<ado::Recordset> rows = p.openEditable(sql::Profilo(p.company()));
    p.step([&] { dependents_.parameters.bindColumns(); });
    p.step([&] { context_.profile.setDataSource(rows); });
    loadedProfile_ = context_.profileId();
    p.step([&] { context_.profile.showRecord(); });
  });
}

void ProfilePage::FME_ANAGRAFICA_BeforeUpdate(bool& cancel) {
  // An Abort cancels the save.
  const bool done = procedure(context_, "FME_ANAGRAFICA_BeforeUpdate", [&](Procedure& p) {
    if (cancel) return true;
    for (const CompletedValue& set : p.step([&] { return completedValues(); })) {
      p.set(context_.profile, set.column, set.value);
    }
    dependents_.filters.storeConditions(dependents_.parameters.FME_PARAMETRI, cancel, p);
    return true;
  });
  cancel = cancel || !done;
}

CompletedValues ProfilePage::completedValues() const {
  CompletedValues completed{{"GM03_DITTA_CG18", context_.company}};
  for (const FixedValue& fixed : fixedValues) completed.push_back({fixed.column, fixed.value});
  if (NVL(context_.profile.field("GM03_DESCRIZIONE"), "") == Value("")) {
    completed.push_back({"GM03_DESCRIZIONE", "Merkal"});
  }
  return completed;
}

// In the order in which a save writes.
void ProfilePage::addChanges(PlannedChanges& changes) {
  addRecord(changes, context_, context_.translate("Profilo"), context_.profile, completedValues());
  dependents_.parameters.addChanges(changes, dependents_.filters.conditions());
  dependents_.deposits.addChanges(changes);
  dependents_.priceLists.addChanges(changes);
  if (!isStored(context_.profile)) dependents_.priceLists.addNewSlots(changes);
}

void ProfilePage::FME_ANAGRAFICA_AfterUpdate() {
  procedure(context_, "FME_ANAGRAFICA_AfterUpdate", [&](Procedure&) {
    context_.notices.remove(brokenOffCause);
    Saved saved;
    saved.deposits = dependents_.deposits.ConfermaModificheDepositi();
    saved.priceLists = dependents_.priceLists.ConfermaModificheListini();
    saved.job = dependents_.synchronisation.SchedulaAttJob();
    showSaved(saved);
    dependents_.filters.compareWithStored();
    // A new profile gets its price slots now.
    if (!equalAsVariants(loadedProfile_, context_.profileId())) {
      dependents_.categories.profileStored();
      reloadDependents();
      context_.notices.show(
          {.cause = activitiesCause,
           .text = context_.translate("Le attività del nuovo profilo vengono create alla prossima "
                                      "apertura della finestra.")});
    }
  });
}

// The statement of the profile is run again, since the record may have been changed or deleted.
void ProfilePage::reload() {
  context_.notices.remove(staleCause);
  context_.profile.discardChanges();
  ImpostaVirtualFrame();
  dependents_.categories.LetturaDatiConfigurazioneCategorie();
  reloadDependents();
  dependents_.filters.reload();
}

void ProfilePage::deletionBrokenOff() {
  reload();
  context_.notices.show(
      {.cause = brokenOffCause,
       .text = context_.translate("L'eliminazione è stata interrotta: le pagine mostrano quello "
                                  "che è rimasto.")});
}

void ProfilePage::showConflict() {
  context_.notices.show(
      {.cause = staleCause,
       .text = context_.translate("Il profilo mostrato non è più quello memorizzato."),
       .action = context_.translate("Ricarica"),
       .perform = [this] { reload(); }});
}

// Counted in the rows that are shown, which are the ones that were saved.
void ProfilePage::showSaved(const Saved& saved) {
  const auto translate = [this](const char* text) { return context_.translate(text); };
  const auto counted = [&](std::int32_t count, const char* one, const char* several) {
    return std::to_string(count) + ' ' + translate(count == 1 ? one : several);
  };
  const auto twoDigits = [](int number) {
    return (number < 10 ? "0" : "") + std::to_string(number);
  };
  const Date now = context_.now();
  const std::string text =
      translate("Salvato ") + twoDigits(now.hour) + ':' + twoDigits(now.minute) + ": " +
      (saved.deposits ? counted(dependents_.deposits.activeCount(), "deposito", "depositi")
                      : translate("depositi non salvati")) +
      ", " +
      (saved.priceLists ? counted(dependents_.priceLists.activeCount(), "listino", "listini")
                        : translate("listini non salvati")) +
      ", " + translate(saved.job ? "lavoro richiesto" : "lavoro non richiesto");
  context_.notices.show({.cause = savedCause, .text = text});
}

void ProfilePage::FME_ANAGRAFICA_BeforeDelete(bool& cancel) {
  // The profile is kept when the user aborted the deletion of what depends on it.
  cancel = !procedure(context_, "FME_ANAGRAFICA_BeforeDelete", [&](Procedure& p) {
    for (const std::string& statement : sql::EliminaDipendenze(p.profile())) p.run(statement);
    return true;
  });
}

void ProfilePage::FME_ANAGRAFICA_AfterDelete() {
  context_.notices.remove(activitiesCause);
  context_.notices.remove(brokenOffCause);
  context_.notices.remove(savedCause);
  procedure(context_, "FME_ANAGRAFICA_AfterDelete", [&](Procedure&) {
    dependents_.categories.LetturaDatiConfigurazioneCategorie();
    reloadDependents();
  });
}

void ProfilePage::FME_ANAGRAFICA_AfterUndo() {
  procedure(context_, "FME_ANAGRAFICA_AfterUndo", [&](Procedure& p) {
    p.step([&] { navigator_.refreshButtons(); });
    reloadDependents();
    // Changes to the filters that were not saved are undone too.
    dependents_.filters.reload();
  });
}

void ProfilePage::reloadDependents() {
  loadedProfile_ = context_.profileId();
  dependents_.deposits.ImpostaRstDepositi();
  dependents_.priceLists.ImpostaRstListini();
}

void ProfilePage::FME_ANAGRAFICA_ChangeStatus(FrameStatus status, FrameStatus previous) {
  procedure(context_, "FME_ANAGRAFICA_ChangeStatus", [&](Procedure&) {
    dependents_.categories.setEnabled(status == FrameStatus::Browsing);
    const bool isEdited = status != FrameStatus::Browsing && status != FrameStatus::Saving;
    if (isEdited) context_.notices.remove(savedCause);
    if (status == FrameStatus::New) dependents_.parameters.ClearChild();
    if (status == FrameStatus::Browsing && previous != FrameStatus::Saving) {
      dependents_.parameters.ShowChild();
    }
    navigator_.setEnabled(status != FrameStatus::Saving);
  });
}

void ProfilePage::FME_ANAGRAFICA_IsRecordChanged(bool& changed) {
  procedure(context_, "FME_ANAGRAFICA_IsRecordChanged", [&](Procedure& p) {
    const controls::RecordFrame& parameters = dependents_.parameters.FME_PARAMETRI;
    changed = p.step([&] { return parameters.isRecordChanged(); }) || changed;
  });
}

}  // namespace kebu::forms
