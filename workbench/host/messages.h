#pragma once

#include "host/services.h"
#include "workbench/host/translations.h"
#include "workbench/host/user.h"

namespace kebu::workbench {

/// The host's translation and message boxes, with its store of numbered messages.
class Messages : public host::MessageService {
 public:
  Messages(User& user, Translations translations)
      : user_(user), translations_(std::move(translations)) {}

  std::string Translate(const std::string& text) override;
  std::int32_t MsgBox(const Value& prompt, std::int32_t buttons, const Value& title,
                      const Value& context) override;
  std::int32_t MsgBoxFromId(std::int32_t id, std::int32_t buttons, const Value& title,
                            const Value& context) override;

 private:
  User& user_;
  Translations translations_;
};

}  // namespace kebu::workbench
