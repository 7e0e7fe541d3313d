#include "forms/anagrafica/discounts/discounts_page.h"

#include "common/convert.h"
#include "common/nulls.h"
#include "sql/discount_candidates.h"
#include "sql/discount_rules.h"

namespace kebu::forms {

namespace {

constexpr std::int32_t discountsView = 12;
constexpr const char* lastUpdate = "Ultimo aggiornamento: ";

/// "dd/mm/yyyy", whatever the locale.
std::string dayMonthYear(const Date& date) {
  const std::string ansi = date.toAnsi();
  return ansi.substr(6, 2) + "/" + ansi.substr(4, 2) + "/" + ansi.substr(0, 4);
}

}  // namespace

DiscountsPage::DiscountsPage(PageContext& context, ProgressDisplay& progress,
                             controls::NavigatorBar& navigator)
    : options(context, navigator),
      onPrice(context, progress, sql::DiscountMode::OnPrice),
      byGrid(context, progress, sql::DiscountMode::Grid),
      CMD_AGGIORNA("CMD_AGGIORNA", "Aggiorna"),
      LBL_DATAULTAGG("LBL_DATAULTAGG"),
      context_(context),
      progress_(progress),
      navigator_(navigator) {
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

void DiscountsPage::place(controls::GroupBox& page) {
  options.place(page);
  page.addAll(LBL_DATAULTAGG, CMD_AGGIORNA, onPrice.check, onPrice.grid, byGrid.check, byGrid.grid);
}

void DiscountsPage::release() {
  onPrice.empty();
  byGrid.empty();
}

void DiscountsPage::viewShown(std::int32_t view) {
  shown_ = view == discountsView;
  navigator_.setFollowsFrame(!shown_);
  if (!shown_) return;
  navigator_.setButtonEnabled("Nuovo", false);
  offer(offersConfirming_, offersDeleting_);
}

void DiscountsPage::offer(bool confirming, bool deleting) {
  offersConfirming_ = confirming;
  offersDeleting_ = deleting;
  if (!shown_) return;
  navigator_.setButtonEnabled("Conferma", confirming);
  navigator_.setButtonEnabled("Elimina", deleting);
  // Nothing is taken back here but by choosing the list type anew.
  navigator_.setButtonEnabled("Annulla", false);
}

void DiscountsPage::setModified(bool modified) {
  pending_ = modified;
  offer(modified, offersDeleting_);
}

void DiscountsPage::showLastUpdate(const Date& day) {
  LBL_DATAULTAGG.setCaption(context_.translate(lastUpdate) + dayMonthYear(day));
}

const sql::DiscountKind& DiscountsPage::kindOf(const DiscountGrid& mode) const {
  return sql::discountKind(mode.mode(), listType_);
}

void DiscountsPage::CMB_LISTINISCONTO_ChangeRow() {
  trap(context_.services, "CMB_LISTINISCONTO_ChangeRow", [&](Steps& step) {
    controls::ComboBox& combo = options.CMB_LISTINISCONTO;
    const std::int32_t chosen = step([&] { return toInt32(CDecN(combo.value())); });
    if (!context_.loaded || chosen == listType_) return;
    if (pending_) {
      constexpr std::int32_t style = msgbox::yesNoCancel | msgbox::question;
      const std::int32_t answer = step([&] {
        return context_.services.message("Salvare le modifiche apportate agli sconti?", style);
      });
      if (answer == msgbox::cancel) {
        step([&] { combo.select(listType_); });
        return;
      }
      if (answer == msgbox::yes && listType_ != 0) {
        RegistraListini(onPrice);
        RegistraListini(byGrid);
      }
    }
    pending_ = false;
    listType_ = chosen;
    const bool any = listType_ != 0;
    for (DiscountGrid* mode : {&onPrice, &byGrid}) {
      step([&] { mode->check.setTicked(false); });
      step([&] { mode->check.setEnabled(any); });
      step([&] { mode->empty(); });
    }
    step([&] { options.reset(); });
    step([&] { offer(false, false); });
    step([&] { CMD_AGGIORNA.setEnabled(any); });
    step([&] { LBL_DATAULTAGG.setCaption(""); });
    if (!any) return;
    CaricaListini(onPrice);
    CaricaListini(byGrid);
  });
}

void DiscountsPage::CMD_AGGIORNA_ButtonClick() {
  trap(context_.services, "CMD_AGGIORNA_ButtonClick", [&](Steps& step) {
    step([&] { CMD_AGGIORNA.setEnabled(false); });
    step([&] { onPrice.check.setTicked(false); });
    step([&] { byGrid.check.setTicked(false); });
    step([&] {
      LBL_DATAULTAGG.setCaption(context_.translate("Ultimo aggiornamento: da aggiornare"));
    });
    if (listType_ != 0) {
      AggiornaListini(onPrice);
      AggiornaListini(byGrid);
    }
    step([&] { CMD_AGGIORNA.setEnabled(true); });
  });
}

void DiscountsPage::INAV_PAR_ButtonClick(bool& cancel, const std::string& button) {
  if (!shown_) return;
  trap(context_.services, "INAV_PAR_ButtonClick", [&](Steps& step) {
    cancel = true;  // the bar's own action is the profile's
    if (button == "Conferma") {
      if (listType_ != 0) {
        RegistraListini(onPrice);
        RegistraListini(byGrid);
      }
      pending_ = false;
      step([&] { offer(false, true); });
      step([&] { showLastUpdate(context_.today()); });
    } else if (button == "Elimina") {
      EliminaListini();
      if (listType_ != 0) {
        AggiornaListini(onPrice);
        AggiornaListini(byGrid);
      }
      pending_ = false;
      step([&] { offer(false, false); });
      step([&] { showLastUpdate(context_.today()); });
      step([&] { options.reset(); });
    }
  });
}

void DiscountsPage::dropTable(DiscountGrid& mode, Steps& step) {
  if (RTrimN(mode.table()).empty()) return;
  step([&] { context_.connection->Execute(sql::EliminaTabellaSconti(mode.table())); });
}

void DiscountsPage::CaricaListini(DiscountGrid& mode) {
  const sql::DiscountKind& kind = kindOf(mode);
  mode.Imposta(kind);
  progress_.during(kind.carica, "Caricamento listini in corso...", [&](Steps& step) {
    const auto painted = context_.paintedMeanwhile();
    dropTable(mode, step);
    mode.renameTable();
    step([&] {
      context_.connection->Execute(sql::CaricaRegole(mode.table(), context_.companyKey(), kind));
    });
    const Ref<ado::Recordset> rows = step([&] {
      return context_.openEditable(sql::RigheRegole(mode.table()), ado::CursorType::Dynamic);
    });
    step([&] { mode.grid.setDataSource(rows); });
    if (step([&] { return rows && !rows->EOF_(); })) {
      showStored(mode, step);
    } else {
      step([&] { mode.check.setTicked(false); });
      AggiornaListini(mode);
    }
  });
}

// The options stand in every rule; the first row's are shown.
void DiscountsPage::showStored(DiscountGrid& mode, Steps& step) {
  const bool isPrice = mode.mode() == sql::DiscountMode::OnPrice;
  const char* const flag = isPrice ? "GM61_FLGSCONTISUPRZ" : "GM61_FLGGRIGLIASCONTI";
  step([&] { mode.check.setTicked(toBoolean(CDecN(mode.rows()->value(flag)))); });
  options.show(mode.rows(), step);
  step([&] { offer(offersConfirming_, true); });
}

void DiscountsPage::AggiornaListini(DiscountGrid& mode) {
  const sql::DiscountKind& kind = kindOf(mode);
  progress_.during(kind.aggiorna, "Aggiornamento listini in corso...", [&](Steps& step) {
    const auto painted = context_.paintedMeanwhile();
    dropTable(mode, step);
    step([&] {
      context_.connection->Execute(
          sql::CreaCandidati(mode.table(), context_.companyKey(), kind, priceRows_));
    });
    const Ref<ado::Recordset> rows = step([&] {
      return context_.openEditable(sql::RigheCandidati(mode.table(), kind),
                                   ado::CursorType::Dynamic);
    });
    if (kind.mode == sql::DiscountMode::OnPrice) {
      priceRows_ = step([&] { return rows ? rows->RecordCount() : 0; });
    }
    step([&] { mode.grid.setDataSource(rows); });
  });
}

void DiscountsPage::EliminaListini() {
  trap(context_.services, "EliminaListini", [&](Steps& step) {
    for (const DiscountGrid* mode : {&onPrice, &byGrid}) {
      if (mode->isOn() || !mode->rows()) continue;
      const std::string listType = toSqlNumber(CDecN(options.CMB_LISTINISCONTO.value()));
      step([&] {
        const auto painted = context_.paintedMeanwhile();
        context_.connection->Execute(
            sql::EliminaRegole(context_.companyKey(), mode->mode(), listType));
      });
    }
  });
}

}  // namespace kebu::forms
