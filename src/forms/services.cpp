#include "forms/services.h"

#include <utility>

#include "ado/recordset.h"
#include "common/convert.h"
#include "common/swallowed_errors.h"
#include "sql/working_tables.h"

namespace kebu::forms {

// Looked up afresh each time: the host may offer the service late or withdraw it.
Ref<host::MessageService> Services::messages() const {
  if (!held_.host) return nullptr;
  const Ref<host::ClsGlobal> global = held_.host->ClsGlobal();
  return global ? global->Messages() : nullptr;
}

template <class Question>
auto Services::askHost(const char* place, Question&& question) const
    -> std::optional<std::invoke_result_t<Question&, host::MessageService&>> {
  std::optional<std::invoke_result_t<Question&, host::MessageService&>> answer;
  ignoringErrors(platform_, place, [&] {
    if (const auto service = messages()) answer = question(*service);
  });
  return answer;
}

std::string Services::TranslateString(const std::string& text) {
  return askHost("TranslateString",
                 [&](host::MessageService& host) { return host.Translate(text); })
      .value_or(text);
}

std::int32_t Services::VLTMsgBox(const Value& prompt, std::int32_t buttons, const Value& title,
                                 const Value& context) {
  const auto answer = askHost("VLTMsgBox", [&](host::MessageService& host) {
    return host.MsgBox(prompt, buttons, title, context);
  });
  if (answer) return *answer;
  return platform_.messageBox(toDisplay(prompt), buttons, toDisplay(title));
}

std::int32_t Services::VLTMsgBoxFromId(std::int32_t id, std::int32_t buttons, const Value& title,
                                       const Value& context) {
  const auto answer = askHost("VLTMsgBoxFromId", [&](host::MessageService& host) {
    return host.MsgBoxFromId(id, buttons, title, context);
  });
  if (answer) return *answer;
  return platform_.messageBox(std::to_string(id), buttons, toDisplay(title));
}

std::int16_t Services::VisualizzaErrore(const std::string& procedure, const RuntimeError& error) {
  return VisualizzaErrore(procedure, error, applicationTitle);
}

std::int16_t Services::VisualizzaErrore(const std::string& procedure, const RuntimeError& error,
                                        const std::string& title) {
  if (!held_.log) {
    platform_.messageBox("Classe Log non settata", msgbox::okOnly, form_.caption());
    return static_cast<std::int16_t>(ErrorAnswer::Abort);
  }
  // A recordset that is missing because an error was ignored is a consequence of the loss.
  const bool isMissing = error.number() == RuntimeError::objectNotSet().number();
  const bool isLoss = tellsOfLoss(error);
  if (answerToLoss_ && (isLoss || isMissing)) return *answerToLoss_;
  held_.log->SetError(error.number(), error.description(), error.source());
  if (held_.connection) held_.log->SetConnectionErrors(*held_.connection);
  constexpr std::int32_t style =
      msgbox::abortRetryIgnore | msgbox::critical | msgbox::defaultButton2 | msgbox::systemModal;
  const std::int16_t answer = held_.log->ShowError(title, form_.caption(), procedure, style);
  const bool isRetry = answer == static_cast<std::int16_t>(ErrorAnswer::Retry);
  if (isLoss && !isRetry && gestures_ > 0) answerToLoss_ = answer;
  if (isLoss) ConnectionLost.raise();
  return answer;
}

void Services::setConnection(const Ref<ado::Connection>& connection) {
  held_.connection = connection;
  connectionLost_ = false;
}

bool Services::tellsOfLoss(const RuntimeError& error) {
  bool isLoss = false;
  ignoringErrors(platform_, "ConnectionLost",
                 [&] { isLoss = ado::tellsOfNoConnection(error, held_.connection.get()); });
  if (isLoss) connectionLost_ = true;
  return isLoss;
}

void Services::endGesture() {
  if (--gestures_ == 0) answerToLoss_.reset();
}

void Services::letUserWork(const std::function<void()>& work) {
  struct OuterGestures {
    int& current;
    int count = std::exchange(current, 0);
    ~OuterGestures() { current = count; }
  };
  const OuterGestures outer{gestures_};
  answerToLoss_.reset();
  work();
}

std::int16_t Services::VisualizzaErrore(const std::string& procedure) {
  auto answer = static_cast<std::int16_t>(ErrorAnswer::Abort);
  ignoringErrors(platform_, "VisualizzaErrore",
                 [&] { answer = VisualizzaErrore(procedure, RuntimeError(0, "", "")); });
  return answer;
}

std::int32_t Services::showMessage(std::int32_t id, std::int32_t style) {
  return VLTMsgBoxFromId(id, style, form_.caption());
}

std::int32_t Services::showText(const std::string& text, std::int32_t style) {
  return VLTMsgBox(text, style, form_.caption());
}

std::int32_t Services::message(const std::string& text, std::int32_t style) {
  return showText(TranslateString(text), style);
}

void Services::work(const std::function<void()>& command) {
  const controls::Work working(form_.desktop());
  const controls::Gesture gesture(this);
  command();
}

bool Services::confirmKept(const std::string& text) {
  if (keepsText(text)) return true;
  showText(TranslateString("Valore non valido: ") + "\"" + text + "\". " +
               TranslateString("Il database non conserva alcuni caratteri."),
           msgbox::exclamation);
  return false;
}

void Services::showInHostStatusBar(std::int32_t panel, const std::string& text) {
  ignoringErrors(platform_, "StatusBar", [&] {
    const Ref<host::StatusBar> bar = held_.host ? held_.host->StatusBar() : nullptr;
    if (bar) bar->Panels(panel)->setText(text);
  });
}

std::string Services::GetTempTableName(const char* procedure, const char* prefix) {
  return trap(*this, procedure, [&](Steps& step) {
    std::string name = std::string("##temp") + prefix;
    const Ref<ado::Recordset> rows =
        step([&] { return held_.connection->Execute(sql::NuovoIdentificativo()); });
    step([&] {
      if (!rows->EOF_()) name += toText(rows->GetRows(1).front().front());
    });
    for (const char* separator : {"-", "{", "}"}) name = replaceAll(name, separator, "");
    return name;
  });
}

}  // namespace kebu::forms
