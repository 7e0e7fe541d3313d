#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "ado/library.h"
#include "common/convert.h"
#include "common/nulls.h"
#include "controls/notice_list.h"
#include "controls/record_frame.h"
#include "forms/painted_meanwhile.h"
#include "forms/runtime.h"
#include "forms/services.h"
#include "host/services.h"
#include "sql/keys.h"

namespace kebu::forms {

/// The host's service objects, which the window creates at its first activation. Assigning an empty
/// struct releases them all.
struct HostServices {
  Ref<host::SqlDecodeService> decodes = {};
  Ref<host::LookupService> lookups = {};
  Ref<host::SavedFilterService> savedFilters = {};
  Ref<host::EnvironmentService> environment = {};
  Ref<host::LayoutModel> layoutModel = {};
  Ref<host::ScriptModel> scriptModel = {};
  Ref<host::ConnectionProvider> connectionProvider = {};
};

/// What the pages of the window share. The window fills it at its first activation.
class PageContext {
 public:
  PageContext(const Runtime& runtime, Services& windowServices, controls::RecordFrame& profileFrame)
      : services(windowServices), profile(profileFrame), runtime_(runtime) {}

  Services& services;
  controls::RecordFrame& profile;
  /// What the user should know while it is so; texts are translated by whoever shows them.
  controls::NoticeList notices{"NOTICES"};

  Ref<ado::Connection> connection;
  /// The ERP company, from the host.
  Value company;
  HostServices hostServices;
  /// False until the window's first activation is done.
  bool loaded = false;

  /// The company as statements take it.
  sql::Company companyKey() const { return {toSqlNumber(company)}; }
  /// The current profile as statements take it; "0" without a profile.
  sql::ProfileId profileKey() const { return {toSqlNumber(profileId())}; }
  Value profileId() const { return CDecN(profile.field("GM03_IDDISPOSITIVO")); }

  const Runtime& runtime() const { return runtime_; }
  controls::Desktop& desktop() const { return runtime_.desktop; }
  Ref<ado::Recordset> newRecordset() const { return runtime_.ado.newRecordset(); }
  /// Its calls have no time limit, like the window's statements.
  Ref<ado::Command> newCommand() const;
  /// A client recordset on the window's connection that can be edited row by row.
  Ref<ado::Recordset> openEditable(const std::string& statement) const;
  /// The same on a working table, which has no key: a changed row is found by all its columns.
  Ref<ado::Recordset> openWorkingTable(const std::string& statement,
                                       ado::CursorType cursor = ado::CursorType::Static) const;
  /// A client recordset on the window's connection whose rows are only looked at.
  Ref<ado::Recordset> openReadable(const std::string& statement) const;
  /// The window is painted during statements as long as the result exists.
  PaintedMeanwhile paintedMeanwhile() const { return {connection, runtime_.desktop}; }
  /// The time and the day by the user's clock.
  Date now() const { return runtime_.platform.now(); }
  Date today() const { return now().withoutTime(); }
  /// The first row's value of `column`, through NVL and RTrimN; "" without a row.
  std::string lookUpText(const std::string& statement, std::string_view column) const;
  /// Lets the user choose from a list that opens on the current code; the code chosen, or nothing.
  std::optional<Value> choose(const host::LookupDefinition& definition,
                              const std::string& current) const;

  std::string translate(const std::string& text) const { return services.TranslateString(text); }

 private:
  struct Opening {
    ado::CursorType cursor = ado::CursorType::Static;
    ado::LockType lock = ado::LockType::Optimistic;
    std::optional<ado::UpdateCriteria> criteria = {};  ///< ADO's own unless given
  };
  Ref<ado::Recordset> open(const std::string& statement, const Opening& opening) const;

  Runtime runtime_;
};

}  // namespace kebu::forms
