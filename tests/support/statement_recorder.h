#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "workbench/ado/statement_observer.h"

namespace kebu::tests {

using Statements = std::vector<std::string>;

/// Keeps the statements that the plug-in runs, in order.
class StatementRecorder : public workbench::StatementObserver {
 public:
  enum class Kinds { All, WithoutEdits };
  /// `WithoutEdits` leaves out what ADO makes of a recordset's changed rows.
  explicit StatementRecorder(Kinds kinds = Kinds::All) : kinds_(kinds) {}

  /// While it does not listen, nothing is kept and statements run at full speed.
  void setListening(bool listening) { listening_ = listening; }
  bool isListening() const override { return listening_; }
  void before(const std::string& text, bool edit) override {
    if (!edit || kinds_ == Kinds::All) statements_.push_back(text);
  }
  void after(const std::string&, bool, std::int64_t, const RuntimeError*) override {}

  const Statements& statements() const { return statements_; }
  std::size_t countBeginningWith(const std::string& beginning) const;
  void clear() { statements_.clear(); }

 private:
  Kinds kinds_;
  bool listening_ = true;
  Statements statements_;
};

// A working table is called by a prefix, such as ##tempPrezzo, and 32 hexadecimal digits that are
// others in every window.

/// The name with that prefix which was mentioned last; std::logic_error without one.
std::string lastWorkingTable(const Statements& statements, const std::string& prefix);
/// The text with the working tables' digits removed, so that two runs can be compared.
std::string withoutWorkingTableDigits(std::string text);

}  // namespace kebu::tests
