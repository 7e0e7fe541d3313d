#include "workbench/engine/execution/session.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

#include "common/convert.h"
#include "workbench/engine/values/cast.h"

namespace kebu::engine {
namespace {

constexpr std::size_t plansKept = 256;

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

/// In an INSERT of plain rows the sizes of literals have no effect; without them
/// many texts share one plan.
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

std::vector<ast::Literal> literalsOf(const std::string& batch, const std::vector<Token>& tokens) {
  std::vector<ast::Literal> literals;
  const bool loose = onlyInsertsRows(tokens);
  for (const auto& token : tokens) {
    if (token.kind == TokenKind::Parameter) {
      throw errorAt(batch, token.text, 102, "Incorrect syntax");
    }
    if (!isLiteral(token)) continue;
    literals.push_back(literalOf(token));
    if (loose) forgetSize(literals.back().type);
  }
  return literals;
}

/// The batch with its literals' types in place of them.
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

std::shared_ptr<Program> parsed(const std::string& batch,
                                const std::vector<ast::Literal>& literals) {
  LiteralTypes types;
  types.reserve(literals.size());
  for (const auto& literal : literals) types.push_back(literal.type);
  const auto text = std::make_shared<const std::string>(batch);
  // The tree refers to the text that is kept, not to the caller's.
  auto program = std::make_shared<Program>();
  program->batch = parseBatch(text, tokenize(*text), types);
  return program;
}

}  // namespace

Session::Session(std::shared_ptr<Database> database)
    : database_(std::move(database)), id_(database_->newSessionId()) {}

Session::~Session() {
  plans_.clear();
  modules_.clear();
  for (const auto& table : database_->catalogue().temporariesOf(id_)) {
    try {
      database_->dropTable(*table);
    } catch (const SqlError&) {  // NOLINT(bugprone-empty-catch): nobody is left to hear of it
    }
  }
}

std::vector<ResultSet> Session::execute(const std::string& batch) {
  std::vector<ast::Literal> literals;
  const auto program = planOfLiterals(batch, literals);
  return run(*program, literals);
}

std::vector<ResultSet> Session::execute(const std::string& batch,
                                        const std::vector<ast::Literal>& parameters) {
  const auto program = planOfParameters(batch, parameters);
  return run(*program, parameters);
}

std::vector<ResultSet> Session::run(Program& program, const std::vector<ast::Literal>& literals) {
  Frame frame;
  frame.literals = &literals;
  const Activation activation(*database_, *this);
  rowsAffected_ = -1;
  depth_ = 0;
  std::vector<ResultSet> results;
  Interpreter(*this, program, frame, &results).run(program.batch.statements);
  return results;
}

/// The texts differ by their literals as a rule, so that they are planned by their form.
std::shared_ptr<Program> Session::planOfLiterals(const std::string& batch,
                                                 std::vector<ast::Literal>& literals) {
  const auto tokens = tokenize(batch);
  literals = literalsOf(batch, tokens);
  const std::string form = formOf(tokens, literals, batch.size());
  // A batch whose literals belong to its form is kept by its whole text.
  const std::string exactForm = form + batch;
  if (auto known = knownPlan(form)) return known;
  if (auto known = knownPlan(exactForm)) return known;
  const auto program = parsed(batch, literals);
  return keepPlan(program->batch.liftable ? form : exactForm, program);
}

/// With parameters the text is the same again and again.
std::shared_ptr<Program> Session::planOfParameters(const std::string& batch,
                                                   const std::vector<ast::Literal>& parameters) {
  std::string key;
  key.reserve(batch.size() + sizeof(std::int64_t) * parameters.size());
  for (const auto& parameter : parameters) {
    const std::int64_t type = parameter.type.code();
    key.append(reinterpret_cast<const char*>(&type), sizeof type);
  }
  key += batch;
  if (auto known = knownPlan(key)) return known;
  const auto tokens = tokenize(batch);
  const auto marks = std::count_if(tokens.begin(), tokens.end(), [](const Token& token) {
    return token.kind == TokenKind::Parameter;
  });
  if (static_cast<std::size_t>(marks) != parameters.size() ||
      std::any_of(tokens.begin(), tokens.end(), isLiteral)) {
    throw std::logic_error("parameters that do not fit the batch: " + batch);
  }
  return keepPlan(key, parsed(batch, parameters));
}

std::shared_ptr<Program> Session::knownPlan(const std::string& key) {
  // Many rows in a row have one form, and a long key is quicker compared than hashed.
  if (!plans_.empty() && plans_.front().first == key) return plans_.front().second;
  const auto found = planOf_.find(key);
  if (found == planOf_.end()) return nullptr;
  plans_.splice(plans_.begin(), plans_, found->second);
  return plans_.front().second;
}

std::shared_ptr<Program> Session::keepPlan(const std::string& key,
                                           const std::shared_ptr<Program>& program) {
  plans_.emplace_front(key, program);
  planOf_[plans_.front().first] = plans_.begin();
  if (plans_.size() > plansKept) {
    planOf_.erase(plans_.back().first);
    plans_.pop_back();
  }
  return program;
}

Program& Session::programOf(const ModulePtr& module) {
  Program& program = modules_[module];
  program.module = module;
  return program;
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
  if (name == "@@ROWCOUNT") return static_cast<std::int32_t>(rowCount_);
  if (name == "@@IDENTITY") return lastIdentity_ ? Value(Decimal(*lastIdentity_)) : Value(Null{});
  return std::int32_t{0};
}

Cell Session::callFunction(const std::string& name, CellArguments args) {
  const ModulePtr module = database_->catalogue().module({{name}, {}});
  Frame frame;
  for (std::size_t i = 0; i < module->tree.parameters.size(); ++i) {
    const auto& parameter = module->tree.parameters[i];
    const std::string variable = toUpperAscii(parameter.name);
    frame.variables[variable] = {parameter.type, valueOf(cellOf(args[i]), parameter.type)};
  }
  Interpreter interpreter(*this, programOf(module), frame, nullptr);
  interpreter.run({module->tree.body});
  return storedAs(castTo(interpreter.returned(), module->tree.returns), module->tree.returns);
}

}  // namespace kebu::engine
