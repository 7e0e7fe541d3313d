#pragma once

#include <atomic>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "windows/support/windows_api.h"
#include "workbench/ado/ado_objects.h"
#include "workbench/company/company.h"
#include "workbench/host/stand_in_host.h"
#include "workbench/windows/class_objects.h"
#include "workbench/windows/plugin_library.h"

namespace kebu::tests {

/// The plug-in's window; null while none is shown.
HWND shownForm();
/// Dispatches the messages that are waiting.
void pumpWaiting();

/// Clicks the side bar's link to a page.
void openPage(HWND form, const std::string& view);
/// Presses the keys that choose a row, from 0, of a combo box of the plug-in's window.
void chooseRow(const std::string& combo, int row);
/// Types a text into an edit box of the plug-in's window and leaves the box.
void typeInto(const std::string& box, const std::wstring& text);
/// A window as a host has them: a top-level one, or one inside another.
HWND newHostWindow(HWND parent = nullptr);
/// Runs `action` when the next message loop of this thread has waited for a moment, such as that of
/// a modal window.
void soon(std::function<void()> action);
/// Has every statement on the working table of the rules on price last until the window has
/// answered a message.
class SlowRules : public workbench::StatementObserver {
 public:
  std::atomic<HWND> window = nullptr;
  std::atomic<int> answered = 0;    ///< the statements meanwhile which it did
  std::atomic<int> unanswered = 0;  ///< and did not

  void before(const std::string& text, bool edit) override;
  void after(const std::string& /*text*/, bool /*edit*/, std::int64_t /*rows*/,
             const RuntimeError* /*error*/) override {}
};

/// Presses the default button of every message box and prints the box, unless a test decides.
class DefaultUser : public workbench::User {
 public:
  /// The texts of the boxes.
  std::vector<std::string> boxes;
  std::function<std::int32_t(const workbench::ShownMessage& box)> answerTo;

  std::int32_t answer(const workbench::ShownMessage& box) override;
  void chooseFrom(workbench::ShownList& /*list*/) override {}
  void workIn(controls::Form& /*form*/) override {}
};

/// The stand-in host on a demo company of its own, with the DLL as its plug-in. The observer, which
/// may be null, sees the plug-in's statements.
class DllHost {
 public:
  explicit DllHost(const workbench::PluginLibrary& library,
                   workbench::StatementObserver* observer = nullptr);

  workbench::StandInHost* operator->() { return &stand_; }
  void set(const char* property, const std::string& value);
  /// The plug-in's windows are to belong to a window of the host's.
  void setParent(HWND window);
  const std::shared_ptr<engine::Database>& database() const { return database_; }
  const std::vector<std::string>& boxes() const { return user_.boxes; }
  DefaultUser& user() { return user_; }

  /// What the plug-in called of the host's object models.
  std::vector<std::string> journal;

 private:
  DefaultUser user_;
  std::shared_ptr<engine::Database> database_ = workbench::demoCompany();
  workbench::CompanyDatabase company_;
  workbench::AdoLibrary objects_;
  workbench::ClassObjects classes_;
  workbench::StandInHost stand_;
};

}  // namespace kebu::tests
