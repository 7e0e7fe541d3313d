#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "plugin/clskb_anagkelmoria.h"
#include "tests/support/statement_recorder.h"
#include "tests/support/test_user.h"
#include "workbench/ado/ado_objects.h"
#include "workbench/company/company.h"
#include "workbench/host/global_services.h"
#include "workbench/player/model_desktop.h"

namespace kebu::plugin {

using workbench::ShownMessage;

class RecordingPlatform : public Platform {
 public:
  std::optional<Guid> createGuid() override {
    ++guid_.data1;
    return guidsWork ? std::optional(guid_) : std::nullopt;
  }
  void outputDebugString(const std::string& text) override {
    if (!traceWorks) throw RuntimeError::invalidCall();
    trace.push_back(text);
  }
  std::int32_t messageBox(const std::string& prompt, std::int32_t style,
                          const std::string& title) override {
    boxes.push_back({title, prompt, style});
    return msgbox::ok;
  }
  Date now() override { return clock; }
  bool fitsCodePage(const std::string& /*text*/) override { return true; }
  std::string setting(const std::string& name) override { return settings_[name]; }
  void keepSetting(const std::string& name, const std::string& value) override {
    settings_[name] = value;
  }

  bool guidsWork = true;
  bool traceWorks = true;
  Date clock;
  std::vector<std::string> trace;
  std::vector<ShownMessage> boxes;

 private:
  std::map<std::string, std::string> settings_;
  Guid guid_;
};

class PluginTest : public testing::Test {
 protected:
  Ref<CLSKB_ANAGKELMORIA> create() {
    return CLSKB_ANAGKELMORIA::create({platform, library, desktop});
  }
  workbench::HostSurroundings surroundings() {
    return {user, workbench::embeddedCompany(database, &statements), 1, translations,
            [this](const std::string& line) { journal.push_back(line); }};
  }
  Ref<host::ClsGlobal> services() { return makeRef<workbench::GlobalServices>(surroundings()); }
  /// A control of a window, or of the one in front.
  template <class Kind>
  static Kind& in(controls::Form& form, std::string_view name) {
    return dynamic_cast<Kind&>(*form.find(name));
  }
  template <class Kind>
  Kind& control(std::string_view name) {
    return in<Kind>(*desktop.front(), name);
  }

  tests::TestUser user;
  RecordingPlatform platform;
  workbench::ModelDesktop desktop{user};
  workbench::AdoLibrary library;
  std::shared_ptr<engine::Database> database = workbench::demoCompany();
  tests::StatementRecorder statements;
  workbench::Translations translations;
  std::vector<std::string> journal;
};

}  // namespace kebu::plugin
