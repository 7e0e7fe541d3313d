#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "common/value.h"

namespace kebu::forms {

/// A column of a row. `value` is what is compared, `text` what people read.
struct ReadColumn {
  std::string caption;
  Value value;
  std::string text;
};
using ReadRow = std::vector<ReadColumn>;

enum class ChangeKind { Insert, Update, Delete };

/// A line of the list of changes.
struct PlannedChange {
  ChangeKind kind;
  std::string row;     ///< as people call it
  std::string column;  ///< its caption; "" for a new or deleted row of which no column is listed
  std::string before;
  std::string after;

  bool operator==(const PlannedChange&) const = default;
};

/// Whether two values are the same to who reads them: nothing is the same as blank text, but not
/// the same as 0. Trailing blanks do not count.
bool readsTheSame(const Value& a, const Value& b);

/// What a save would change: a line for every changed column of a row, and for every column of a
/// new or deleted row that holds something.
class PlannedChanges {
 public:
  /// Compares a row as it is stored with what would be stored; nothing stands for no row. Both have
  /// the same columns.
  void add(const std::string& row, const std::optional<ReadRow>& before,
           const std::optional<ReadRow>& after);
  /// Something that the user should know beside the list.
  void note(const std::string& text) { notes_.push_back(text); }

  const std::vector<PlannedChange>& lines() const { return lines_; }
  const std::vector<std::string>& notes() const { return notes_; }
  /// How many rows are inserted, changed or deleted.
  std::int32_t rowsWith(ChangeKind kind) const { return rows_[static_cast<std::size_t>(kind)]; }

 private:
  void addWhole(ChangeKind kind, const std::string& row, const ReadRow& content);
  void update(const std::string& row, const ReadRow& before, const ReadRow& after);
  void count(ChangeKind kind) { ++rows_[static_cast<std::size_t>(kind)]; }

  std::vector<PlannedChange> lines_;
  std::vector<std::string> notes_;
  std::int32_t rows_[3] = {};  ///< by kind
};

}  // namespace kebu::forms
