#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace kebu::workbench {

/// Planned faults: statements that fail or are slow on purpose, to test how the plug-in reacts.
class StatementFaults {
 public:
  /// The next `times` statements that contain `text` fail.
  void add(const std::string& text, std::int32_t times) {
    plans_.push_back({Kind::Fails, text, times});
  }
  /// The next `times` statements that contain `text` are carried out, but their answer is lost.
  void loseAnswer(const std::string& text, std::int32_t times) {
    plans_.push_back({Kind::LosesAnswer, text, times});
  }
  /// The next statement that contains `text` is taken to last so many seconds.
  void slowDown(const std::string& text, std::int32_t seconds) {
    plans_.push_back({Kind::IsSlow, text, 1, seconds});
  }
  /// The server goes away: at once, or when a statement that contains `text` is sent, which is not
  /// carried out. What was open then is lost for good, and nothing can be opened until it is back.
  void stopServer(const std::string& text = {});
  void startServer();
  bool isServerAway() const { return away_; }
  int outages() const { return outages_; }
  /// While the next statement that contains `text` works, the user makes the gesture that
  /// interrupts it.
  void interrupt(const std::string& text, std::function<void()> gesture) {
    plans_.push_back({Kind::IsInterrupted, text, 1, 0, std::move(gesture)});
  }
  /// Throws the error that is planned for the statement, if any.
  void raiseFor(const std::string& statement);
  /// The same for a statement that was carried out.
  void raiseAfter(const std::string& statement);
  /// The seconds that the statement is to last, 0 when nothing is planned for it.
  std::int32_t secondsOf(const std::string& statement);
  /// Whether the user interrupts the statement. The gesture for it is made now.
  bool isInterrupted(const std::string& statement);

  /// A fault of the plug-in's: it ran `statement` while rows of another one were unread.
  void noteSecondConnection(const std::string& statement, const std::string& unread);
  /// What was noted since the last call, a line each.
  std::vector<std::string> takeNotes() { return std::exchange(notes_, {}); }

 private:
  enum class Kind { Fails, LosesAnswer, IsSlow, IsInterrupted };
  /// What is planned for the next statements that contain a text.
  struct Plan {
    Kind kind;
    std::string text;
    std::int32_t left = 1;  ///< how many statements
    std::int32_t seconds = 0;
    std::function<void()> gesture = {};
  };
  /// The plan of the kind that is due for the statement, which then has one statement less to come.
  std::optional<Plan> take(Kind kind, const std::string& statement);

  std::vector<Plan> plans_;
  std::optional<std::string> stopsServer_;  ///< the text of the statement
  bool away_ = false;
  int outages_ = 0;
  std::vector<std::string> notes_;
};

}  // namespace kebu::workbench
