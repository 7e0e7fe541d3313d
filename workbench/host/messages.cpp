#include "workbench/host/messages.h"

#include <algorithm>
#include <iterator>
#include <string_view>

#include "common/convert.h"

namespace kebu::workbench {

namespace {

struct StoredMessage {
  std::int32_t id;
  std::string_view text;
};

constexpr StoredMessage store[] = {
    {12569, "Attenzione, specificare il deposito per i documenti importati."},
    {75210, "Aggiornamento listini terminato."},
};

std::string messageText(std::int32_t id) {
  const auto* const at = std::find_if(std::begin(store), std::end(store),
                                      [&](const StoredMessage& m) { return m.id == id; });
  return at == std::end(store) ? "Messaggio n. " + std::to_string(id) : std::string(at->text);
}

}  // namespace

std::string Messages::Translate(const std::string& text) {
  return translations_.translate(text);
}

std::int32_t Messages::MsgBox(const Value& prompt, std::int32_t buttons, const Value& title,
                              const Value& /*context*/) {
  return user_.answer({toDisplay(title), toDisplay(prompt), buttons});
}

std::int32_t Messages::MsgBoxFromId(std::int32_t id, std::int32_t buttons, const Value& title,
                                    const Value& context) {
  return MsgBox(Translate(messageText(id)), buttons, title, context);
}

}  // namespace kebu::workbench
