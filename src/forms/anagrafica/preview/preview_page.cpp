#include "forms/anagrafica/preview/preview_page.h"

#include "common/convert.h"
#include "controls/progress.h"
#include "forms/anagrafica/preview/preview_columns.h"
#include "forms/interruptible.h"
#include "sql/preview.h"

namespace kebu::forms {

PreviewPage::PreviewPage(PageContext& context, ProgressDisplay& progress)
    : QGRID_ART("QGRID_ART", context.services),
      context_(context),
      progress_(progress),
      filter_{.context = context} {}

bool PreviewPage::load(PreviewKind kind) {
  filter_.filterText.clear();
  filter_.isFilterObtained = false;
  const bool customers = kind == PreviewKind::Customers;
  filter_.profileFilter = customers ? profileCustomers_ : profileArticles_;
  if (customers) {
    VisualizzaFiltroClienti(filter_);
  } else {
    VisualizzaFiltroArticoli(filter_);
  }
  if (!filter_.isFilterObtained) return false;
  shown_ = {kind, filter_.filterText, filter_.filterWords};
  ImpostaGridArticoli(kind);
  read();
  return true;
}

void PreviewPage::loadAgain() {
  if (shown_.kind != PreviewKind::None) read();
}

void PreviewPage::read() {
  const bool customers = shown_.kind == PreviewKind::Customers;
  isInterrupted_ = false;
  progress_.ImpostaMessaggioStato(
      customers ? "Caricamento clienti in corso..." : "Caricamento articoli in corso...", true);
  if (customers) {
    CaricaClienti();
  } else {
    CaricaArticoli();
  }
  progress_.ImpostaMessaggioStato("", false);
  describeRows();
}

void PreviewPage::describeRows() {
  const auto translate = [this](const char* text) { return context_.translate(text); };
  const std::int32_t rows = QGRID_ART.rowCount();
  std::string text = translate("Filtro: ") +
                     (shown_.filterWords.empty() ? translate("nessuno") : shown_.filterWords) +
                     ". ";
  if (rows == 0) {
    text += translate("Nessuna riga corrisponde.");
  } else {
    text += translate("Righe: ") + controls::groupedNumber(rows) + ".";
  }
  if (isInterrupted_) text = translate("Lettura interrotta, F5 la ripete. ") + text;
  LBL_FILTROANTEPRIMA.setCaption(text);
}

std::string PreviewPage::GetNomeTabella(PreviewKind kind) {
  return procedure(context_, "GetNomeTabella", [&](Procedure& p) {
    const Ref<ado::Recordset> rows = p.read(sql::NomeTabella(static_cast<int>(kind)));
    return p.step([&] { return toText(rows->value("Tabella")); });
  });
}

void PreviewPage::ImpostaGridArticoli(PreviewKind kind) {
  procedure(context_, "ImpostaGridArticoli", [&](Procedure& p) {
    const auto translate = [this](const std::string& text) { return context_.translate(text); };
    // The previous rows do not have the new columns.
    release();
    p.step([&] {
      QGRID_ART.clearColumns();
      if (kind == PreviewKind::Customers) {
        QGRID_ART.setCaption(translate("Clienti"));
        for (const auto& column : customerColumns) QGRID_ART.addColumn(column, translate);
        return;
      }
      QGRID_ART.setCaption(translate("Articoli"));
      for (const auto& column : articleColumns) QGRID_ART.addColumn(column, translate);
      for (int slot = 1; slot <= articlePrices; ++slot) {
        for (controls::GridColumn column : articlePriceColumns) {
          const std::string field = std::string(column.field) + std::to_string(slot);
          const std::string caption = std::string(column.caption) + std::to_string(slot);
          column.field = field;
          column.caption = caption;
          QGRID_ART.addColumn(column, translate);
        }
      }
      QGRID_ART.addColumn(articleLastColumn, translate);
    });
  });
}

void PreviewPage::CaricaClienti() {
  procedure(context_, "CaricaClienti", [&](Procedure& p) {
    const std::string view = GetNomeTabella(PreviewKind::Customers);
    if (view.empty()) return;  // which view it is could not be read
    show(sql::ClientiPubblicati(view, p.company(), shown_.filterText), p);
  });
}

void PreviewPage::CaricaArticoli() {
  procedure(context_, "CaricaArticoli", [&](Procedure& p) {
    const std::string view = GetNomeTabella(PreviewKind::Articles);
    if (view.empty()) return;
    show(sql::ArticoliPubblicati(view, p.company(), shown_.filterText), p);
  });
}

void PreviewPage::show(const std::string& statement, Procedure& p) {
  Ref<ado::Recordset> rows;
  isInterrupted_ = p.step([&] {
    return !runInterruptibly(context_, progress_.PBAR, "",
                             [&] { rows = context_.openReadable(statement); });
  });
  // The rows of before stay.
  if (isInterrupted_) return;
  p.show(QGRID_ART, rows);
}

}  // namespace kebu::forms
