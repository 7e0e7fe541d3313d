#include "workbench/windows/remote_database.h"

#include <optional>
#include <utility>

#include "common/convert.h"
#include "windows/ado/ado_constants.h"
#include "windows/ado/ado_objects.h"
#include "windows/support/identity.h"
#include "workbench/ado/ado_objects.h"
#include "workbench/cli/command_line.h"
#include "workbench/cli/company_file.h"
#include "workbench/windows/class_objects.h"

namespace kebu::workbench {

namespace {

/// The value of "name=value" in a connection string; nothing when it is not there.
std::optional<std::string> partOf(const std::string& connectionString, std::string_view name) {
  std::size_t at = 0;
  while (at < connectionString.size()) {
    const std::size_t end = std::min(connectionString.find(';', at), connectionString.size());
    const std::string part = connectionString.substr(at, end - at);
    const std::size_t equals = part.find('=');
    if (equals != std::string::npos && equalsIgnoringCase(trim(part.substr(0, equals)), name)) {
      return std::string(trim(part.substr(equals + 1)));
    }
    at = end + 1;
  }
  return std::nullopt;
}

std::shared_ptr<engine::Database> engineOf(const std::string& connectionString) {
  const auto file = partOf(connectionString, "Data Source");
  return file ? openCompany(*file) : engine::Database::createInMemory();
}

engine::ResultSet rowsOf(const Ref<ado::Recordset>& recordset) {
  engine::ResultSet result;
  for (const ado::Field& field : recordset->fields()) {
    result.columns.push_back({field.name, {}, {}});
  }
  // By position, since columns of a query may share a name.
  if (recordset->EOF_()) return result;
  for (const RowValues& row : recordset->GetRows(-1)) {
    result.rows.emplace_back(row.begin(), row.end());
  }
  return result;
}

/// What a version is called, or that it cannot be told.
template <class Read>
std::string versionLine(const std::string& what, Read&& read) {
  std::string version;
  try {
    version = read();
  } catch (const RuntimeError& error) {
    version = "not told (" + error.description() + ")";
  }
  return what + ": " + version.substr(0, version.find_first_of("\r\n"));
}

}  // namespace

/// The workbench's engine behind ADO's class identifiers.
class RemoteDatabase::Engine {
 public:
  explicit Engine(const std::string& connectionString)
      : database_(engineOf(connectionString)),
        classes_(library_, [database = database_] { return newConnection(database, nullptr); }) {}

 private:
  std::shared_ptr<engine::Database> database_;
  AdoLibrary library_;
  ClassObjects classes_;
};

RemoteDatabase::RemoteDatabase(std::string connectionString)
    : connectionString_(std::move(connectionString)) {
  if (equalsIgnoringCase(partOf(connectionString_, "Provider").value_or(""), "Workbench")) {
    engine_ = std::make_unique<Engine>(connectionString_);
  }
  try {
    reopen();
  } catch (const RuntimeError& error) {
    throw CommandError("the database cannot be reached: " + error.description() +
                       " (are ADO and the connection string's provider installed?)");
  }
}

RemoteDatabase::~RemoteDatabase() = default;

void RemoteDatabase::reopen() {
  if (connection_) connection_->Close();
  connection_ = windows::AdoLibrary().newConnection();
  connection_->setConnectionString(connectionString_);
  connection_->Open();
}

CompanyDatabase RemoteDatabase::company() const {
  const auto connect = [text = connectionString_] {
    const Ref<ado::Connection> connection = windows::AdoLibrary().newConnection();
    connection->setConnectionString(text);
    return connection;
  };
  return {connectionString_, connect, connect};
}

windows::Dispatch RemoteDatabase::connection() const {
  return windows::Dispatch(windows::unwrap(connection_));
}

std::vector<engine::ResultSet> RemoteDatabase::run(const std::string& batch) const {
  std::vector<engine::ResultSet> results;
  windows::Dispatch recordset = connection().get(
      L"Execute", {batch, windows::Variant::missing(), std::int32_t{windows::commandIsText}});
  while (recordset) {
    if (windows::isStateOpen(recordset)) {
      results.push_back(rowsOf(windows::wrapRecordset(recordset.object().get())));
    }
    recordset = recordset.get(L"NextRecordset");
  }
  return results;
}

SqlOutcome RemoteDatabase::outcomeOf(const std::string& batch) const {
  SqlOutcome outcome;
  try {
    outcome.results = run(batch);
  } catch (const RuntimeError& error) {
    const ado::Errors errors = connection_->errors();
    outcome.errorNumber = errors.empty() ? error.number() : errors.front().nativeError;
    outcome.errorText = error.description();
  }
  return outcome;
}

std::vector<std::string> RemoteDatabase::versions() const {
  const windows::Dispatch own = connection();
  return {
      versionLine("ADO", [&] { return own.text(L"Version"); }),
      versionLine("Provider", [&] { return own.text(L"Provider"); }),
      versionLine(
          "Provider's version",
          [&] { return own.get(L"Properties").get(L"Item", {"Provider Version"}).text(L"Value"); }),
      versionLine("Server", [&] { return toText(run("SELECT @@VERSION").at(0).rows.at(0).at(0)); }),
  };
}

}  // namespace kebu::workbench
