#pragma once

// What of the Windows headers the adapter needs, without their macros for everyday words.
#ifndef WIN32_LEAN_AND_MEAN
#define WIN32_LEAN_AND_MEAN
#endif
#ifndef NOMINMAX
#define NOMINMAX
#endif

#include <windows.h>
// The order matters to them.
#include <ocidl.h>
#include <ole2.h>
#include <oleauto.h>
