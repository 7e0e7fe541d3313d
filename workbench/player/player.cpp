#include "workbench/player/player.h"

#include <exception>
#include <sstream>

#include "workbench/player/control_printer.h"
#include "workbench/player/step_table.h"

namespace kebu::workbench {

namespace {

void printBox(std::ostream& out, const ShownMessage& box) {
  out << "  [ " << box.title << " ] " << describeIcon(box.style) << '\n';
  std::istringstream lines(box.text);
  for (std::string line; std::getline(lines, line);) {
    if (line.ends_with('\r')) line.pop_back();
    out << "  | " << line << '\n';
  }
}

void printAnswer(std::ostream& out, const ShownMessage& box, const Answers::Decision& decision) {
  out << "  ";
  for (const msgbox::Answer button : buttonsOf(box.style)) {
    const bool isDefault = button == defaultButton(box.style);
    out << (isDefault ? "[" : "") << answerName(button) << (isDefault ? "] " : " ");
  }
  out << "-> " << answerName(decision.answer) << (decision.byDefault ? " (default)" : "") << '\n';
}

}  // namespace

bool Player::play(const Scenario& scenario, const Stage& stage) {
  scenario_ = &scenario;
  stage_ = &stage;
  next_ = 0;
  stopped_ = false;
  expectations_ = 0;
  unmet_ = 0;
  while (playNext()) {
  }
  return report();
}

const ScenarioLine* Player::nextLine() {
  return next_ < scenario_->lines().size() ? &scenario_->lines()[next_++] : nullptr;
}

void Player::lineFailed(const std::exception& error) {
  const auto* const raised = dynamic_cast<const RuntimeError*>(&error);
  stop(raised ? "error " + std::to_string(raised->number()) + ": " + raised->description()
              : error.what());
}

bool Player::playNext() {
  const ScenarioLine* const line = stopped_ ? nullptr : nextLine();
  if (!line) return false;
  line_ = line->number;
  out_ << "> " << line->text << '\n';
  try {
    runStep(*this, line->words);
  } catch (const std::exception& error) {
    lineFailed(error);
  }
  for (const std::string& note : stage_->faults.takeNotes()) {
    ++unmet_;
    complain(note);
  }
  return true;
}

bool Player::report() {
  if (answers_.queued() > 0) {
    out_ << "note: answers that no message box asked for: " << answers_.queued() << '\n';
  }
  if (unmet_ > 0) {
    err_ << scenario_->name() << ": " << unmet_ << " of " << expectations_
         << " expectations not met\n";
  } else if (!stopped_) {
    out_ << "ok: " << expectations_ << " expectations met\n";
  }
  return !stopped_ && unmet_ == 0;
}

void Player::complain(const std::string& message) {
  out_.flush();  // both streams may go to the same file
  err_ << scenario_->name() << ':' << line_ << ": " << message << '\n';
}

void Player::stop(const std::string& message) {
  if (!stopped_) complain(message);
  stopped_ = true;
}

std::int32_t Player::answer(const ShownMessage& box) {
  messages_.add(box);
  printBox(out_, box);
  // After the end of the scenario every box is answered with the button that changes least.
  Answers::Decision decision{wayOut(box.style), false, ""};
  if (!stopped_) decision = answers_.decide(box);
  printAnswer(out_, box, decision);
  if (!decision.complaint.empty()) stop(decision.complaint);
  return decision.answer;
}

void Player::chooseFrom(ShownList& list) {
  printLookup(out_, list);
  if (!lookup_ || lookup_->opened) return;
  lookup_->opened = true;
  if (!lookup_->row) return;
  try {
    list.choose(*lookup_->row);
  } catch (const controls::GestureRefused& refusal) {
    // Caught here: otherwise it would pass through the plug-in and be taken for its error.
    lineFailed(refusal);
  }
}

void Player::workIn(controls::Form& form) {
  const auto keptAlive = form.weak_from_this().lock();
  while (form.isLoaded() && playNext()) {
  }
}

void Player::playLookup(const std::function<void()>& gesture, std::optional<std::int32_t> row) {
  lookup_ = Lookup{row, false};
  gesture();
  const bool opened = lookup_->opened;
  lookup_.reset();
  if (opened) return;
  if (row) throw StepError("no list was opened");
  out_ << "  (no list was opened)\n";
}

void Player::check(bool holds, const std::string& what, const std::string& expected,
                   const std::string& found) {
  ++expectations_;
  if (holds) return;
  ++unmet_;
  complain(what + ": expected \"" + expected + "\", found \"" + found + "\"");
}

}  // namespace kebu::workbench
