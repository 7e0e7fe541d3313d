#pragma once

#include <cstddef>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "ado/recordset.h"
#include "windows/support/dispatch.h"

namespace kebu::windows {

/// The fields of an open recordset, each asked for once.
class FieldTable {
 public:
  /// The field object of the name; ADO's error 3265 when there is none.
  const Dispatch& named(const Dispatch& recordset, std::string_view name);
  /// The place of the name among the columns, from 0; 3265 when there is none.
  std::size_t indexOf(const Dispatch& recordset, std::string_view name);
  const std::vector<ado::Field>& descriptions(const Dispatch& recordset);
  /// After the recordset has got other fields, or none.
  void forget() { *this = FieldTable(); }

 private:
  const Dispatch& collection(const Dispatch& recordset);
  const std::vector<Dispatch>& columns(const Dispatch& recordset);

  Dispatch collection_;
  std::map<std::string, Dispatch, std::less<>> named_;
  std::vector<Dispatch> columns_;
  std::vector<std::string> names_;
  std::vector<ado::Field> descriptions_;
};

}  // namespace kebu::windows
