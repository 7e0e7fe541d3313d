#include "workbench/cli/company_file.h"

#include <filesystem>

#include "common/error.h"
#include "workbench/cli/command_line.h"
#include "workbench/company/company.h"
#include "workbench/engine/execution/session.h"

namespace kebu::workbench {

namespace {

namespace fs = std::filesystem;

/// Removes a file, and what the database keeps beside it, unless keep() is called.
class UnfinishedFile {
 public:
  explicit UnfinishedFile(std::string path) : path_(std::move(path)) {}
  UnfinishedFile(const UnfinishedFile&) = delete;
  UnfinishedFile& operator=(const UnfinishedFile&) = delete;
  ~UnfinishedFile() {
    if (kept_) return;
    for (const char* suffix : {"", "-journal", "-wal", "-shm"}) {
      std::error_code ignored;
      fs::remove(path_ + suffix, ignored);
    }
  }
  void keep() { kept_ = true; }

 private:
  std::string path_;
  bool kept_ = false;
};

}  // namespace

std::shared_ptr<engine::Database> openCompany(const std::string& path) {
  if (!fs::exists(path)) throw CommandError("there is no database file " + path);
  if (!fs::is_regular_file(path)) throw CommandError(path + " is not a database file");
  try {
    return engine::Database::openFile(path);
  } catch (const RuntimeError& error) {
    throw CommandError(path + " cannot be opened: " + error.description());
  }
}

void createCompanyFile(const std::string& path) {
  if (fs::exists(path)) throw CommandError(path + " exists already");
  const fs::path folder = fs::path(path).parent_path();
  if (!folder.empty() && !fs::is_directory(folder)) {
    throw CommandError("there is no folder " + folder.string());
  }
  UnfinishedFile file(path);
  try {
    engine::Session session(engine::Database::createFile(path));
    createSchema(session);
    loadDemo(session);
  } catch (const RuntimeError& error) {
    throw CommandError(path + " cannot be made: " + error.description());
  }
  file.keep();
}

}  // namespace kebu::workbench
