#include "common/error.h"

#include <new>

namespace kebu {

RuntimeError RuntimeError::invalidCall() {
  return {5, "Invalid procedure call or argument"};
}
RuntimeError RuntimeError::overflow() {
  return {6, "Overflow"};
}
RuntimeError RuntimeError::outOfMemory() {
  return {7, "Out of memory"};
}
RuntimeError RuntimeError::divisionByZero() {
  return {11, "Division by zero"};
}
RuntimeError RuntimeError::typeMismatch() {
  return {13, "Type mismatch"};
}
RuntimeError RuntimeError::internalError(const std::string& detail) {
  return {51, detail.empty() ? "Internal error" : "Internal error: " + detail};
}
RuntimeError RuntimeError::objectNotSet() {
  return {91, "Object variable or With block variable not set"};
}
RuntimeError RuntimeError::invalidNull() {
  return {94, "Invalid use of Null"};
}

RuntimeError RuntimeError::current() {
  try {
    throw;
  } catch (const RuntimeError& error) {
    return error;
  } catch (const std::bad_alloc&) {
    return outOfMemory();
  } catch (const std::exception& error) {
    return internalError(error.what());
  } catch (...) {
    return internalError();
  }
}

}  // namespace kebu
