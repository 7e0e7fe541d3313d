#pragma once

#include <windows.h>

#include <functional>
#include <vector>

#include "ado/library.h"

namespace kebu::workbench {

/// While it lives, whoever in this process creates one of ADO's objects gets
/// one of these. The library must outlive it.
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
