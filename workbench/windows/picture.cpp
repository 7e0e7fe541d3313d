#include "workbench/windows/picture.h"

#include <windows.h>

#include <objidl.h>

#include <cstdint>
#include <vector>

// GDI+ wants min and max, which the build keeps away from everybody else.
#include <algorithm>
namespace Gdiplus {
using std::max;
using std::min;
}  // namespace Gdiplus
#include <gdiplus.h>

#include "windows/support/text.h"
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

/// What the screen shows of a rectangle.
class Shot {
 public:
  explicit Shot(const RECT& place)
      : width_(place.right - place.left), height_(place.bottom - place.top) {
    bitmap_ = CreateCompatibleBitmap(screen_, width_, height_);
    HGDIOBJ before = SelectObject(memory_, bitmap_);
    BitBlt(memory_, 0, 0, width_, height_, screen_, place.left, place.top, SRCCOPY);
    SelectObject(memory_, before);
  }
  Shot(const Shot&) = delete;
  Shot& operator=(const Shot&) = delete;
  ~Shot() {
    DeleteObject(bitmap_);
    DeleteDC(memory_);
    ReleaseDC(nullptr, screen_);
  }

  HBITMAP bitmap() const { return bitmap_; }
  Pixels pixels() const {
    Pixels all(static_cast<std::size_t>(width_) * static_cast<std::size_t>(height_));
    BITMAPINFO info{};
    info.bmiHeader = {sizeof info.bmiHeader, width_, height_, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
    GetDIBits(memory_, bitmap_, 0, static_cast<UINT>(height_), all.data(), &info, DIB_RGB_COLORS);
    return all;
  }

 private:
  int width_;
  int height_;
  HDC screen_ = GetDC(nullptr);
  HDC memory_ = CreateCompatibleDC(screen_);
  HBITMAP bitmap_ = nullptr;
};

/// What a window has drawn reaches the screen a little later, and piece by piece.
void waitUntilDrawn(HWND window, const RECT& place) {
  RedrawWindow(window, nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
  constexpr DWORD pause = 80;  // milliseconds
  constexpr int longest = 40;  // pauses, for a screen that never comes to rest
  Pixels before;
  for (int i = 0; i < longest; ++i) {
    Sleep(pause);
    Pixels now = Shot(place).pixels();
    if (now == before) return;
    before = std::move(now);
  }
}

}  // namespace

void savePicture(HWND window, const std::wstring& path) {
  RECT place{};
  GetWindowRect(window, &place);
  waitUntilDrawn(window, place);
  const Shot shot(place);
  const GdiPlus started;
  Gdiplus::Bitmap picture(shot.bitmap(), nullptr);
  const Gdiplus::Status status = picture.Save(path.c_str(), &pngEncoder, nullptr);
  if (status != Gdiplus::Ok) {
    throw StepError("the picture " + windows::toUtf8(path) + " cannot be written");
  }
}

}  // namespace kebu::workbench
