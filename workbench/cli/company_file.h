#pragma once

#include <memory>
#include <string>

#include "workbench/engine/execution/database.h"

namespace kebu::workbench {

/// Opens an existing database file. CommandError when it cannot be used.
std::shared_ptr<engine::Database> openCompany(const std::string& path);
/// Creates a database file with the demo company. On failure CommandError, and no file is left.
void createCompanyFile(const std::string& path);

}  // namespace kebu::workbench
