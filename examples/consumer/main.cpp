// The start-up of an embedding executable, in the order the library needs, then a
// check that each step took effect.
#include <UtilsDll/UtilsDll.h>

#include <QApplication>
#include <QDir>
#include <QFontDatabase>
#include <QStyle>
#include <QTemporaryDir>
#include <QTextStream>

// The installed version header lets an embedder test the version at compile time.
static_assert(UTILSDLL_VERSION >= UTILSDLL_VERSION_CHECK(3, 2, 0), "UtilsDll 3.2 or later is needed");

namespace {

int failures = 0;

void report(QTextStream& out, const char* step, bool done, const QString& detail = QString())
{
    out << (done ? "ok   " : "FAIL ") << step << (detail.isEmpty() ? QString() : ": " + detail) << '\n';
    failures += done ? 0 : 1;
}

// A singleton of the embedding executable's own, on the library's template.
class CLaunchCounter : public Singleton<CLaunchCounter>
{
public:
    int launches = 0;

private:
    friend class Singleton<CLaunchCounter>;
    CLaunchCounter() = default;
};

} // namespace

int main(int argc, char* argv[])
{
    // The example runs in a home of its own, so that it never touches the user's settings.
    QTemporaryDir home;
    qputenv("HOME", home.path().toLocal8Bit());
    qputenv("XDG_DATA_HOME", home.filePath("data").toLocal8Bit());
    qputenv("XDG_CONFIG_HOME", home.filePath("config").toLocal8Bit());
    QApplication app(argc, argv);
    QTextStream out(stdout);

    // 1. The preferences file, before anything reads it.
    Vexa::CStorageLocation::setPreferencesFilePath(Vexa::CStorageLocation::getDefaultPreferencesFilePath());
    // 2. A temporary store, installed before other threads use settings.
    CTemporarySettings temporaryStore(QCoreApplication::applicationFilePath().toLocal8Bit().constData());
    Vexa::CSettings::setTemporarySettings(temporaryStore);
    // 3. The logger, as early as possible.
    const bool logging = Vexa::initLoggerForUtilsDll(nullptr, "consumer.log") != nullptr;
    // 4. The language, then the product's look: style sheets, fonts, logo icon, style.
    Vexa::CLanguageManager::instance()->loadLanguageForApp();
    Vexa::setPredefinedAppStyleSheet(QString(), &app);
    Vexa::loadFonts();
    const bool logo = Vexa::loadAppLogoIcon();
    QApplication::setStyle(new Vexa::CustomVexaAppStyle);

    Vexa::setLastLaunchMode(Vexa::LAUNCH_MODE_STANDALONE);
    report(out, "preferences", !Vexa::CStorageLocation::getCurrentPreferencesFilePath().isEmpty(),
           Vexa::CStorageLocation::getCurrentPreferencesFilePath());
    report(out, "logger", logging);
    report(out, "temporary store", Vexa::CSettings().usingTemporarySettings()
                                       && Vexa::getLastLaunchMode() == Vexa::LAUNCH_MODE_STANDALONE);
    report(out, "language", Vexa::CLanguageManager::instance()->langCount() > 0,
           Vexa::CLanguageManager::instance()->currentLanguageAbbrv());
    report(out, "style sheet", !app.styleSheet().isEmpty());
    report(out, "fonts", !QFontDatabase().families().isEmpty());
    report(out, "logo icon", logo && !QApplication::windowIcon().isNull());
    // With a style sheet in force the application wraps the style, so the style is
    // recognised by its hints: Qt's own styles answer 256 and the middle button.
    report(out, "style", QApplication::style()->styleHint(QStyle::SH_Menu_SubMenuPopupDelay) == 300
                             && QApplication::style()->styleHint(QStyle::SH_Slider_AbsoluteSetButtons) == Qt::LeftButton);
    ++CLaunchCounter::instance().launches;
    report(out, "own singleton", CLaunchCounter::instance().launches == 1);
    return failures == 0 ? 0 : 1;
}
