#pragma once

#include <memory>
#include <unordered_map>

#include "workbench/engine/catalogue/catalogue.h"
#include "workbench/engine/execution/compiler.h"
#include "workbench/engine/syntax/parser.h"

namespace kebu::engine {

/// The statements of a batch or module, with what was compiled of them so far.
struct Program {
  Batch batch;
  ModulePtr module;
  /// By the node of the tree.
  std::unordered_map<const void*, std::shared_ptr<Compiled>> compiled;
};

}  // namespace kebu::engine
