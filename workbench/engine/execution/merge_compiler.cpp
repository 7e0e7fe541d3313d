// MERGE joins source and target once, into a scratch table. For every pair it holds the id of
// the target's row and the number of the branch that applies. The branches read the scratch
// table, so that no branch sees what another one has changed.

#include <utility>

#include "workbench/engine/binding/expression_binder.h"
#include "workbench/engine/binding/source_binder.h"
#include "workbench/engine/execution/compiler.h"
#include "workbench/engine/sqlite.h"

namespace kebu::engine {
namespace {

using When = ast::MergeBranch::When;
using Action = ast::MergeBranch::Action;

}  // namespace

ScratchTable::ScratchTable(Database& database, std::size_t columns)
    : database_(database), name_(database.newScratchName()) {
  std::string sql = "CREATE TABLE " + name() + " (target INTEGER UNIQUE, branch";
  for (std::size_t i = 1; i <= columns; ++i) sql += ", c" + std::to_string(i);
  database_.run(sql + ")");
}

ScratchTable::~ScratchTable() {
  sqlite3_exec(database_.handle(), ("DROP TABLE " + name()).c_str(), nullptr, nullptr, nullptr);
}

class MergeCompiler {
 public:
  MergeCompiler(Compiler& compiler, const ast::Merge& node)
      : compiler_(compiler),
        node_(node),
        context_(compiler.context()),
        table_(context_.table(node.table)) {}

  Compiled run() {
    Compiled compiled = compiler_.start();
    compiled.base = table_;
    const std::string fill = join();
    if (compiler_.purpose() == Compiler::Purpose::Run) {
      compiled.scratch =
          std::make_unique<ScratchTable>(compiler_.database(), sourceColumns_.size());
      scratch_ = compiled.scratch->name();
    }
    add(compiled, "INSERT INTO " + scratch_ + " " + fill);

    // NOT MATCHED BY SOURCE comes first: it must not see the rows that another branch inserts.
    for (const auto order : {When::NotMatchedBySource, When::Matched, When::NotMatchedByTarget}) {
      for (std::size_t i = 0; i < node_.branches.size(); ++i) {
        if (node_.branches[i].when == order) branch(compiled, node_.branches[i], i + 1);
      }
    }
    compiled.counted = compiled.steps.size() - 1;
    add(compiled, "DELETE FROM " + scratch_);
    return compiled;
  }

 private:
  void add(Compiled& compiled, const std::string& sql) { compiler_.add(compiled, sql, context_); }

  /// The query that fills the scratch table.
  std::string join() {
    Scope scope;
    const std::string source = SourceBinder(context_).source(*node_.source, scope);
    const std::size_t sources = scope.members.size();
    scope.members.push_back(SourceBinder(context_).member(table_, node_.alias));
    const Scope::Member target = scope.members.back();
    const std::string on = ExpressionBinder(context_).condition(*node_.on, scope);
    std::string matched;
    std::string missing;
    for (std::size_t i = 0; i < node_.branches.size(); ++i) {
      const auto& candidate = node_.branches[i];
      if (candidate.when == When::NotMatchedBySource) continue;
      std::string& text = candidate.when == When::Matched ? matched : missing;
      text +=
          " WHEN " +
          (candidate.condition ? ExpressionBinder(context_).condition(*candidate.condition, scope)
                               : std::string("1")) +
          " THEN " + std::to_string(i + 1);
    }
    const auto choice = [](const std::string& branches) {
      return branches.empty() ? "NULL" : "CASE" + branches + " END";
    };
    std::string list = target.sqliteAlias + ".rowid, CASE WHEN " + target.sqliteAlias +
                       ".rowid IS NOT NULL THEN " + choice(matched) + " ELSE " + choice(missing) +
                       " END";
    scratchMember_.sqliteAlias = context_.nextAlias();
    for (std::size_t m = 0; m < sources; ++m) {
      scratchMember_.alias = scope.members[m].name();
      for (const auto& [name, bound] : scope.members[m].columns) {
        sourceColumns_.push_back(name);
        list += ", " + bound.sql;
        scratchMember_.columns.emplace_back(
            name, Bound{scratchMember_.sqliteAlias + ".c" + std::to_string(sourceColumns_.size()),
                        bound.type, bound.nullable});
      }
    }
    return "SELECT " + list + " FROM " + source + " LEFT JOIN " + table_->sqliteName() + " AS " +
           target.sqliteAlias + " ON " + on;
  }

  std::string assignments(const ast::MergeBranch& branch, const Scope& scope) {
    return assignmentList(boundAssignments(context_, *table_, branch.set, scope));
  }

  void branch(Compiled& compiled, const ast::MergeBranch& node, std::size_t number) {
    const std::string chosen = "branch = " + std::to_string(number);
    Scope scope;
    scope.members.push_back(scratchMember_);
    if (node.when == When::NotMatchedByTarget) {
      const InsertTargets targets(*table_, node.columns, false);
      if (node.values.size() != targets.columns.size()) {
        throw SqlError(
            10709, "The number of columns and values of the INSERT in a MERGE must be the same.");
      }
      std::string values;
      for (std::size_t i = 0; i < node.values.size(); ++i) {
        const int column = targets.columns[i];
        values += (i > 0 ? ", " : "") +
                  (node.values[i]
                       ? stored(ExpressionBinder(context_).value(*node.values[i], scope),
                                table_->columns[static_cast<std::size_t>(column)], table_->name)
                       : boundDefault(context_, *table_, column));
      }
      for (const int column : targets.defaulted)
        values += ", " + boundDefault(context_, *table_, column);
      add(compiled, "INSERT INTO " + table_->sqliteName() + " (" + targets.list + ") SELECT " +
                        values + " FROM " + scratch_ + " AS " + scratchMember_.sqliteAlias +
                        " WHERE " + chosen);
      return;
    }
    Scope::Member target = SourceBinder(context_).member(table_, node_.alias);
    const std::string rows = target.sqliteAlias + ".rowid";
    const std::string aliased = table_->sqliteName() + " AS " + target.sqliteAlias;
    if (node.when == When::NotMatchedBySource) {
      Scope own;
      own.members.push_back(std::move(target));
      std::string where = " WHERE " + rows + " NOT IN (SELECT target FROM " + scratch_ +
                          " WHERE target IS NOT NULL)";
      if (node.condition)
        where += " AND " + ExpressionBinder(context_).condition(*node.condition, own);
      add(compiled, node.action == Action::Delete
                        ? "DELETE FROM " + aliased + where
                        : "UPDATE " + aliased + " SET " + assignments(node, own) + where);
      return;
    }
    scope.members.push_back(std::move(target));
    if (node.action == Action::Delete) {
      add(compiled, "DELETE FROM " + aliased + " WHERE " + rows + " IN (SELECT target FROM " +
                        scratch_ + " WHERE " + chosen + ")");
    } else {
      add(compiled, "UPDATE " + aliased + " SET " + assignments(node, scope) + " FROM " + scratch_ +
                        " AS " + scratchMember_.sqliteAlias + " WHERE " + rows + " = " +
                        scratchMember_.sqliteAlias + ".target AND " + scratchMember_.sqliteAlias +
                        "." + chosen);
    }
  }

  Compiler& compiler_;
  const ast::Merge& node_;
  BindingContext context_;
  TablePtr table_;
  std::vector<std::string> sourceColumns_;
  Scope::Member scratchMember_;
  std::string scratch_;
};

Compiled Compiler::merge(const ast::Merge& node) {
  return MergeCompiler(*this, node).run();
}

}  // namespace kebu::engine
