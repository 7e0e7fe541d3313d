#pragma once

#include <string>

#include "controls/query_grid.h"
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

  controls::QueryGrid QGRID_ART;

  void place(PageGroups& groups) override { groups["GRPMAIN_RIEPART"].add(QGRID_ART); }
  void release() override { QGRID_ART.setDataSource(nullptr); }

  /// Asks the user for a filter and loads the rows that pass it; false when the user cancelled.
  bool load(PreviewKind kind);

 private:
  std::string GetNomeTabella(PreviewKind kind);
  void ImpostaGridArticoli(PreviewKind kind);
  void CaricaClienti();
  void CaricaArticoli();
  void show(const std::string& statement, Procedure& p);

  PageContext& context_;
  ProgressDisplay& progress_;
  SelectionCaller filter_;
};

}  // namespace kebu::forms
