#include "workbench/windows/trace_listener.h"

#include <string>

#include "windows/support/text.h"
#include "windows/support/windows_api.h"

namespace kebu::workbench {

namespace {

constexpr DWORD printed = 0x40010006;  // the exception that carries a line for a debugger

std::ostream* stream = nullptr;

std::string fromAnsi(const char* text, int length) {
  const int wideLength = MultiByteToWideChar(CP_ACP, 0, text, length, nullptr, 0);
  std::wstring wide(static_cast<std::size_t>(wideLength), L'\0');
  MultiByteToWideChar(CP_ACP, 0, text, length, wide.data(), wideLength);
  return windows::toUtf8(wide);
}

LONG CALLBACK onException(EXCEPTION_POINTERS* exception) {
  const EXCEPTION_RECORD& record = *exception->ExceptionRecord;
  if (record.ExceptionCode != printed || record.NumberParameters < 2) {
    return EXCEPTION_CONTINUE_SEARCH;
  }
  // The length counts the final zero.
  const auto length = static_cast<int>(record.ExceptionInformation[0]);
  const auto* const text = reinterpret_cast<const char*>(record.ExceptionInformation[1]);
  if (length > 0) *stream << fromAnsi(text, length - 1) << '\n' << std::flush;
  return EXCEPTION_CONTINUE_EXECUTION;
}

}  // namespace

TraceListener::TraceListener(std::ostream& out) {
  stream = &out;
  handler_ = AddVectoredExceptionHandler(1, onException);
}

TraceListener::~TraceListener() {
  RemoveVectoredExceptionHandler(handler_);
  stream = nullptr;
}

}  // namespace kebu::workbench
