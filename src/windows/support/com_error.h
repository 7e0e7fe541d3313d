#pragma once

#include "common/error.h"
#include "windows/support/windows_api.h"

namespace kebu::windows {

// Errors are RuntimeErrors inside the library, and HRESULTs with an IErrorInfo or an EXCEPINFO
// where COM calls it. The number of a run-time error is sent in the control facility, as the host's
// run time and ADO do (3021 is 0x800A0BCD); a provider's number is its HRESULT on both sides.

/// The error of a failed call that returned nothing but its HRESULT.
RuntimeError errorOf(HRESULT result);
/// The error that a late-bound call raised; frees what `raised` holds.
RuntimeError errorIn(EXCEPINFO& raised);

/// Throws errorOf(result) when it is a failure.
inline void check(HRESULT result) {
  if (FAILED(result)) throw errorOf(result);
}

/// The result that carries an error's number.
HRESULT resultOf(const RuntimeError& error);
/// Fills in the error for a late-bound caller.
void fill(EXCEPINFO& raised, const RuntimeError& error);

/// Sets the IErrorInfo of the exception being handled; returns its HRESULT.
HRESULT reportCurrentError() noexcept;

/// Runs the body of a COM method. No exception leaves it.
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
