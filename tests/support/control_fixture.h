#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "common/convert.h"
#include "common/platform.h"
#include "controls/control_host.h"
#include "workbench/ado/ado_objects.h"
#include "workbench/engine/execution/database.h"
#include "workbench/engine/execution/session.h"

namespace kebu::controls {

/// A window that keeps errors and messages, and gives preset answers.
class RecordingHost : public ControlHost {
 public:
  std::int16_t VisualizzaErrore(const std::string& procedure, const RuntimeError& error) override {
    errors.push_back(procedure + ": " + error.description());
    return static_cast<std::int16_t>(errorAnswer);
  }
  std::int32_t message(const std::string& text, std::int32_t) override {
    messages.push_back(text);
    return answer;
  }

  std::vector<std::string> errors;
  std::vector<std::string> messages;
  ErrorAnswer errorAnswer = ErrorAnswer::Abort;
  std::int32_t answer = msgbox::ok;
};

/// Makes edits fail whose statement contains a text.
class EditFaults : public workbench::StatementObserver {
 public:
  void before(const std::string& text, bool edit) override {
    if (whileRunning) whileRunning();
    if (edit && !failing.empty() && text.find(failing) != std::string::npos) {
      throw RuntimeError(-2147217900, "made to fail");
    }
  }
  void after(const std::string&, bool, std::int64_t, const RuntimeError*) override {}
  std::string failing;
  std::function<void()> whileRunning;  ///< what happens during each statement
};

/// Controls over a small database.
class ControlTest : public testing::Test {
 protected:
  ControlTest() {
    connection = workbench::newConnection(database, &faults);
    connection->Open();
  }
  void run(const std::string& text) { engine::Session(database).execute(text); }
  Ref<ado::Recordset> open(const std::string& text,
                           ado::LockType lock = ado::LockType::Optimistic) {
    Ref<ado::Recordset> rows = library.newRecordset();
    rows->setCursorLocation(ado::CursorLocation::Client);
    rows->Open(text, connection, ado::CursorType::Static, lock);
    return rows;
  }
  /// The first value of a statement, as text.
  std::string first(const std::string& text) {
    return toDisplay(engine::Session(database).execute(text).front().rows.front().front());
  }

  std::shared_ptr<engine::Database> database = engine::Database::createInMemory();
  EditFaults faults;
  workbench::AdoLibrary library;
  Ref<ado::Connection> connection;
  RecordingHost host;
};

}  // namespace kebu::controls
