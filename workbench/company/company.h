#pragma once

#include <memory>

namespace kebu::engine {
class Database;
class Session;
}  // namespace kebu::engine

namespace kebu::workbench {

/// Creates the ERP's tables, views, functions and procedures, with the rows that every
/// installation has. There are no companies yet.
void createSchema(engine::Session& session);

/// Loads two companies: 1 with a profile and data of every kind, 2 with master data
/// only. The rows are the same at every load.
void loadDemo(engine::Session& session);

/// A new database in memory with schema and demo data.
std::shared_ptr<engine::Database> demoCompany();

}  // namespace kebu::workbench
