#pragma once

#include <string>
#include <vector>

#include "workbench/engine/execution/database.h"
#include "workbench/engine/execution/session.h"

namespace kebu::workbench {

/// A company database in memory, asked in T-SQL and answering in text: NULL as "NULL".
class CompanyDatabase {
 public:
  enum class Content { Schema, Demo };
  explicit CompanyDatabase(Content content);

  /// The rows of the batch's last result.
  std::vector<std::vector<std::string>> rows(const std::string& batch);
  /// The first column of `rows`.
  std::vector<std::string> column(const std::string& batch);
  /// The one value of the one row.
  std::string value(const std::string& batch);
  /// The one value as a number.
  int count(const std::string& batch);
  void execute(const std::string& batch);

 private:
  engine::Session session_;
};

}  // namespace kebu::workbench
