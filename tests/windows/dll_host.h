#pragma once

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
/// Lets the windows do what waits for them.
void pumpWaiting();

/// A click on the link of a page.
void openPage(HWND form, const std::string& view);
/// The longest time in milliseconds for which a window gives no answer to another
/// thread while this one does something.
ULONGLONG longestSilence(HWND window, const std::function<void()>& deed);

/// Takes the usual button of every box, and prints the box.
class QuietUser : public workbench::User {
 public:
  std::int32_t answer(const workbench::ShownMessage& box) override;
  void chooseFrom(workbench::ShownList& /*list*/) override {}
  void workIn(controls::Form& /*form*/) override {}
};

/// The stand-in host on a demo company of its own, with a DLL for plug-in; the
/// observer, which may be null, sees the plug-in's statements.
class DllHost {
 public:
  explicit DllHost(const workbench::PluginLibrary& library,
                   workbench::StatementObserver* observer = nullptr);

  workbench::StandInHost* operator->() { return &stand_; }
  void set(const char* property, const std::string& value);
  const std::shared_ptr<engine::Database>& database() const { return database_; }

  /// What the plug-in did with the host's object models.
  std::vector<std::string> journal;

 private:
  QuietUser user_;
  std::shared_ptr<engine::Database> database_ = workbench::demoCompany();
  workbench::CompanyDatabase company_;
  workbench::AdoLibrary objects_;
  workbench::ClassObjects classes_;
  workbench::StandInHost stand_;
};

}  // namespace kebu::tests
