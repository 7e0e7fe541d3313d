#pragma once

#include <string>

#include "controls/query_grid.h"
#include "controls/simple_controls.h"
#include "forms/anagrafica/page.h"
#include "forms/anagrafica/progress_display.h"
#include "forms/page_context.h"
#include "forms/procedure.h"
#include "forms/selection/selection_dialog.h"

namespace kebu::forms {

enum class PreviewKind { None = 0, Customers = 1, Articles = 2 };

/// The customers or articles exactly as the platform will receive them.
class PreviewPage : public Page {
 public:
  PreviewPage(PageContext& context, ProgressDisplay& progress);

  controls::Label LBL_FILTROANTEPRIMA{"LBL_FILTROANTEPRIMA"};
  controls::QueryGrid QGRID_ART;

  void place(PageGroups& groups) override {
    groups["GRPMAIN_RIEPART"].addAll(LBL_FILTROANTEPRIMA, QGRID_ART);
  }
  /// The filters of the profile, which the dialogs offer.
  void setProfileFilters(const controls::QueryEditor& customers,
                         const controls::QueryEditor& articles) {
    profileCustomers_ = &customers;
    profileArticles_ = &articles;
  }
  void release() override { QGRID_ART.setDataSource(nullptr); }

  /// Asks the user for a filter and loads the rows that pass it; false when the user cancelled.
  bool load(PreviewKind kind);
  /// Reads the rows again with the filter that they were read with.
  void loadAgain();

 private:
  /// Reads the rows of `shown_` into the grid.
  void read();
  void describeRows();

  std::string GetNomeTabella(PreviewKind kind);
  void ImpostaGridArticoli(PreviewKind kind);
  void CaricaClienti();
  void CaricaArticoli();
  void show(const std::string& statement, Procedure& p);

  PageContext& context_;
  ProgressDisplay& progress_;
  SelectionCaller filter_;
  const controls::QueryEditor* profileCustomers_ = nullptr;
  const controls::QueryEditor* profileArticles_ = nullptr;
  /// What is shown. Kept apart from the window's filter, which a cancelled dialog empties.
  struct Shown {
    PreviewKind kind = PreviewKind::None;
    std::string filterText;
    std::string filterWords;
  };
  Shown shown_;
  bool isInterrupted_ = false;  ///< the last reading of rows, by the user
};

}  // namespace kebu::forms
