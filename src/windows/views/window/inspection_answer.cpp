#include "windows/views/window/inspection_answer.h"

#include "windows/support/text.h"

namespace kebu::windows {

std::optional<std::size_t> itemAsked(
    Inspection& inspection, std::size_t count,
    const std::function<bool(std::size_t index, const std::string& key)>& hasKey) {
  if (inspection.part != Inspected::Item) return std::nullopt;
  auto index = static_cast<std::size_t>(inspection.index);
  const std::string key = toUtf8(inspection.key);
  if (!key.empty()) {
    index = 0;
    while (index < count && !hasKey(index, key)) ++index;
  }
  if (index >= count) return std::nullopt;
  inspection.index = static_cast<std::int32_t>(index);
  return index;
}

void writeName(Inspection& inspection, const std::string& name) {
  write(inspection.name, toWide(name));
}

void writeText(Inspection& inspection, const std::string& text) {
  write(inspection.text, toWide(text));
}

void addMark(Inspection& inspection, const char* mark) {
  std::wstring marks = inspection.marks;
  if (!marks.empty()) marks += L' ';
  write(inspection.marks, marks + toWide(mark));
}

void describeWindow(Inspection& inspection, HWND window) {
  inspection.window = window;
  if (!window) return;
  if (IsWindowVisible(window)) GetClientRect(window, &inspection.bounds);
  inspection.enabled = IsWindowEnabled(window);
  inspection.visible = IsWindowVisible(window);
}

}  // namespace kebu::windows
