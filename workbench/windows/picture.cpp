#include "workbench/windows/picture.h"

#include <windows.h>

#include <objidl.h>

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

}  // namespace

void savePicture(HWND window, const std::wstring& path) {
  RECT place{};
  GetWindowRect(window, &place);
  const int width = place.right - place.left;
  const int height = place.bottom - place.top;
  HDC screen = GetDC(nullptr);
  HDC memory = CreateCompatibleDC(screen);
  HBITMAP bitmap = CreateCompatibleBitmap(screen, width, height);
  HGDIOBJ before = SelectObject(memory, bitmap);
  BitBlt(memory, 0, 0, width, height, screen, place.left, place.top, SRCCOPY);
  SelectObject(memory, before);
  Gdiplus::Status status = Gdiplus::GenericError;
  {
    const GdiPlus started;
    Gdiplus::Bitmap picture(bitmap, nullptr);
    status = picture.Save(path.c_str(), &pngEncoder, nullptr);
  }
  DeleteObject(bitmap);
  DeleteDC(memory);
  ReleaseDC(nullptr, screen);
  if (status != Gdiplus::Ok) {
    throw StepError("the picture " + windows::toUtf8(path) + " cannot be written");
  }
}

}  // namespace kebu::workbench
