#include "workbench/engine/execution/session.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

#include "common/convert.h"
#include "workbench/engine/execution/interpreter.h"
#include "workbench/engine/nesting_level.h"
#include "workbench/engine/values/cast.h"

namespace kebu::engine {
namespace {

constexpr std::size_t programsKept = 256;
// SQLite takes long to prepare a statement with many thousands of values.
constexpr std::size_t mostLifted = 1000;

/// Makes a session the current one while a batch of its runs.
class Activation {
 public:
  Activation(Database& database, Session& session)
      : database_(database), before_(database.setCurrent(&session)) {}
  Activation(const Activation&) = delete;
  Activation& operator=(const Activation&) = delete;
  ~Activation() { database_.setCurrent(before_); }

 private:
  Database& database_;
  Session* before_;
};

/// Whether the batch is an INSERT of literal rows. The sizes of its literals then have no
/// effect, and without them INSERTs of different rows share one program.
bool onlyInsertsRows(const std::vector<Token>& tokens) {
  return isWord(tokens.front(), "INSERT") &&
         std::none_of(tokens.begin(), tokens.end(), [](const Token& token) {
           return isWord(token, "SELECT") ||
                  (token.kind == TokenKind::Symbol && (token.text == "/" || token.text == ";"));
         });
}

void forgetSize(SqlType& type) {
  if (type.isText()) type.size = -1;
  if (type.kind == TypeKind::Int) type.precision = 0;
  if (type.kind == TypeKind::Decimal && !type.isWide()) type.precision = 18;
}

std::vector<ast::Literal> literalsOf(const std::vector<Token>& tokens) {
  std::vector<ast::Literal> literals;
  const bool loose = onlyInsertsRows(tokens);
  for (const auto& token : tokens) {
    if (!isLiteral(token)) continue;
    literals.push_back(literalOf(token));
    if (loose) forgetSize(literals.back().type);
  }
  return literals;
}

/// The batch with every literal replaced by its type.
std::string formOf(const std::vector<Token>& tokens, const std::vector<ast::Literal>& literals,
                   std::size_t textSize) {
  std::string form;
  form.reserve(textSize + 16);
  std::size_t literal = 0;
  for (const auto& token : tokens) {
    if (isLiteral(token)) {
      form += '?';
      form += std::to_string(literals[literal++].type.code());
    } else {
      form += token.text;
    }
    form += ' ';
  }
  return form;
}

void dropQuietly(Database& database, const Table& table) {
  try {
    database.dropTable(table);
  } catch (const SqlError&) {  // NOLINT(bugprone-empty-catch): destructors cannot report it
  }
}

/// The results alone. Throws the first error.
std::vector<ResultSet> resultsOf(std::vector<BatchEvent> events) {
  std::vector<ResultSet> results;
  for (auto& event : events) {
    if (auto* const error = std::get_if<SqlError>(&event)) throw SqlError(*error);
    results.push_back(std::move(std::get<ResultSet>(event)));
  }
  return results;
}

std::shared_ptr<Program> parsed(const std::string& batch,
                                const std::vector<ast::Literal>& literals) {
  LiteralTypes types;
  types.reserve(literals.size());
  for (const auto& literal : literals) types.push_back(literal.type);
  const auto text = std::make_shared<const std::string>(batch);
  // The tree refers to the text, so that the program keeps a copy of it.
  auto program = std::make_shared<Program>();
  program->batch = parseBatch(text, tokenize(*text), types.size() > mostLifted ? nullptr : &types);
  return program;
}

}  // namespace

ProcedureScope::ProcedureScope(Session& session)
    : session_(session),
      outerTables_(session.database().catalogue().temporariesOf(session.id())),
      outerIdentity_(session.state().scopeIdentity),
      outerXactAbort_(session.state().xactAbort) {
  session.state().scopeIdentity.reset();
}

ProcedureScope::~ProcedureScope() {
  SessionState& state = session_.state();
  state.scopeIdentity = outerIdentity_;
  state.xactAbort = outerXactAbort_;
  for (const auto& table : session_.database().catalogue().temporariesOf(session_.id())) {
    const bool isLocal = !table->name.starts_with("##");
    const bool isOuter =
        std::find(outerTables_.begin(), outerTables_.end(), table) != outerTables_.end();
    if (isLocal && !isOuter) dropQuietly(session_.database(), *table);
  }
}

Session::Session(std::shared_ptr<Database> database)
    : database_(std::move(database)), id_(database_->newSessionId()) {}

Session::~Session() {
  programs_.clear();
  modules_.clear();
  for (const auto& table : database_->catalogue().temporariesOf(id_)) {
    dropQuietly(*database_, *table);
  }
}

std::vector<BatchEvent> Session::run(const std::string& batch) {
  std::vector<ast::Literal> literals;
  std::shared_ptr<Program> program;
  try {
    program = programForLiterals(batch, literals);
  } catch (const SqlError& error) {
    return {error};
  }
  return run(*program, literals);
}

std::vector<ResultSet> Session::execute(const std::string& batch) {
  return resultsOf(run(batch));
}

std::vector<BatchEvent> Session::run(Program& program, const std::vector<ast::Literal>& literals) {
  Frame frame;
  frame.literals = &literals;
  const Activation activation(*database_, *this);
  state_.rowsAffected = -1;
  std::vector<BatchEvent> events;
  Execution execution(*this, program, frame, &events);
  try {
    Interpreter(execution).runChecked(program.batch.statements);
  } catch (const SqlError& error) {
    events.emplace_back(error);
  }
  return events;
}

/// Batches often differ in their literals only: they share the program of their form.
std::shared_ptr<Program> Session::programForLiterals(const std::string& batch,
                                                     std::vector<ast::Literal>& literals) {
  const auto tokens = tokenize(batch);
  literals = literalsOf(tokens);
  const std::string form = formOf(tokens, literals, batch.size());
  // Where a literal is part of the form, as in ORDER BY 2, the program serves this text only.
  const std::string exactForm = form + batch;
  if (auto known = keptProgram(form)) return known;
  if (auto known = keptProgram(exactForm)) return known;
  if (programs_.size() == programsKept) programs_.clear();
  auto program = parsed(batch, literals);
  programs_[program->batch.liftable ? form : exactForm] = program;
  return program;
}

std::shared_ptr<Program> Session::keptProgram(const std::string& key) const {
  const auto found = programs_.find(key);
  return found == programs_.end() ? nullptr : found->second;
}

Program& Session::programOf(const ModulePtr& module) {
  Program& program = modules_[module];
  program.module = module;
  return program;
}

void Session::interrupt() {
  sqlite3_interrupt(database_->handle());
}

std::int64_t Session::lastRowId() const {
  return sqlite3_last_insert_rowid(database_->handle());
}

ModulePtr Session::procedure(const std::string& name) const {
  const auto tokens = tokenize(name);
  ModulePtr module = tokens.size() < 2
                         ? nullptr
                         : database_->catalogue().module({{nameOf(tokens[tokens.size() - 2])}, {}});
  if (!module || module->tree.kind != ast::ModuleKind::Procedure) {
    throw SqlError(2812, "Could not find stored procedure '" + name + "'.");
  }
  return module;
}

Value Session::globalVariable(const std::string& name) const {
  if (name == "@@ROWCOUNT") return static_cast<std::int32_t>(state_.rowCount);
  if (name == "@@IDENTITY") {
    return state_.lastIdentity ? Value(Decimal(*state_.lastIdentity)) : Value(Null{});
  }
  if (name == "@@ERROR") return state_.lastError;
  return std::int32_t{0};
}

Cell Session::callFunction(const std::string& name, CellArguments args) {
  const ModulePtr module = database_->catalogue().module({{name}, {}});
  const NestingLevel level(state_.depth, nestingLimit, nestedTooDeeply);
  Frame frame;
  for (std::size_t i = 0; i < module->tree.parameters.size(); ++i) {
    const auto& parameter = module->tree.parameters[i];
    const std::string variable = toUpperAscii(parameter.name);
    frame.variables[variable] = {parameter.type, valueOf(args[i], parameter.type)};
  }
  Execution execution(*this, programOf(module), frame, nullptr);
  Interpreter interpreter(execution);
  interpreter.run({module->tree.body});
  return storedAs(castTo(interpreter.returned(), module->tree.returns), module->tree.returns);
}

}  // namespace kebu::engine
