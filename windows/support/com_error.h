#pragma once

#include <windows.h>
// After windows.h, which it builds on.
#include <oaidl.h>

#include "common/error.h"

namespace kebu::windows {

// One error idiom: inside there are RuntimeErrors, at a COM edge HRESULTs with
// an IErrorInfo. A run-time error's number travels in the control facility, as
// the host's run time and ADO send theirs (3021 is 0x800A0BCD).

/// The error that a failed call tells of, with the description that it left
/// behind.
RuntimeError errorOf(HRESULT result);
/// The error that a late-bound call raised; frees what `raised` holds.
RuntimeError errorOf(HRESULT result, EXCEPINFO &raised);

/// Throws errorOf(result) when it is a failure.
inline void check(HRESULT result) {
  if (FAILED(result))
    throw errorOf(result);
}

/// Leaves the exception being handled behind for the caller; its HRESULT.
HRESULT reportCurrentError() noexcept;

/// Runs what a COM method does. No exception gets past it.
template <class Work> HRESULT hresultOf(Work &&work) noexcept {
  try {
    work();
    return S_OK;
  } catch (...) {
    return reportCurrentError();
  }
}

} // namespace kebu::windows
