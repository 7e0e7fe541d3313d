#include "windows/views/controls/button_view.h"

#include "windows/support/text.h"
#include "windows/views/drawing/push_button.h"
#include "windows/views/window/guard.h"

namespace kebu::windows {

ButtonView::ButtonView(ViewSite& site, controls::Button& model, HWND parent)
    : View(site, model, "Button"),
      model_(model),
      window_(createStock(L"BUTTON", WS_TABSTOP | BS_OWNERDRAW, 0, parent,
                          site.placeOfNewView().bounds, markedCaption())) {}

void ButtonView::refresh() {
  setWindowText(handle(), markedCaption());
  EnableWindow(handle(), looksEnabled() && control().acceptsChanges());
}

void ButtonView::click() {
  if (!site().commit()) return;
  guarded([&] { model_.click(); });
}

void ButtonView::command(HWND /*from*/, UINT code) {
  if (code == BN_CLICKED) click();
}

void ButtonView::drawItem(const DRAWITEMSTRUCT& item) {
  // What stands on a page keeps its looks, as its fields do.
  drawPushButton(control().container() ? item : whileBusy(item), theme(),
                 {windowText(handle()), toWide(std::string(controls::keyOf(model_))),
                  model_.isDefault(), behind(), site().hovered() == item.hwndItem});
}

std::function<void()> ButtonView::actionFor(const Key& key) {
  if (key.isPlain(VK_RETURN)) return [this] { click(); };
  return {};
}

void ButtonView::describe(Inspection& inspection) {
  View::describe(inspection);
  write(inspection.shortcut, toWide(std::string(controls::keyOf(model_))));
}

void ButtonView::reachByMnemonic() {
  SetFocus(handle());
  click();
}

}  // namespace kebu::windows
