// What the articles' condition costs: an editor with every field restricted, beside the mere
// putting together of its finished predicates. And "Conta" beside its statement, which the user
// waits for.

#include <benchmark/benchmark.h>

#include <stdexcept>
#include <string>
#include <vector>

#include "controls/control_host.h"
#include "controls/query_editor.h"
#include "forms/filters/filter_editor.h"
#include "sql/filters.h"
#include "sql/query_predicate.h"
#include "workbench/cli/company_file.h"
#include "workbench/engine/execution/session.h"

namespace kebu::forms {
namespace {

class NoHost : public controls::ControlHost {
 public:
  std::int16_t VisualizzaErrore(const std::string&, const RuntimeError& error) override {
    throw std::logic_error(error.description());
  }
  std::int32_t message(const std::string& text, std::int32_t) override {
    throw std::logic_error(text);
  }
};

/// The twelve article fields, each with a condition.
class RestrictedEditor {
 public:
  RestrictedEditor() {
    const char* const inputs[][2] = {{"in", "ELE; VER; IDR"}, {"<>", "x'y"}, {"starts", "A"}};
    std::size_t next = 0;
    for (const controls::QueryField& field : declarationsOf(articlesSubject().fields)) {
      editor.addField(field);
      controls::QueryEditor::Row& row = editor.row(editor.fieldCount() - 1);
      if (field.isNumeric) {
        row.op.choose("between");
        row.first.type("0");
        row.second.type("2");
      } else {
        const auto& [op, value] = inputs[next++ % std::size(inputs)];
        row.op.choose(op);
        row.first.type(value);
      }
    }
  }
  std::string condition() { return articlesSubject().condition(editor); }

  NoHost host;
  controls::QueryEditor editor{"ENHQUERY_ART", host, sql::queryComposer};
};

void ComposeCondition(benchmark::State& state) {
  RestrictedEditor restricted;
  for (auto _ : state) benchmark::DoNotOptimize(restricted.condition());
}

/// Composing and running, as "Conta" does.
void CountArticles(benchmark::State& state) {
  engine::Session session(workbench::demoCompany());
  RestrictedEditor restricted;
  for (auto _ : state) {
    benchmark::DoNotOptimize(session.execute(sql::ContaArticoli({"1"}, restricted.condition())));
  }
}

void CountArticles_floor(benchmark::State& state) {
  engine::Session session(workbench::demoCompany());
  const std::string statement = sql::ContaArticoli({"1"}, RestrictedEditor().condition());
  for (auto _ : state) benchmark::DoNotOptimize(session.execute(statement));
}

BENCHMARK(ComposeCondition)->Unit(benchmark::kMicrosecond);
BENCHMARK(CountArticles)->Unit(benchmark::kMicrosecond);
BENCHMARK(CountArticles_floor)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace kebu::forms
