#include "common/error.h"

#include <new>

namespace kebu {

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
