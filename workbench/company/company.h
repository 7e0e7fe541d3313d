#pragma once

namespace kebu::engine {
class Session;
}

namespace kebu::workbench {

/// The ERP's tables, views, functions and procedures with their catalogue rows: an
/// installation without companies.
void createSchema(engine::Session& session);

/// Two companies over an existing schema: 1 with a profile and data of every kind,
/// 2 with master data only. The same rows at every load.
void loadDemo(engine::Session& session);

}  // namespace kebu::workbench
