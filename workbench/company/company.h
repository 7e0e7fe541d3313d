#pragma once

#include <memory>

namespace kebu::engine {
class Database;
class Session;
}  // namespace kebu::engine

namespace kebu::workbench {

/// The ERP's tables, views, functions and procedures with their catalogue rows: an
/// installation without companies.
void createSchema(engine::Session& session);

/// Two companies over an existing schema: 1 with a profile and data of every kind,
/// 2 with master data only. The same rows at every load.
void loadDemo(engine::Session& session);

/// A new database in memory with schema and demo data.
std::shared_ptr<engine::Database> demoCompany();

}  // namespace kebu::workbench
