#pragma once

#include <cstdint>
#include <exception>
#include <string>
#include <utility>

namespace kebu {

/// A run-time error: number, description and source, which the host's log
/// records. `source` names the program or, for a database error, the provider.
class RuntimeError : public std::exception {
 public:
  RuntimeError(std::int32_t number, std::string description,
               std::string source = "KEBU_ANAGKELMORIA")
      : number_(number), description_(std::move(description)), source_(std::move(source)) {}

  std::int32_t number() const { return number_; }
  const std::string& description() const { return description_; }
  const std::string& source() const { return source_; }
  /// Whether a value was of the wrong kind or size, as a mistyped one is.
  bool isValueError() const { return number_ == 13 || number_ == 6 || number_ == tooLong; }
  /// Whether a changed row was not found: somebody else deleted it or changed one of the
  /// changed fields since it was read.
  bool isConflict() const { return number_ == -2147217864; }
  /// Whether the user interrupted the statement.
  bool isCancelled() const { return number_ == operationCancelled; }
  const char* what() const noexcept override { return description_.c_str(); }

  static RuntimeError invalidCall() { return {5, "Invalid procedure call or argument"}; }
  /// A number too large for its type.
  static RuntimeError overflow() { return {6, "Overflow"}; }
  static RuntimeError outOfMemory() { return {7, "Out of memory"}; }
  static RuntimeError divisionByZero() { return {11, "Division by zero"}; }
  /// A text where a number or date belongs.
  static RuntimeError typeMismatch() { return {13, "Type mismatch"}; }
  /// ADO's error for more characters than a field holds.
  static RuntimeError textTooLong() {
    return {tooLong, "Multiple-step operation generated errors. Check each status value.", "ADODB"};
  }
  /// ADO's error for a statement that was cancelled.
  static RuntimeError cancelled() {
    return {operationCancelled, "Operation has been canceled by the user.", "ADODB"};
  }
  static RuntimeError internalError(const std::string& detail = {}) {
    return {51, detail.empty() ? "Internal error" : "Internal error: " + detail};
  }
  /// An absent object was used.
  static RuntimeError objectNotSet() {
    return {91, "Object variable or With block variable not set"};
  }
  /// A database null where a value belongs.
  static RuntimeError invalidNull() { return {94, "Invalid use of Null"}; }

  /// The exception being handled, whatever its type; only inside a catch.
  static RuntimeError current();

 private:
  static constexpr std::int32_t tooLong = -2147217887;
  static constexpr std::int32_t operationCancelled = 3712;

  std::int32_t number_;
  std::string description_;
  std::string source_;
};

}  // namespace kebu
