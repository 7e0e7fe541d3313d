#pragma once

#include <functional>
#include <string>

#include "controls/query_grid.h"
#include "forms/anagrafica/frame/progress_display.h"
#include "forms/anagrafica/page_context.h"

namespace kebu::forms {

enum class PreviewKind { None = 0, Customers = 1, Articles = 2 };

/// What the user wants to see of the published rows.
struct PreviewFilter {
  /// A condition with its own leading connector; "" for all rows.
  std::string text;
  /// The user stated it; without that nothing is shown.
  bool obtained = false;
};

/// The customers or articles exactly as the platform will receive them.
class PreviewPage {
 public:
  PreviewPage(PageContext& context, ProgressDisplay& progress);

  controls::QueryGrid QGRID_ART;

  /// Ask the user for a filter.
  std::function<void(PreviewFilter&)> VisualizzaFiltroClienti;
  std::function<void(PreviewFilter&)> VisualizzaFiltroArticoli;

  /// Asks for a filter and loads what passes it; false when the user left.
  bool load(PreviewKind kind);
  /// Gives the rows back.
  void release() { QGRID_ART.setDataSource(nullptr); }

 private:
  std::string GetNomeTabella(PreviewKind kind);
  void ImpostaGridArticoli(PreviewKind kind);
  void CaricaClienti();
  void CaricaArticoli();
  void show(const std::string& statement, Steps& step);

  PageContext& context_;
  ProgressDisplay& progress_;
  PreviewFilter filter_;
};

}  // namespace kebu::forms
