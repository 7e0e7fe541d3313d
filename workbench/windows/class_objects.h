#pragma once

#include <functional>
#include <vector>

#include "ado/library.h"
#include "windows/support/windows_api.h"

namespace kebu::workbench {

/// Registers the workbench's objects under ADO's class identifiers for this process, for as long as
/// it lives. The library must outlive it.
class ClassObjects {
 public:
  ClassObjects(ado::Library& library, std::function<Ref<ado::Connection>()> newConnection);
  ~ClassObjects();
  ClassObjects(const ClassObjects&) = delete;
  ClassObjects& operator=(const ClassObjects&) = delete;

 private:
  std::vector<DWORD> cookies_;
};

}  // namespace kebu::workbench
