#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <optional>
#include <stdexcept>

#include "tests/windows/arguments.h"
#include "tests/windows/dll_host.h"
#include "windows/support/text.h"
#include "windows/support/windows_api.h"
#include "workbench/windows/plugin_library.h"
#include "workbench/windows/window_reader.h"

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

/// A test in the window that a host has opened, until the test ends.
class OpenWindowTest : public WindowTest {
 protected:
  void open() {
    if (host) return;
    host.emplace(*library);
    (*host)->open();
    pumpWaiting();
  }
  void TearDown() override {
    if (host) (*host)->close();
    host.reset();
    WindowTest::TearDown();
  }

  workbench::WindowReader reader() const { return workbench::WindowReader(shownForm()); }
  HWND windowOf(const char* control) const { return reader().control(control).window; }

  std::optional<DllHost> host;
};

}  // namespace kebu::tests
