#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <ostream>
#include <string>

#include "common/date.h"
#include "forms/runtime.h"
#include "workbench/ado/ado_objects.h"
#include "workbench/ado/statement_observer.h"
#include "workbench/engine/execution/database.h"
#include "workbench/engine/execution/session.h"
#include "workbench/host/local_platform.h"
#include "workbench/host/stand_in_host.h"
#include "workbench/host/translations.h"
#include "workbench/host/user.h"
#include "workbench/player/model_desktop.h"
#include "workbench/player/model_hands.h"
#include "workbench/player/player.h"

namespace kebu::workbench {

/// Everything around a plug-in that runs on its models, without a screen: the
/// stand-in host, the desktop that windows are shown on, and the hands that act
/// in them. The plug-in is created by `host().open()`.
class ModelWorkplace {
 public:
  using PluginFactory = std::function<Ref<host::Cinterface>(const forms::Runtime& runtime)>;

  struct Setup {
    /// Message boxes, lists and modal windows turn to them. Outlives the workplace.
    User& user;
    std::shared_ptr<engine::Database> database;
    /// Sees every statement that the plug-in runs. May be null; outlives the workplace.
    StatementObserver* observer = nullptr;
    Manners manners = {};
    std::int32_t company = 1;
    Translations translations = {};
    /// Takes the plug-in's trace lines. May be null; outlives the workplace.
    std::ostream* trace = nullptr;
    /// Told of what the plug-in registers with the host's object models.
    std::function<void(const std::string& entry)> journal = [](const std::string&) {};
    /// The time of day; without one the system's.
    std::function<Date()> clock = nullptr;
    /// Without one, the plug-in of this project.
    PluginFactory createPlugin = nullptr;
  };
  explicit ModelWorkplace(const Setup& setup);

  StandInHost& host() { return host_; }
  ModelHands& hands() { return hands_; }
  const ModelDesktop& desktop() const { return desktop_; }
  /// For statements that are not the plug-in's.
  engine::Session& session() { return session_; }
  const std::shared_ptr<engine::Database>& database() const { return database_; }
  /// What a player needs to play a scenario here.
  Stage stage(StatementFaults& faults) {
    return {host_, hands_, [this](const std::string& batch) { return session_.execute(batch); },
            faults};
  }
  /// What the plug-in runs on.
  forms::Runtime runtime() { return {platform_, library_, desktop_}; }

 private:
  std::ostream nowhere_{nullptr};
  LocalPlatform platform_;
  ModelDesktop desktop_;
  ModelHands hands_;
  AdoLibrary library_;
  std::shared_ptr<engine::Database> database_;
  engine::Session session_;
  // Last, so that the plug-in is released before anything that it still uses.
  StandInHost host_;
};

}  // namespace kebu::workbench
