#pragma once

#include <memory>
#include <string>

#include "workbench/engine/execution/database.h"

namespace kebu::workbench {

/// A fresh database in memory with the demo company.
std::shared_ptr<engine::Database> demoCompany();
/// An existing database file, or a fresh demo company without a path. CommandError
/// when the file cannot be used.
std::shared_ptr<engine::Database> openCompany(const std::string& path);
/// Makes a database file with the demo company; when that fails no file is left.
void createCompanyFile(const std::string& path);

}  // namespace kebu::workbench
