// Measures the plug-in's actions against their bare statements.
//
//   kebu_bench [PART OF A NAME]
#include <exception>
#include <iostream>
#include <stdexcept>

#include "bench/benchmarks.h"

namespace kebu::bench {

BenchWorkplace::BenchWorkplace(const std::shared_ptr<engine::Database>& database)
    : TestWorkplace(database) {
  user().answerTo = [](const workbench::ShownMessage& box) -> std::int32_t {
    throw std::logic_error("a message box was shown: " + box.text);
  };
  user().inModalWindow = [this](controls::Form&) { hands().clickButton("CMD_OK"); };
}

}  // namespace kebu::bench

int main(int argc, char** argv) {
  using namespace kebu::bench;
  try {
    PairedRunner runner(argc > 1 ? argv[1] : "");
    measureProfile(runner);
    measureRules(runner);
    measurePreview(runner);
    measureGridTools(runner);
    if (runner.measured() == 0) {
      std::cerr << "kebu_bench: nothing is called " << argv[1] << '\n';
      return 1;
    }
    return runner.isAnyAboveItsAim() ? 1 : 0;
  } catch (const std::exception& error) {
    std::cerr << "kebu_bench: " << error.what() << '\n';
    return 1;
  }
}
