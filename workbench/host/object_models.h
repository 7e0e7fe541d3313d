#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <utility>

#include "host/services.h"

namespace kebu::workbench {

/// Called with a text for each registered object.
using RegistrationListener = std::function<void(const std::string&)>;

/// An object model of the host's in its role. It never replaces a registered object by another.
template <class Role>
class ObjectModel : public Role {
 public:
  /// `name`: by which the listener is told what was registered where.
  ObjectModel(std::string name, RegistrationListener listener)
      : name_(std::move(name)), listener_(std::move(listener)) {}

  void Initialize(const Ref<host::Cinterface>& /*host*/) override {}
  Ref<host::NamedObject> Register(const std::string& name, const Ref<host::NamedObject>& object,
                                  std::int32_t kind, const std::string& description) override {
    listener_(name_ + ": " + name + ", kind " + std::to_string(kind) + ", \"" + description + "\"");
    return object;
  }

 private:
  std::string name_;
  RegistrationListener listener_;
};

class LayoutModel : public ObjectModel<host::LayoutModel> {
 public:
  explicit LayoutModel(RegistrationListener listener)
      : ObjectModel("layout", std::move(listener)) {}
};

/// Runs the user's script for an event and returns whether the script refuses it.
using ScriptRunner = std::function<bool(const std::string& event)>;

class ScriptModel : public ObjectModel<host::ScriptModel> {
 public:
  ScriptModel(RegistrationListener listener, ScriptRunner runner)
      : ObjectModel("script", std::move(listener)), runner_(std::move(runner)) {}
  void RunEvent(const std::string& event, bool& cancel) override {
    if (runner_(event)) cancel = true;
  }

 private:
  ScriptRunner runner_;
};

}  // namespace kebu::workbench
