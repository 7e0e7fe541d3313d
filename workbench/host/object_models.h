#pragma once

#include <functional>
#include <string>

#include "host/services.h"

namespace kebu::workbench {

/// Called with a text for each registered object.
using RegistrationListener = std::function<void(const std::string&)>;

/// The host's layout model. It never replaces a registered object by another.
class LayoutModel : public host::LayoutModel {
 public:
  explicit LayoutModel(RegistrationListener listener);
  void Initialize(const Ref<host::Cinterface>& /*host*/) override {}
  Ref<host::NamedObject> Register(const std::string& name, const Ref<host::NamedObject>& object,
                                  std::int32_t kind, const std::string& description) override;

 private:
  RegistrationListener listener_;
};

/// Runs the user's script for an event and returns whether the script refuses it.
using ScriptRunner = std::function<bool(const std::string& event)>;

/// The host's script model.
class ScriptModel : public host::ScriptModel {
 public:
  ScriptModel(RegistrationListener listener, ScriptRunner runner);
  void Initialize(const Ref<host::Cinterface>& /*host*/) override {}
  Ref<host::NamedObject> Register(const std::string& name, const Ref<host::NamedObject>& object,
                                  std::int32_t kind, const std::string& description) override;
  void RunEvent(const std::string& event, bool& cancel) override;

 private:
  RegistrationListener listener_;
  ScriptRunner runner_;
};

}  // namespace kebu::workbench
