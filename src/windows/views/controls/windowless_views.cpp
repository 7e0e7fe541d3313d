#include "windows/views/controls/windowless_views.h"

#include "windows/views/window/window_place.h"

namespace kebu::windows {

GroupBoxView::GroupBoxView(ViewSite& site, controls::GroupBox& model, HWND page, const char* kind)
    : View(site, model, kind), page_(page) {}

std::vector<Describable*> GroupBoxView::members() {
  std::vector<Describable*> shown;
  for (const controls::Control* child : controls::as<controls::GroupBox>(control())->children()) {
    View* const view = child->isVisible() ? site().viewFor(*child) : nullptr;
    if (view && view->describedWindow()) shown.push_back(view);
  }
  return shown;
}

void GroupBoxView::describe(Inspection& inspection) {
  View::describe(inspection);
  inspection.window = page_;
  if (control().isShown()) inspection.bounds = toRECT(bounds_);
}

QueryEditorView::QueryEditorView(ViewSite& site, controls::QueryEditor& model, HWND page)
    : GroupBoxView(site, model, page, "QueryEditor"), model_(model) {}

void QueryEditorView::describe(Inspection& inspection) {
  GroupBoxView::describe(inspection);
  writeText(inspection, model_.composedText().text());
  inspection.count = static_cast<std::int32_t>(model_.fieldCount());
}

bool QueryEditorView::describePart(Inspection& inspection) {
  const auto caption = [&](std::size_t field) { return model_.row(field).op.caption(); };
  const auto at =
      itemAsked(inspection, model_.fieldCount(),
                [&](std::size_t i, const std::string& key) { return caption(i) == key; });
  if (!at) return false;
  writeName(inspection, caption(*at));
  writeText(inspection, model_.sentence(*at));
  return true;
}

RecordFrameView::RecordFrameView(ViewSite& site, controls::RecordFrame& model, HWND /*parent*/)
    : View(site, model, "RecordFrame"), model_(model) {}

void RecordFrameView::describe(Inspection& inspection) {
  writeText(inspection, nameOf(model_.status()));
  if (!model_.hasRecord()) addMark(inspection, "no-record");
}

}  // namespace kebu::windows
