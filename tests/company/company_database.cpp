#include "tests/company/company_database.h"

#include <stdexcept>

#include "common/convert.h"
#include "workbench/company/company.h"

namespace kebu::workbench {

namespace {

std::string textOf(const Value& value) {
  if (value.isNull()) return "NULL";
  return value.isNumber() ? toSqlNumber(value) : toText(value);
}

}  // namespace

CompanyDatabase::CompanyDatabase(Content content) : session_(engine::Database::createInMemory()) {
  createSchema(session_);
  if (content == Content::Demo) loadDemo(session_);
}

std::vector<std::vector<std::string>> CompanyDatabase::rows(const std::string& batch) {
  const std::vector<engine::ResultSet> results = session_.execute(batch);
  if (results.empty()) throw std::logic_error("no result: " + batch);
  std::vector<std::vector<std::string>> rows;
  for (const std::vector<Value>& row : results.back().rows) {
    std::vector<std::string>& texts = rows.emplace_back();
    for (const Value& value : row) texts.push_back(textOf(value));
  }
  return rows;
}

std::vector<std::string> CompanyDatabase::column(const std::string& batch) {
  std::vector<std::string> column;
  for (const std::vector<std::string>& row : rows(batch)) column.push_back(row.at(0));
  return column;
}

std::string CompanyDatabase::value(const std::string& batch) {
  const std::vector<std::vector<std::string>> found = rows(batch);
  if (found.size() != 1) {
    throw std::logic_error(std::to_string(found.size()) + " rows instead of one: " + batch);
  }
  return found.front().at(0);
}

int CompanyDatabase::count(const std::string& batch) {
  return std::stoi(value(batch));
}

void CompanyDatabase::execute(const std::string& batch) {
  session_.execute(batch);
}

}  // namespace kebu::workbench
