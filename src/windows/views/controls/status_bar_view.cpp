#include "windows/views/controls/status_bar_view.h"

#include <commctrl.h>

#include "windows/support/text.h"

namespace kebu::windows {

StatusBarView::StatusBarView(ViewSite& site, controls::StatusBar& model, HWND parent)
    : View(site, model, "StatusBar"),
      model_(model),
      window_(createStock(STATUSCLASSNAMEW,
                          WS_VISIBLE | CCS_NORESIZE | CCS_NOPARENTALIGN | SBARS_SIZEGRIP, 0,
                          parent)) {}

void StatusBarView::place(const layout::Placement& placement) {
  View::place(placement);
  // The first panel is as wide as the side bar above it; the last takes the rest.
  const std::size_t count = model_.panels().size();
  std::vector<int> edges;
  for (std::size_t i = 1; i < count; ++i) edges.push_back(theme().px(190) * static_cast<int>(i));
  edges.push_back(-1);
  SendMessageW(handle(), SB_SETPARTS, edges.size(), reinterpret_cast<LPARAM>(edges.data()));
  refresh();
}

void StatusBarView::refresh() {
  for (std::size_t i = 0; i < model_.panels().size(); ++i) {
    SendMessageW(handle(), SB_SETTEXTW, i,
                 reinterpret_cast<LPARAM>(toWide(" " + model_.panels()[i]).c_str()));
  }
}

void StatusBarView::describe(Inspection& inspection) {
  View::describe(inspection);
  inspection.count = static_cast<std::int32_t>(model_.panels().size());
  if (model_.isAnimated()) addMark(inspection, "animated");
}

bool StatusBarView::describePart(Inspection& inspection) {
  const auto index = itemAsked(inspection, model_.panels().size(),
                               [](std::size_t, const std::string&) { return false; });
  if (!index) return false;
  describeWindow(inspection, handle());
  SendMessageW(handle(), SB_GETRECT, *index, reinterpret_cast<LPARAM>(&inspection.bounds));
  writeText(inspection, model_.panels()[*index]);
  return true;
}

}  // namespace kebu::windows
