#pragma once
// The platform's component types: its own headers where it has them, ours where it has not.

#ifdef _WIN32
#include <windows.h>

#include <dispex.h>
#include <oaidl.h>
#include <ocidl.h>
#include <olectl.h>

#include <string_view>
/// The .def file of the Windows build lists the exports.
#define CANVAS_EXPORT extern "C"
#else
#include "component/platform/automation_linux.h"
#define CANVAS_EXPORT extern "C" __attribute__((visibility("default")))
#endif
