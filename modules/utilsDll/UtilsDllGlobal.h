#pragma once

// The one export macro of the library. Everything else is hidden by default, so a
// symbol that an embedding executable needs must carry UTILSDLL_EXPORT.
#if defined(_WIN32)
#  if defined(UTILSDLL_LIBRARY)
#    define UTILSDLL_EXPORT __declspec(dllexport)
#  else
#    define UTILSDLL_EXPORT __declspec(dllimport)
#  endif
#else
#  define UTILSDLL_EXPORT __attribute__((visibility("default")))
#endif

// The namespace of the library's own classes and functions. Some names stand at
// global scope on purpose (CTemporarySettings, CDelayedCall, the wait functions...).
#define VEXA_NAMESPACE Vexa
