/// \file
/// What a shared library of the project shows.
#pragma once

/// Stands at a class or function that clients of a shared library can link; all others are hidden. A header
/// without it that no such header includes is not installed.
#if defined(_WIN32)
#define TBVNONPARA_API
#else
#define TBVNONPARA_API [[gnu::visibility("default")]]
#endif
