#pragma once

#include <QtTest>

namespace UtilsDllTest {

// Gives the whole test process a home of its own: HOME, the XDG folders and TMPDIR
// point into a fresh folder that is removed afterwards. It must be made before the
// application object, since Qt reads several of these once. Set
// UTILSDLL_KEEP_TEST_HOME=1 to keep the folder for inspection.
class IsolatedEnvironment
{
public:
    IsolatedEnvironment();
    ~IsolatedEnvironment();
    IsolatedEnvironment(const IsolatedEnvironment&) = delete;
    IsolatedEnvironment& operator=(const IsolatedEnvironment&) = delete;

    static QString root();
    static QString home();

    // The graphics drivers (OpenGL vendor libraries, DRI drivers, Qt's GL integrations)
    // mapped into this process. The library draws nothing with OpenGL, so a test that
    // loads one depends on the machine's graphics stack rather than on the code.
    static QStringList loadedGraphicsDrivers();
    // Turns a test program's result into a failure when a graphics driver was loaded.
    static int failIfGraphicsDriverLoaded(int result);

private:
    QByteArray m_root;
};

} // namespace UtilsDllTest

// For a function that acts through native windows: on Windows it is skipped offscreen,
// where winId() is no HWND, and its run under the windows plug-in covers it
// (utilsdll_add_windows_native_run).
#ifdef Q_OS_WIN
#define UTILSDLL_NEEDS_NATIVE_WINDOWS(reason)                              \
    do {                                                                   \
        if (QGuiApplication::platformName() == QLatin1String("offscreen")) \
            QSKIP(reason);                                                 \
    } while (false)
#else
#define UTILSDLL_NEEDS_NATIVE_WINDOWS(reason) static_cast<void>(0)
#endif

// QTEST_MAIN with an isolated environment. AppClass is QCoreApplication,
// QGuiApplication or QApplication.
#define UTILSDLL_TEST_MAIN_WITH(TestObject, AppClass)            \
    int main(int argc, char** argv)                              \
    {                                                            \
        UtilsDllTest::IsolatedEnvironment isolatedEnvironment;   \
        AppClass app(argc, argv);                                \
        app.setAttribute(Qt::AA_Use96Dpi, true);                 \
        TestObject testObject;                                   \
        QTEST_SET_MAIN_SOURCE_PATH                               \
        const int result = QTest::qExec(&testObject, argc, argv); \
        return UtilsDllTest::IsolatedEnvironment::failIfGraphicsDriverLoaded(result); \
    }

#define UTILSDLL_TEST_MAIN(TestObject) UTILSDLL_TEST_MAIN_WITH(TestObject, QCoreApplication)
