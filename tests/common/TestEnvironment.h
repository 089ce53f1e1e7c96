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

private:
    QByteArray m_root;
};

} // namespace UtilsDllTest

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
        return QTest::qExec(&testObject, argc, argv);            \
    }

#define UTILSDLL_TEST_MAIN(TestObject) UTILSDLL_TEST_MAIN_WITH(TestObject, QCoreApplication)
