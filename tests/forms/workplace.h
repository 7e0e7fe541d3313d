#pragma once

#include <functional>
#include <memory>
#include <sstream>
#include <string>
#include <vector>

#include "controls/query_editor.h"
#include "forms/runtime.h"
#include "workbench/ado/ado_objects.h"
#include "workbench/engine/execution/session.h"
#include "workbench/host/local_platform.h"
#include "workbench/host/stand_in_host.h"
#include "workbench/player/model_desktop.h"
#include "workbench/player/model_hands.h"

namespace kebu::workbench {

/// Somebody who works in the window on the demo company, and is never to be
/// disturbed by a message box.
class Workplace {
 public:
  Workplace();

  void open() { host_.open(); }
  void close();
  ModelHands& hands() { return hands_; }
  controls::QueryEditor& editor(const std::string& name);
  engine::Session& session() { return session_; }
  /// The first column of a statement, run on a connection of its own.
  std::vector<std::string> column(const std::string& statement);
  std::string value(const std::string& statement);

  forms::Runtime runtime() { return {platform_, library_, desktop_}; }
  const Ref<host::Cinterface>& plugin() const { return host_.plugin(); }
  Ref<ado::Connection> newConnection() { return workbench::newConnection(database_, nullptr); }
  const ModelDesktop& desktop() const { return desktop_; }

  /// What is done in a modal window.
  std::function<void(controls::Form&)> inModalWindow;
  /// What message boxes said, and the system's debug output.
  std::ostringstream trace;
  std::vector<std::string> messages;

 private:
  class Person : public User {
   public:
    explicit Person(Workplace& workplace) : workplace_(workplace) {}
    std::int32_t answer(const ShownMessage& box) override;
    void chooseFrom(ShownList&) override {}
    void workIn(controls::Form& form) override { workplace_.inModalWindow(form); }

   private:
    Workplace& workplace_;
  };

  Person person_;
  LocalPlatform platform_;
  ModelDesktop desktop_;
  ModelHands hands_;
  AdoLibrary library_;
  std::shared_ptr<engine::Database> database_;
  engine::Session session_;
  StandInHost host_;
};

}  // namespace kebu::workbench
