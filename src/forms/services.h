#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <type_traits>

#include "ado/connection.h"
#include "common/event.h"
#include "common/platform.h"
#include "controls/control_host.h"
#include "controls/form.h"
#include "host/cinterface.h"

namespace kebu::forms {

/// The title of error boxes.
inline constexpr const char* applicationTitle = "KEBU_ANAGKELMORIA";

/// The services that every procedure of a window uses: translation, messages,
/// the error reporter and working-table names. Where the host does not offer a
/// service, the system's own or a plain text takes its place.
class Services : public controls::ControlHost {
 public:
  Services(Platform& platform, const controls::Form& form) : platform_(platform), form_(form) {}

  void setHost(const Ref<host::Cinterface>& value) { held_.host = value; }
  const Ref<host::Cinterface>& host() const { return held_.host; }
  void setLog(const Ref<host::LogService>& log) { held_.log = log; }
  void setConnection(const Ref<ado::Connection>& connection);
  /// Releases all of these.
  void release() { held_ = {}; }

  /// The host's translation; the text itself where the host's service is absent or fails.
  std::string TranslateString(const std::string& text);
  /// The host's message box, or the system's where it is absent or fails; the button pressed.
  std::int32_t VLTMsgBox(const Value& prompt, std::int32_t buttons, const Value& title,
                         const Value& context = {});
  /// The same for a message of the host's store, by number.
  std::int32_t VLTMsgBoxFromId(std::int32_t id, std::int32_t buttons, const Value& title,
                               const Value& context = {});
  /// Lets the host's log show the error; 3 (Abort) without a log.
  std::int16_t VisualizzaErrore(const std::string& procedure, const RuntimeError& error) override;
  /// The same with a title in place of the application's.
  std::int16_t VisualizzaErrore(const std::string& procedure, const RuntimeError& error,
                                const std::string& title);
  /// The same for a procedure of the host's, whose error is not known here. Raises no error.
  std::int16_t VisualizzaErrore(const std::string& procedure);
  /// A lost connection is told once in a gesture: what fails for the same reason behind it is
  /// answered like the first box, unless that was Retry.
  void beginGesture() override { ++gestures_; }
  void endGesture() override;
  /// Whether an error told that the connection is lost, or could not be opened.
  bool isConnectionLost() const { return connectionLost_; }
  /// Lets the user work in another window, where gestures begin anew.
  void letUserWork(const std::function<void()>& work);
  /// The connection was found lost.
  Event<> ConnectionLost;
  /// A message of the host's store, titled with the window's caption.
  std::int32_t showMessage(std::int32_t id, std::int32_t style);
  /// A text that is translated already, titled with the window's caption.
  std::int32_t showText(const std::string& text, std::int32_t style);
  void work(const std::function<void()>& command) override;
  std::string translated(const std::string& text) override { return TranslateString(text); }
  bool keepsText(const std::string& text) override { return platform_.fitsCodePage(text); }
  /// The same for a text that the user entered: tells them when it is not kept.
  bool confirmKept(const std::string& text);
  SettingStore* settingStore() override { return &platform_; }
  /// Translates and shows `text` titled with the window's caption.
  std::int32_t message(const std::string& text, std::int32_t style) override;
  /// Puts the text into a panel of the host's status bar, counted from 1, where it has one.
  void showInHostStatusBar(std::int32_t panel, const std::string& text);
  /// A unique name for a global temporary table: "##temp", `prefix` and an
  /// identifier. `procedure` is the given name under which errors are reported.
  std::string GetTempTableName(const char* procedure = "GetTempTableName",
                               const char* prefix = "T");

 private:
  Ref<host::MessageService> messages() const;
  bool tellsOfLoss(const RuntimeError& error);
  /// What the host's message service answers; nothing where it is absent or fails.
  template <class Question>
  auto askHost(const char* place, Question&& question) const
      -> std::optional<std::invoke_result_t<Question&, host::MessageService&>>;

  Platform& platform_;
  const controls::Form& form_;
  struct HostObjects {
    Ref<ado::Connection> connection = {};
    Ref<host::LogService> log = {};
    Ref<host::Cinterface> host = {};
  };
  HostObjects held_;
  int gestures_ = 0;  ///< that are being carried out, one within the other
  /// The answer to the box that told of the lost connection in the current gesture.
  std::optional<std::int16_t> answerToLoss_;
  bool connectionLost_ = false;
};

}  // namespace kebu::forms
