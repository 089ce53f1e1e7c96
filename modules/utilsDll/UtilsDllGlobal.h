#pragma once

/// \file
/// \brief The export macro and the name of the library's namespace.

/// \def UTILSDLL_EXPORT
/// \brief The one export macro of the library.
///
/// Everything else is built with hidden visibility, so a symbol that an embedding
/// executable needs must carry UTILSDLL_EXPORT. On Windows it exports while the library
/// itself is built (UTILSDLL_LIBRARY) and imports everywhere else.
#if defined(_WIN32)
#  if defined(UTILSDLL_LIBRARY)
#    define UTILSDLL_EXPORT __declspec(dllexport)
#  else
#    define UTILSDLL_EXPORT __declspec(dllimport)
#  endif
#else
#  define UTILSDLL_EXPORT __attribute__((visibility("default")))
#endif

/// \brief The namespace of the library's own classes and functions, Vexa.
///
/// Some names stand at global scope on purpose (CTemporarySettings, CDelayedCall, the
/// wait functions...): callers name them without a namespace.
#define VEXA_NAMESPACE Vexa

/// \namespace Vexa
/// \brief The library's own namespace, written VEXA_NAMESPACE in code.
