#pragma once

#include <memory>
#include <string>
#include <vector>

#include "workbench/company/company.h"
#include "workbench/engine/execution/database.h"
#include "workbench/engine/execution/session.h"

namespace kebu::tests {

/// A company database with a connection of the test's own. Queries give text: NULL as
/// "NULL", numbers without needless digits, dates under the locale.
class TestCompany {
 public:
  explicit TestCompany(std::shared_ptr<engine::Database> database = workbench::demoCompany());

  /// The tables without any rows but the catalogue's.
  static TestCompany withSchemaOnly();

  const std::shared_ptr<engine::Database>& database() const { return database_; }
  engine::Session& session() { return session_; }

  /// The rows of the batch's last result.
  std::vector<std::vector<std::string>> rows(const std::string& batch);
  /// The first column of `rows`.
  std::vector<std::string> column(const std::string& batch);
  /// The first column of the only row; std::logic_error for another number of rows.
  std::string value(const std::string& batch);
  /// The one value as a number.
  int count(const std::string& batch);
  void execute(const std::string& batch);

 private:
  std::shared_ptr<engine::Database> database_;
  engine::Session session_;
};

}  // namespace kebu::tests
