#include "tests/forms/workplace.h"

#include <stdexcept>

#include "common/convert.h"
#include "plugin/clskb_anagkelmoria.h"
#include "workbench/cli/company_file.h"

namespace kebu::workbench {

std::int32_t Workplace::Person::answer(const ShownMessage& box) {
  workplace_.messages.push_back(box.text);
  // A change that is pending at the end is not to keep the window open.
  return offers(box.style, msgbox::no) ? msgbox::no : wayOut(box.style);
}

Workplace::Workplace()
    : person_(*this),
      platform_(person_, trace),
      desktop_(person_),
      hands_(desktop_),
      database_(demoCompany()),
      session_(database_),
      host_(
          [this] {
            return plugin::CLSKB_ANAGKELMORIA::create({platform_, library_, desktop_});
          },
          {person_, embeddedCompany(database_, nullptr), 1, {}, [](const std::string&) {}}) {}

void Workplace::close() {
  if (!host_.close()) throw std::logic_error("the window stays open");
}

controls::QueryEditor& Workplace::editor(const std::string& name) {
  return *controls::as<controls::QueryEditor>(*desktop_.front()->find(name));
}

std::vector<std::string> Workplace::column(const std::string& statement) {
  std::vector<std::string> texts;
  const auto results = session_.execute(statement);
  for (const auto& row : results.back().rows) texts.push_back(toDisplay(row.front()));
  return texts;
}

std::string Workplace::value(const std::string& statement) {
  return column(statement).at(0);
}

}  // namespace kebu::workbench
