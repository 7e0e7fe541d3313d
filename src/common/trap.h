#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>

#include "common/error.h"

namespace kebu {

/// Shows the user an error and asks how to go on.
class ErrorReporter {
 public:
  virtual ~ErrorReporter() = default;
  /// Shows the error of the procedure and gives the user's answer.
  virtual std::int16_t VisualizzaErrore(const std::string& procedure,
                                        const RuntimeError& error) = 0;
};

enum class ErrorAnswer : std::int16_t { Abort = 3, Retry = 4, Ignore = 5 };

/// Runs the statements of one procedure. When a statement fails the user is
/// asked: Retry runs it again, Ignore goes on with a default value in place of
/// its result, every other answer leaves the procedure.
class Steps {
 public:
  Steps(ErrorReporter& reporter, std::string_view procedure)
      : reporter_(reporter), procedure_(procedure) {}
  Steps(const Steps&) = delete;
  Steps& operator=(const Steps&) = delete;

  template <class Statement>
  auto operator()(Statement&& statement) -> std::invoke_result_t<Statement&> {
    using Result = std::invoke_result_t<Statement&>;
    static_assert(!std::is_reference_v<Result>, "an ignored statement has nothing to refer to");
    while (true) {
      try {
        return statement();
      } catch (const Leave&) {
        throw;
      } catch (...) {
        if (!wantsRetry()) return Result();
      }
    }
  }

 private:
  /// Thrown to the trap of the procedure that is left. Not a std::exception, so
  /// that no statement takes it for an error.
  struct Leave {
    const Steps* procedure;
  };

  template <class Body>
  friend auto trap(ErrorReporter& reporter, std::string_view procedure, Body&& body,
                   std::type_identity_t<std::invoke_result_t<Body&, Steps&>> fallback)
      -> std::invoke_result_t<Body&, Steps&>;

  /// Reports the exception being handled. A reporter that fails itself is an Abort.
  ErrorAnswer report() noexcept;
  /// The same; true for Retry, false for Ignore, throws Leave for the rest.
  bool wantsRetry();

  ErrorReporter& reporter_;
  std::string_view procedure_;
};

/// Runs the body of a procedure under its name: what fails in it is reported
/// instead of thrown. Gives the body's result, or the fallback when the
/// procedure is left early. An error outside of the steps is reported and
/// leaves, whatever the answer.
template <class Body>
auto trap(ErrorReporter& reporter, std::string_view procedure, Body&& body,
          std::type_identity_t<std::invoke_result_t<Body&, Steps&>> fallback)
    -> std::invoke_result_t<Body&, Steps&> {
  Steps step(reporter, procedure);
  try {
    return body(step);
  } catch (const Steps::Leave& leave) {
    if (leave.procedure != &step) throw;  // it belongs to an enclosing procedure
  } catch (...) {
    step.report();
  }
  return fallback;
}

/// The same with a default-constructed fallback, and for bodies without a result.
template <class Body>
auto trap(ErrorReporter& reporter, std::string_view procedure, Body&& body)
    -> std::invoke_result_t<Body&, Steps&> {
  using Result = std::invoke_result_t<Body&, Steps&>;
  if constexpr (std::is_void_v<Result>) {
    const auto andTrue = [&](Steps& step) { return body(step), true; };
    trap(reporter, procedure, andTrue, false);
  } else {
    return trap(reporter, procedure, body, Result());
  }
}

/// Runs a statement and ignores its failure.
template <class Statement>
void ignoringErrors(Statement&& statement) noexcept {
  try {
    statement();
  } catch (...) {  // NOLINT(bugprone-empty-catch): that is the purpose
  }
}

}  // namespace kebu
