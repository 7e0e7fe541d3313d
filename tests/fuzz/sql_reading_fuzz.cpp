// A T-SQL script is only read, not run: tokens, tree and names. Far more scripts can be read than
// run in the same time.

#include "tests/fuzz/sql_sample.h"
#include "workbench/engine/execution/interpreter.h"
#include "workbench/engine/execution/script.h"
#include "workbench/engine/execution/session.h"

namespace {

using namespace kebu;
using namespace kebu::tests;

void read(engine::Session& session, const std::string& batch) {
  engine::Program program;
  const auto text = std::make_shared<const std::string>(batch);
  program.batch = engine::parseBatch(text, engine::tokenize(*text), nullptr);
  engine::Frame frame;
  engine::Execution execution(session, program, frame, nullptr);
  engine::Interpreter(execution).check(program.batch.statements);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static engine::Session session(sampleDatabase());
  engine::forEachBatch(textOf(data, size), [&](const std::string& batch, int) {
    try {
      read(session, batch);
    } catch (const engine::SqlError& error) {
      requireOwnError(error, textOf(data, size));
    }
  });
  return 0;
}
