#pragma once

#include <cstdint>
#include <string>

#include "common/ref.h"
#include "common/value.h"
#include "host/named_object.h"

namespace kebu::host {

/// The members of the plug-in's window that the host and its users' scripts may call, but for those
/// that need no window (NVL, CDecN and RTrimN of common/nulls.h). No member raises an error.
class WindowMembers {
 public:
  virtual ~WindowMembers() = default;

  /// Reports an error of the caller's procedure, of which nothing but the procedure is known;
  /// the user's answer.
  virtual std::int16_t VisualizzaErrore(const std::string& procedure) = 0;
  /// Puts the controls that depend on a frame of the window back into the browse state; another
  /// frame is ignored.
  virtual void ChangeStatus(const Ref<NamedObject>& frame) = 0;
  virtual std::string TranslateString(const std::string& text) = 0;
  /// `buttons` and the answer use the message-box codes.
  virtual std::int32_t VLTMsgBox(const Value& prompt, std::int32_t buttons, const Value& title,
                                 const Value& context) = 0;
  /// The same with a message of the host's store, by its number.
  virtual std::int32_t VLTMsgBoxFromId(std::int32_t id, std::int32_t buttons, const Value& title,
                                       const Value& context) = 0;
};

}  // namespace kebu::host
