#include "windows/views/accessibility/stock_description.h"

#include <memory>
#include <utility>

#include "windows/views/accessibility/accessible_object.h"
#include "windows/views/window/guard.h"
#include "windows/views/window/inspection_answer.h"
#include "windows/views/window/subclass.h"
#include "windows/views/window/window_text.h"

namespace kebu::windows {

namespace {

class StockDescription : public Describable {
 public:
  StockDescription(HWND window, const wchar_t* kind, std::wstring name)
      : window_(window), kind_(kind), name_(std::move(name)) {}

  bool inspect(Inspection& inspection) override {
    if (inspection.part != Inspected::Control) return false;
    describeWindow(inspection, window_);
    write(inspection.kind, kind_);
    write(inspection.spoken, name_);
    write(inspection.text, windowText(window_));
    return true;
  }
  std::optional<LRESULT> answer(const ControlMessage& received) {
    std::optional<LRESULT> object;
    if (received.message == WM_GETOBJECT) {
      guarded([&] { object = answerGetObject(*this, {}, received.wParam, received.lParam); });
    }
    return object;
  }
  HWND describedWindow() const override { return window_; }
  std::string translated(std::string_view text) const override { return std::string(text); }

 private:
  HWND window_;
  std::wstring kind_;
  std::wstring name_;
};

using Description = Subclass<std::shared_ptr<StockDescription>, &StockDescription::answer>;

}  // namespace

void describeStock(HWND window, const wchar_t* kind, const std::wstring& name) {
  if (!window || Description::isOn(window)) return;
  Description::putOn(window, std::make_shared<StockDescription>(window, kind, name));
}

}  // namespace kebu::windows
