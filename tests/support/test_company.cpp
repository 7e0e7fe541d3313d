#include "tests/support/test_company.h"

#include <stdexcept>
#include <utility>

#include "common/convert.h"

namespace kebu::tests {

namespace {

std::string textOf(const Value& value) {
  if (value.isNull()) return "NULL";
  return value.isNumber() ? toSqlNumber(value) : toText(value);
}

}  // namespace

TestCompany::TestCompany(std::shared_ptr<engine::Database> database)
    : database_(std::move(database)), session_(database_) {}

TestCompany TestCompany::withSchemaOnly() {
  auto database = engine::Database::createInMemory();
  engine::Session session(database);
  workbench::createSchema(session);
  return TestCompany(database);
}

std::vector<std::vector<std::string>> TestCompany::rows(const std::string& batch) {
  const std::vector<engine::ResultSet> results = session_.execute(batch);
  if (results.empty()) throw std::logic_error("no result: " + batch);
  std::vector<std::vector<std::string>> rows;
  for (const std::vector<Value>& row : results.back().rows) {
    std::vector<std::string>& texts = rows.emplace_back();
    for (const Value& value : row) texts.push_back(textOf(value));
  }
  return rows;
}

std::vector<std::string> TestCompany::column(const std::string& batch) {
  std::vector<std::string> column;
  for (const std::vector<std::string>& row : rows(batch)) column.push_back(row.at(0));
  return column;
}

std::string TestCompany::value(const std::string& batch) {
  const std::vector<std::vector<std::string>> found = rows(batch);
  if (found.size() != 1) {
    throw std::logic_error(std::to_string(found.size()) + " rows instead of one: " + batch);
  }
  return found.front().at(0);
}

int TestCompany::count(const std::string& batch) {
  return std::stoi(value(batch));
}

void TestCompany::execute(const std::string& batch) {
  session_.execute(batch);
}

}  // namespace kebu::tests
