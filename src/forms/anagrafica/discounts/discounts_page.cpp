#include "forms/anagrafica/discounts/discounts_page.h"

#include "common/convert.h"
#include "common/nulls.h"
#include "sql/discount_candidates.h"
#include "sql/discount_rules.h"

namespace kebu::forms {

namespace {

constexpr const char* lastUpdate = "Ultimo aggiornamento: ";

// The causes of notices.
constexpr const char* deletingCause = "rules deleted";
std::string recomputingCause(const DiscountGrid& mode) {
  return "recomputing of " + mode.grid.Name();
}

/// "dd/mm/yyyy", whatever the locale.
std::string dayMonthYear(const Date& date) {
  const std::string ansi = date.toAnsi();
  return ansi.substr(6, 2) + "/" + ansi.substr(4, 2) + "/" + ansi.substr(0, 4);
}

}  // namespace

DiscountsPage::DiscountsPage(PageContext& context, ProgressDisplay& progress,
                             controls::NavigatorBar& navigator)
    : options(context),
      onPrice(context, progress, sql::DiscountMode::OnPrice),
      byGrid(context, progress, sql::DiscountMode::Grid),
      context_(context),
      progress_(progress),
      navigator_(navigator),
      loads_{PageLoad(context, surroundings(onPrice)), PageLoad(context, surroundings(byGrid))} {
  CMD_AGGIORNA.setEnabled(false);
  handleEvents();
}

void DiscountsPage::handleEvents() {
  for (DiscountGrid* mode : {&onPrice, &byGrid}) {
    mode->Modified.on([this] { setModified(true); });
    mode->LastUpdate.on([this](const Date& day) { showLastUpdate(day); });
  }
  options.Modified.on([this] { setModified(true); });
  options.CMB_LISTINISCONTO.ChangeRow.on([this] { CMB_LISTINISCONTO_ChangeRow(); });
  CMD_AGGIORNA.ButtonClick.on([this] { CMD_AGGIORNA_ButtonClick(); });
  navigator_.ButtonClick.on(
      [this](bool& cancel, const std::string& button) { INAV_PAR_ButtonClick(cancel, button); });
}

void DiscountsPage::place(PageGroups& groups) {
  controls::GroupBox& page = groups["GRPMAIN_SCONTI"];
  options.place(page);
  page.addAll(LBL_DATAULTAGG, CMD_AGGIORNA, onPrice.check, onPrice.grid, byGrid.check, byGrid.grid);
}

void DiscountsPage::release() {
  for (DiscountGrid* mode : {&onPrice, &byGrid}) {
    mode->empty();
    mode->stored.none();
  }
}

void DiscountsPage::viewShown(std::int32_t number) {
  shown_ = number == view;
  navigator_.setFollowsFrame(!shown_);
  if (!shown_) return;
  navigator_.setButtonEnabled("Nuovo", false);
  offer(offersConfirming_, offersDeleting_);
}

PageLoad::Surroundings DiscountsPage::surroundings(DiscountGrid& mode) {
  return {.cause = "rules of " + mode.grid.Name(),
          .text = mode.check.caption() + ": le regole non sono state lette.",
          .reload = [this, &mode] { CaricaListini(mode); },
          .lock = [this](bool) { lockControls(); }};
}

void DiscountsPage::setRights(const controls::Rights& rights) {
  rights_ = rights;
  lockControls();
}

// The box of a mode is cleared before the mode's rules are deleted.
void DiscountsPage::lockControls() {
  for (DiscountGrid* mode : {&onPrice, &byGrid}) {
    const bool isUnread = loadOf(*mode).hasFailed();
    mode->check.setLocked(isUnread || !(rights_.canUpdate || rights_.canDelete));
    mode->grid.setLocked(isUnread || !rights_.canUpdate);
  }
  const bool nothingRead = loads_[0].hasFailed() && loads_[1].hasFailed();
  options.GRB_GENERALESCONTI.setLocked(nothingRead || !rights_.canUpdate);
}

void DiscountsPage::offer(bool confirming, bool deleting) {
  offersConfirming_ = confirming && rights_.canUpdate;
  offersDeleting_ = deleting;
  if (!shown_) return;
  navigator_.setButtonEnabled("Conferma", offersConfirming_);
  navigator_.setButtonEnabled("Elimina", deleting);
  // Changes of rules are undone only by choosing the list type again.
  navigator_.setButtonEnabled("Annulla", false);
}

void DiscountsPage::setModified(bool modified) {
  setPending(modified && rights_.canUpdate);
  offer(modified, offersDeleting_);
}

void DiscountsPage::setPending(bool pending) {
  pending_ = pending;
  PendingChanged.raise();
}

void DiscountsPage::showLastUpdate(const Date& day) {
  LBL_DATAULTAGG.setCaption(context_.translate(lastUpdate) + dayMonthYear(day));
}

const sql::DiscountKind& DiscountsPage::kindOf(const DiscountGrid& mode) const {
  return sql::discountKind(mode.mode(), listType_);
}

void DiscountsPage::CMB_LISTINISCONTO_ChangeRow() {
  procedure(context_, "CMB_LISTINISCONTO_ChangeRow", [&](Procedure& p) {
    controls::ComboBox& combo = options.CMB_LISTINISCONTO;
    const std::int32_t chosen = toInt32(CDecN(combo.value()));
    if (!context_.loaded || chosen == listType_) return;
    if (pending_) {
      const std::int32_t answer = p.ask("Salvare le modifiche apportate agli sconti?",
                                        msgbox::yesNoCancel | msgbox::question);
      if (answer == msgbox::cancel) {
        combo.select(listType_);
        return;
      }
      leaving_ = true;
      if (answer == msgbox::yes) registerBoth();
      leaving_ = false;
    }
    setPending(false);
    listType_ = chosen;
    const bool any = listType_ != 0;
    for (DiscountGrid* mode : {&onPrice, &byGrid}) {
      mode->check.setTicked(false);
      mode->check.setEnabled(any);
      mode->empty();
    }
    options.reset();
    offer(false, false);
    CMD_AGGIORNA.setEnabled(any);
    LBL_DATAULTAGG.setCaption("");
    context_.notices.remove(deletingCause);
    for (PageLoad& load : loads_) load.ended(true);  // of the list type before
    if (!any) return;
    CaricaListini(onPrice);
    CaricaListini(byGrid);
  });
}

void DiscountsPage::CMD_AGGIORNA_ButtonClick() {
  procedure(context_, "CMD_AGGIORNA_ButtonClick", [&](Procedure& p) {
    CMD_AGGIORNA.setEnabled(false);
    onPrice.check.setTicked(false);
    byGrid.check.setTicked(false);
    p.step([&] {
      LBL_DATAULTAGG.setCaption(context_.translate("Ultimo aggiornamento: da aggiornare"));
    });
    recomputeBoth();
    CMD_AGGIORNA.setEnabled(true);
  });
}

bool DiscountsPage::confirm() {
  return procedure(context_, "INAV_PAR_ButtonClick", [&](Procedure& p) {
    context_.notices.remove(deletingCause);
    const bool stored = registerBoth();
    setPending(false);
    offer(false, true);
    p.step([&] { showLastUpdate(context_.today()); });
    return stored;
  });
}

void DiscountsPage::INAV_PAR_ButtonClick(bool& cancel, const std::string& button) {
  if (!shown_) return;
  procedure(context_, "INAV_PAR_ButtonClick", [&](Procedure& p) {
    cancel = true;  // the bar would act on the profile
    if (button == "Conferma") {
      confirm();
    } else if (button == "Elimina") {
      EliminaListini();
      recomputeBoth();
      setPending(false);
      offer(false, false);
      p.step([&] { showLastUpdate(context_.today()); });
      options.reset();
    }
  });
}

bool DiscountsPage::registerBoth() {
  bool stored = true;
  if (listType_ == 0) return stored;
  for (DiscountGrid* mode : {&onPrice, &byGrid}) {
    // Rules that could not be read are not replaced.
    if (!loadOf(*mode).hasFailed() && !RegistraListini(*mode)) stored = false;
  }
  return stored;
}

void DiscountsPage::recomputeBoth() {
  if (listType_ == 0) return;
  AggiornaListini(onPrice);
  AggiornaListini(byGrid);
}

void DiscountsPage::dropTable(const DiscountGrid& mode, Procedure& p) {
  if (RTrimN(mode.table()).empty()) return;
  p.run(sql::EliminaTabellaSconti(mode.table()));
}

void DiscountsPage::CaricaListini(DiscountGrid& mode) {
  const sql::DiscountKind& kind = kindOf(mode);
  mode.Imposta(kind);
  const ProcedureName called(kind.names.carica, errorTitle);
  const bool isRead =
      progress_.during(called, "Caricamento listini in corso...", [&](Procedure& p) {
        const auto painted = context_.paintedMeanwhile();
        dropTable(mode, p);
        mode.stored.none();
        mode.renameTable();
        p.run(sql::CaricaRegole(mode.table(), p.company(), kind));
        const auto rows =
            p.openWorkingTable(sql::RigheRegole(mode.table()), ado::CursorType::Dynamic);
        p.show(mode.grid, rows);
        if (p.step([&] { return rows && !rows->EOF_(); })) {
          mode.stored.loaded(rows);
          showStored(mode, p);
        } else {
          mode.check.setTicked(false);
          AggiornaListini(mode, false);
        }
      });
  loadOf(mode).ended(isRead);
  if (isRead) context_.notices.remove(kind.names.registra);
}

// Every rule carries the same options, so those of the first row are shown.
void DiscountsPage::showStored(DiscountGrid& mode, Procedure& p) {
  const bool isPrice = mode.mode() == sql::DiscountMode::OnPrice;
  const char* const flag = isPrice ? "GM61_FLGSCONTISUPRZ" : "GM61_FLGGRIGLIASCONTI";
  context_.notices.remove(recomputingCause(mode));
  mode.check.setTicked(toBoolean(CDecN(p.value(mode.rows(), flag))));
  options.show(mode.rows(), p);
  offer(offersConfirming_, true);
}

void DiscountsPage::AggiornaListini(DiscountGrid& mode, bool hasStored) {
  const sql::DiscountKind& kind = kindOf(mode);
  const ProcedureName called(kind.names.aggiorna, errorTitle);
  const bool done =
      progress_.during(called, "Aggiornamento listini in corso...", [&](Procedure& p) {
        const auto painted = context_.paintedMeanwhile();
        dropTable(mode, p);
        p.run(sql::CreaCandidati(mode.table(), p.company(), kind, priceRows_));
        const auto rows =
            p.openWorkingTable(sql::RigheCandidati(mode.table(), kind), ado::CursorType::Dynamic);
        if (kind.mode == sql::DiscountMode::OnPrice) {
          priceRows_ = p.step([&] { return rows ? rows->RecordCount() : 0; });
        }
        p.show(mode.grid, rows);
        mode.stored.otherRows();
      });
  if (done) {
    context_.notices.remove(recomputingCause(mode));
    return;
  }
  const char* const text =
      hasStored ? ": il ricalcolo non è riuscito, Conferma eliminerebbe le regole memorizzate."
                : ": il ricalcolo non è riuscito, premere Aggiorna per ripeterlo.";
  context_.notices.show(
      {.cause = recomputingCause(mode), .text = mode.check.caption() + context_.translate(text)});
}

void DiscountsPage::EliminaListini() {
  std::string deleted;
  std::string kept;
  const auto add = [](std::string& names, const DiscountGrid& mode) {
    names += (names.empty() ? "" : ", ") + mode.check.caption();
  };
  procedure(context_, {"EliminaListini", errorTitle}, [&](Procedure& p) {
    for (DiscountGrid* mode : {&onPrice, &byGrid}) {
      if (mode->isOn()) add(kept, *mode);
      if (mode->isOn() || !mode->rows() || loadOf(*mode).hasFailed()) continue;
      const std::string listType = toSqlNumber(CDecN(options.CMB_LISTINISCONTO.value()));
      const auto painted = context_.paintedMeanwhile();
      p.run(sql::EliminaRegole(p.company(), mode->mode(), listType));
      mode->stored.none();
      add(deleted, *mode);
    }
  });
  std::string text;
  if (!deleted.empty()) text += context_.translate("Regole eliminate: ") + deleted + ". ";
  if (!kept.empty()) {
    text += context_.translate("Regole mantenute perché la casella è selezionata: ") + kept + ".";
  }
  if (text.empty()) text = context_.translate("Nessuna regola è stata eliminata.");
  context_.notices.show({.cause = deletingCause, .text = text});
}

}  // namespace kebu::forms
