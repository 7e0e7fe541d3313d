#pragma once

#include <memory>
#include <optional>
#include <unordered_map>
#include <vector>

#include "workbench/engine/execution/compiler.h"
#include "workbench/engine/syntax/parser.h"

namespace kebu::engine {

class Session;
struct ResultSet;

/// Statements with what was compiled of them so far.
struct Program {
  Batch batch;
  ModulePtr module;
  std::unordered_map<const void*, std::shared_ptr<Compiled>> compiled;
};

/// Runs the statements of a batch, procedure or function in one frame of variables.
class Interpreter {
 public:
  Interpreter(Session& session, Program& program, Frame& frame, std::vector<ResultSet>* results)
      : session_(session), program_(program), frame_(frame), results_(results) {}

  void run(const std::vector<ast::StatementPtr>& statements);
  /// What RETURN gave.
  const Value& returned() const { return returned_; }

 private:
  enum class Flow { Next, Break, Continue, Return };

  void declareIn(const ast::Statement& node);
  Flow statement(const ast::Statement& node);
  Flow block(const std::vector<ast::StatementPtr>& statements);
  void query(const ast::Query& node);
  void assign(const ast::Query& node, const ast::Select& select);
  void change(const std::shared_ptr<Compiled>& ready);
  void counted(std::int64_t rows);
  void exec(const ast::Exec& node);
  void createModule(const ast::CreateModule& node);
  void createIndex(const ast::CreateIndex& node);
  void drop(const ast::Drop& node);
  Value value(const ast::Expr& expr, const SqlType* type);
  bool condition(const ast::Expr& expr);
  void setVariable(const std::string& name, const ast::Expr& expr);
  Variable& variable(const std::string& name);
  Database& database() const;
  Compiler compiler();

  template <class Make>
  std::shared_ptr<Compiled> compiled(const void* node, Make&& make);

  Session& session_;
  Program& program_;
  Frame& frame_;
  std::vector<ResultSet>* results_;
  Value returned_;
};

}  // namespace kebu::engine
