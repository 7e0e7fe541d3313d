#pragma once

// The Windows headers that the whole project builds on, with the macros that they must be read
// with. Nothing else includes <windows.h>. What is needed in single places only, such as
// <commctrl.h>, is included there, after this.

#ifndef UNICODE
#define UNICODE
#endif
#ifndef _UNICODE
#define _UNICODE
#endif
#ifndef NOMINMAX
#define NOMINMAX
#endif
#ifndef WIN32_LEAN_AND_MEAN
#define WIN32_LEAN_AND_MEAN
#endif

#include <windows.h>

// COM, which builds on windows.h.
#include <ole2.h>

#include <ocidl.h>
#include <olectl.h>
