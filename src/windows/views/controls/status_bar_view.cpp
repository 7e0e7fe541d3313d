#include "windows/views/controls/status_bar_view.h"

#include <commctrl.h>

#include <algorithm>

#include "windows/support/text.h"

namespace kebu::windows {

StatusBarView::StatusBarView(ViewSite& site, controls::StatusBar& model, HWND parent)
    : View(site, model, "StatusBar"),
      model_(model),
      window_(createStock(
          STATUSCLASSNAMEW,
          WS_VISIBLE | CCS_NORESIZE | CCS_NOPARENTALIGN | SBARS_SIZEGRIP | WS_CLIPSIBLINGS, 0,
          parent)) {}

void StatusBarView::place(const layout::Placement& placement) {
  View::place(placement);
  refresh();
}

// Panels are as wide as the side bar above them, or as their texts need; the last takes the rest.
void StatusBarView::placePanels() {
  constexpr int sideBarWidth = 190;
  constexpr int margins = 24;
  std::vector<int> edges;
  int edge = 0;
  for (std::size_t i = 0; i + 1 < model_.panels().size(); ++i) {
    const int needed = theme().metrics().textWidth(model_.panels()[i]) + theme().px(margins);
    edge += std::max(theme().px(sideBarWidth), needed);
    edges.push_back(edge);
  }
  edges.push_back(-1);
  SendMessageW(handle(), SB_SETPARTS, edges.size(), reinterpret_cast<LPARAM>(edges.data()));
}

void StatusBarView::refresh() {
  placePanels();
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
