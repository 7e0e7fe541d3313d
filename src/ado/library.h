#pragma once

#include "ado/command.h"
#include "ado/connection.h"
#include "ado/recordset.h"

namespace kebu::ado {

/// Makes the objects that a program creates for itself.
class Library {
 public:
  virtual ~Library() = default;

  virtual Ref<Recordset> newRecordset() = 0;
  virtual Ref<Command> newCommand() = 0;
};

}  // namespace kebu::ado
