#pragma once

#include <filesystem>
#include <set>
#include <string>
#include <vector>

namespace kebu::tests {

/// The shapes that the plug-in's statements have: their words without the values.
class StatementShapes {
 public:
  /// From the folder of pinned statement texts.
  explicit StatementShapes(const std::filesystem::path& texts);

  /// Whether the statement has one of the shapes: that of a pinned text, with the conditions of a
  /// filter where it takes one, or that of a changed row of a table whose
  /// rows ADO writes.
  bool know(const std::string& statement, bool edit) const;

 private:
  /// What stands before and after the filter of a statement.
  struct Around {
    std::string before;
    std::string after;
  };

  std::set<std::string> whole_;
  std::vector<Around> aroundFilters_;
  /// Of statements up to a text whose quotes are not doubled, on purpose: it may break them.
  std::vector<std::string> beforeTexts_;
};

/// The statement's words, in lower case, a blank between them: without comments, each value as ?,
/// a list of values as one, each working table as ##.
std::string shapeOf(const std::string& statement);

}  // namespace kebu::tests
