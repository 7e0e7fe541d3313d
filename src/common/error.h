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
  /// Whether a value was of the wrong kind or size, as a mistyped one is. For a
  /// text too long for its field ADO has a number of its own.
  bool isValueError() const {
    constexpr std::int32_t textTooLong = -2147217887;
    return number_ == 13 || number_ == 6 || number_ == textTooLong;
  }
  const char* what() const noexcept override { return description_.c_str(); }

  static RuntimeError invalidCall();     ///< 5: an argument that the callee cannot take
  static RuntimeError overflow();        ///< 6: a number too large for its type
  static RuntimeError outOfMemory();     ///< 7
  static RuntimeError divisionByZero();  ///< 11
  static RuntimeError typeMismatch();    ///< 13: a text where a number or date belongs
  static RuntimeError internalError(const std::string& detail = {});  ///< 51
  static RuntimeError objectNotSet();  ///< 91: an absent object was used
  static RuntimeError invalidNull();   ///< 94: a database null where a value belongs

  /// The exception being handled, whatever its type; only inside a catch.
  static RuntimeError current();

 private:
  std::int32_t number_;
  std::string description_;
  std::string source_;
};

}  // namespace kebu
