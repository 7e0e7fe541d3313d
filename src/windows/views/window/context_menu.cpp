#include "windows/views/window/context_menu.h"

#include "common/convert.h"
#include "windows/support/text.h"

namespace kebu::windows {

namespace {

std::string keyText(const controls::Shortcut& key, const controls::Translator& translator) {
  if (!key.letter) return "";
  return "\tCtrl+" + (key.shift ? translator("Maiusc") + "+" : std::string()) + key.letter;
}

}  // namespace

void showMenu(HWND owner, POINT at, const controls::Menu& menu,
              const controls::Translator& translator) {
  HMENU shown = CreatePopupMenu();
  if (!shown) return;
  for (std::size_t i = 0; i < menu.size(); ++i) {
    const controls::MenuEntry& entry = menu[i];
    if (entry.beginsGroup) AppendMenuW(shown, MF_SEPARATOR, 0, nullptr);
    const std::wstring text =
        toWide(replaceAll(entry.caption, "&", "&&") + keyText(entry.key, translator));
    AppendMenuW(shown, MF_STRING | (entry.act ? 0U : MF_GRAYED), i + 1, text.c_str());
  }
  const int chosen =
      TrackPopupMenu(shown, TPM_RETURNCMD | TPM_RIGHTBUTTON, at.x, at.y, 0, owner, nullptr);
  DestroyMenu(shown);
  const auto index = static_cast<std::size_t>(chosen) - 1;
  if (index < menu.size() && menu[index].act) menu[index].act();
}

std::function<void()> actionIn(const controls::Menu& menu, const Key& key) {
  if (!key.control || key.mnemonic) return {};
  for (const controls::MenuEntry& entry : menu) {
    const bool isIt = entry.key.letter && static_cast<WPARAM>(entry.key.letter) == key.code &&
                      entry.key.shift == key.shift;
    if (isIt) return entry.act;
  }
  return {};
}

}  // namespace kebu::windows
