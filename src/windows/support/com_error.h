#pragma once

#include <windows.h>
// After windows.h, which it builds on.
#include <oaidl.h>

#include "common/error.h"

namespace kebu::windows {

// One error idiom: inside there are RuntimeErrors, at a COM edge HRESULTs with
// an IErrorInfo or an EXCEPINFO. A run-time error's number travels in the
// control facility, as the host's run time and ADO send theirs (3021 is
// 0x800A0BCD); a provider's number is its HRESULT on both sides.

/// The error that a failed call tells of by its result alone.
RuntimeError errorOf(HRESULT result);
/// The error that a late-bound call raised; frees what `raised` holds.
RuntimeError errorIn(EXCEPINFO& raised);

/// Throws errorOf(result) when it is a failure.
inline void check(HRESULT result) {
  if (FAILED(result)) throw errorOf(result);
}

/// The result that carries an error's number.
HRESULT resultOf(const RuntimeError& error);
/// Fills in what a late-bound caller is told of an error.
void fill(EXCEPINFO& raised, const RuntimeError& error);

/// Leaves the exception being handled behind for the caller; its HRESULT.
HRESULT reportCurrentError() noexcept;

/// Runs what a COM method does. No exception gets past it.
template <class Work>
HRESULT hresultOf(Work&& work) noexcept {
  try {
    work();
    return S_OK;
  } catch (...) {
    return reportCurrentError();
  }
}

}  // namespace kebu::windows
