// Compiled only: every public header, under the switches that KDE's and many companies'
// builds set, so that a header using the signals/slots keywords or a cast from ASCII
// breaks the build here before it breaks an embedder's.
#include <UtilsDll/UtilsDll.h>

#if !defined(QT_NO_KEYWORDS) || !defined(QT_NO_CAST_FROM_ASCII) || !defined(QT_NO_CAST_TO_ASCII) \
    || !defined(QT_USE_QSTRINGBUILDER)
#error "compile this file with the strict Qt switches"
#endif

#if UTILSDLL_VERSION < UTILSDLL_VERSION_CHECK(3, 0, 0)
#error "the version header's check macro does not compare"
#endif
