#pragma once

#include <cstdint>
#include <string>

#include "common/error.h"

namespace kebu::workbench {

/// Is told of every statement that is handed to ADO, once and in order. An `edit` is a
/// statement that ADO makes of a recordset's changed row.
class StatementObserver {
 public:
  virtual ~StatementObserver() = default;
  /// False to skip the next statement.
  virtual bool isListening() const { return true; }
  /// A RuntimeError that it throws makes the statement fail without being run.
  virtual void before(const std::string& text, bool edit) = 0;
  /// `error`: with which it failed, or null.
  virtual void after(const std::string& text, bool edit, std::int64_t rows,
                     const RuntimeError* error) = 0;
};

}  // namespace kebu::workbench
