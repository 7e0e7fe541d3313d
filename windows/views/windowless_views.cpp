#include "windows/views/windowless_views.h"

#include "windows/views/painting.h"

namespace kebu::windows {

GroupBoxView::GroupBoxView(ViewSite& site, controls::GroupBox& model, HWND page)
    : View(site, model, "GroupBox"), page_(page) {}

void GroupBoxView::describe(Inspection& inspection) {
  View::describe(inspection);
  inspection.window = page_;
  if (control().isShown()) inspection.bounds = toRECT(bounds_);
}

RecordFrameView::RecordFrameView(ViewSite& site, controls::RecordFrame& model, HWND /*parent*/)
    : View(site, model, "RecordFrame"), model_(model) {}

void RecordFrameView::describe(Inspection& inspection) {
  writeText(inspection, nameOf(model_.status()));
  if (!model_.hasRecord()) addMark(inspection, "no-record");
}

}  // namespace kebu::windows
