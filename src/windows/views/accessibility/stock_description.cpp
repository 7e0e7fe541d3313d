#include "windows/views/accessibility/stock_description.h"

#include <memory>
#include <utility>

#include "windows/views/accessibility/accessible_object.h"
#include "windows/views/window/guard.h"
#include "windows/views/window/inspection_answer.h"
#include "windows/views/window/window_table.h"
#include "windows/views/window/window_text.h"

namespace kebu::windows {

namespace {

class StockDescription : public Describable {
 public:
  StockDescription(HWND window, const wchar_t* kind, std::wstring name)
      : window_(window),
        kind_(kind),
        name_(std::move(name)),
        usual_(reinterpret_cast<WNDPROC>(GetWindowLongPtrW(window, GWLP_WNDPROC))) {}

  bool inspect(Inspection& inspection) override {
    if (inspection.part != Inspected::Control) return false;
    describeWindow(inspection, window_);
    write(inspection.kind, kind_);
    write(inspection.spoken, name_);
    write(inspection.text, windowText(window_));
    return true;
  }
  HWND describedWindow() const override { return window_; }
  std::string translated(std::string_view text) const override { return std::string(text); }
  WNDPROC usual() const { return usual_; }

 private:
  HWND window_;
  std::wstring kind_;
  std::wstring name_;
  WNDPROC usual_;
};

WindowTable<std::shared_ptr<StockDescription>> descriptions;

LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  const auto description = descriptions.find(window).value_or(nullptr);
  if (!description) return DefWindowProcW(window, message, wParam, lParam);
  WNDPROC const usual = description->usual();
  if (message == WM_GETOBJECT) {
    std::optional<LRESULT> object;
    guarded([&] { object = answerGetObject(*description, {}, wParam, lParam); });
    if (object) return *object;
  }
  if (message == WM_NCDESTROY) {
    descriptions.remove(window);
    SetWindowLongPtrW(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(usual));
  }
  return CallWindowProcW(usual, window, message, wParam, lParam);
}

}  // namespace

void describeStock(HWND window, const wchar_t* kind, const std::wstring& name) {
  if (!window || descriptions.find(window)) return;
  descriptions.put(window, std::make_shared<StockDescription>(window, kind, name));
  SetWindowLongPtrW(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(procedure));
}

}  // namespace kebu::windows
