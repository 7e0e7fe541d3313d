#pragma once

#include <cstdint>
#include <string>

#include "common/error.h"

namespace kebu::engine {

/// Hears of every statement that is handed to ADO, once and in order. An `edit`
/// is one that ADO makes by itself from a recordset's changed row.
class StatementObserver {
 public:
  virtual ~StatementObserver() = default;
  /// Whether it wants to hear of the next statement.
  virtual bool isListening() const { return true; }
  /// May throw a RuntimeError: the statement then is not run and fails with it.
  virtual void before(const std::string& text, bool edit) = 0;
  /// `error`: with which it failed, or null.
  virtual void after(const std::string& text, bool edit, std::int64_t rows,
                     const RuntimeError* error) = 0;
};

}  // namespace kebu::engine
