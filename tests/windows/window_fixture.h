#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <stdexcept>

#include "tests/windows/arguments.h"
#include "tests/windows/dll_host.h"
#include "windows/support/text.h"
#include "windows/support/windows_api.h"
#include "workbench/windows/plugin_library.h"

namespace kebu::tests {

/// The plug-in's DLL, loaded anew for each test, so that what one leaves behind does not reach the
/// next.
class WindowTest : public testing::Test {
 protected:
  void TearDown() override {
    EXPECT_TRUE(library->canUnload());
    library.reset();
    EXPECT_EQ(GetModuleHandleW(L"KEBU_ANAGKELMORIA.dll"), nullptr);
  }

  static std::wstring path() {
    if (arguments().empty()) throw std::runtime_error("use: window_tests DLL [OPENINGS]");
    return windows::toWide(arguments().front());
  }

  std::unique_ptr<workbench::PluginLibrary> library =
      std::make_unique<workbench::PluginLibrary>(path());
};

}  // namespace kebu::tests
