#include "tests/support/test_workplace.h"

#include <stdexcept>

namespace kebu::tests {

TestWorkplace::TestWorkplace(const std::shared_ptr<engine::Database>& database)
    : company_(database),
      models_({.user = user_, .database = database, .observer = &recorder_, .trace = &trace_}) {
  recorder_.setListening(false);
  user_.answerTo = [](const workbench::ShownMessage& box) {
    return workbench::offers(box.style, msgbox::no) ? msgbox::no : workbench::wayOut(box.style);
  };
}

void TestWorkplace::close() {
  if (!models_.host().close()) throw std::logic_error("the window stays open");
}

controls::QueryEditor& TestWorkplace::editor(const std::string& name) {
  return dynamic_cast<controls::QueryEditor&>(*desktop().front()->find(name));
}

}  // namespace kebu::tests
