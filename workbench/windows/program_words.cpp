#include "workbench/cli/program_words.h"

#include "windows/support/windows_api.h"
// After it, which they build on.
#include <fcntl.h>
#include <io.h>
#include <shellapi.h>

#include <cstdio>
#include <memory>

#include "windows/support/text.h"

namespace kebu::workbench {

std::vector<std::string> programWords(int /*argc*/, char** /*argv*/) {
  SetConsoleOutputCP(CP_UTF8);
  for (FILE* stream : {stdout, stderr}) _setmode(_fileno(stream), _O_BINARY);
  int count = 0;
  const std::unique_ptr<wchar_t*, decltype(&LocalFree)> words(
      CommandLineToArgvW(GetCommandLineW(), &count), LocalFree);
  std::vector<std::string> result;
  for (int i = 1; i < count; ++i) result.push_back(windows::toUtf8(words.get()[i]));
  return result;
}

}  // namespace kebu::workbench
