#include "workbench/windows/picture.h"

#include <cstdint>
#include <vector>

// GDI+'s header uses the min and max macros, which windows_api.h keeps out.
#include <algorithm>
namespace Gdiplus {
using std::max;
using std::min;
}  // namespace Gdiplus
#include <gdiplus.h>

#include "windows/support/text.h"
#include "windows/views/drawing/painting.h"
#include "workbench/player/scenario.h"

namespace kebu::workbench {

namespace {

/// The system's encoder of PNG files.
constexpr CLSID pngEncoder = {
    0x557cf406, 0x1a04, 0x11d3, {0x9a, 0x73, 0x00, 0x00, 0xf8, 0x1e, 0xf3, 0x2e}};

class GdiPlus {
 public:
  GdiPlus() { Gdiplus::GdiplusStartup(&token_, &input_, nullptr); }
  GdiPlus(const GdiPlus&) = delete;
  GdiPlus& operator=(const GdiPlus&) = delete;
  ~GdiPlus() { Gdiplus::GdiplusShutdown(token_); }

 private:
  Gdiplus::GdiplusStartupInput input_;
  ULONG_PTR token_ = 0;
};

using Pixels = std::vector<std::uint32_t>;

/// A copy of a rectangle of the screen.
class ScreenCopy {
 public:
  explicit ScreenCopy(const RECT& place)
      : width_(place.right - place.left), height_(place.bottom - place.top) {
    const windows::ScreenDc screen;
    memory_.reset(CreateCompatibleDC(screen.get()));
    bitmap_.reset(CreateCompatibleBitmap(screen.get(), width_, height_));
    const windows::Selected selected(memory_.get(), bitmap_.get());
    BitBlt(memory_.get(), 0, 0, width_, height_, screen.get(), place.left, place.top, SRCCOPY);
  }

  HBITMAP bitmap() const { return bitmap_.get(); }
  Pixels pixels() const {
    Pixels all(static_cast<std::size_t>(width_) * static_cast<std::size_t>(height_));
    BITMAPINFO info{};
    info.bmiHeader = {sizeof info.bmiHeader, width_, height_, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
    GetDIBits(memory_.get(), bitmap_.get(), 0, static_cast<UINT>(height_), all.data(), &info,
              DIB_RGB_COLORS);
    return all;
  }

 private:
  int width_;
  int height_;
  windows::OwnedMemoryDc memory_;
  windows::OwnedBitmap bitmap_;
};

bool hasOneColour(const Pixels& pixels) {
  return std::ranges::all_of(pixels, [&](std::uint32_t pixel) { return pixel == pixels.front(); });
}

/// The screen shows what a window has drawn a little later, and piece by piece. A new window is
/// black at first.
void waitUntilDrawn(HWND window, const RECT& place) {
  RedrawWindow(window, nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
  constexpr DWORD pause = 80;  // milliseconds
  constexpr int longest = 40;  // pauses, for a screen that never comes to rest
  Pixels before;
  for (int i = 0; i < longest; ++i) {
    Sleep(pause);
    Pixels now = ScreenCopy(place).pixels();
    if (now == before && !hasOneColour(now)) return;
    before = std::move(now);
  }
}

}  // namespace

void savePicture(HWND window, const std::wstring& path) {
  RECT place{};
  GetWindowRect(window, &place);
  waitUntilDrawn(window, place);
  const ScreenCopy copy(place);
  const GdiPlus started;
  Gdiplus::Bitmap picture(copy.bitmap(), nullptr);
  const Gdiplus::Status status = picture.Save(path.c_str(), &pngEncoder, nullptr);
  if (status != Gdiplus::Ok) {
    throw StepError("the picture " + windows::toUtf8(path) + " cannot be written");
  }
}

}  // namespace kebu::workbench
