// utilsdll-showcase: starts the library the way an embedding executable does and
// shows what it offers: a gallery window, or its pictures when there is no display.

#include "DialogPictures.h"
#include "ShowcaseReport.h"
#include "ShowcaseWindow.h"

#include "LanguageManager.h"
#include "LoggerBootstrap.h"
#include "Settings.h"
#include "TemporarySettings.h"
#include "storageLocation.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QCoreApplication>
#include <QDir>
#include <QTextStream>

namespace {

// "--render-dialogs <folder>": pictures of every dialog instead of the report. The
// mode needs a GUI application, so it is told apart before the application exists.
int renderDialogsMode(int argc, char* argv[])
{
    for (int i = 1; i + 1 < argc; ++i) {
        if (QByteArray(argv[i]) != "--render-dialogs")
            continue;
        QApplication app(argc, argv);
        // Dressed as the product dresses itself, so that the pictures show its look.
        dressLikeTheProduct(app);
        const QStringList written = renderDialogPictures(QString::fromLocal8Bit(argv[i + 1]));
        QTextStream out(stdout);
        for (const QString& file : written)
            out << file << '\n';
        return written.isEmpty() ? 1 : 0;
    }
    return -1;
}

// Without a display, or when asked for pictures, the gallery runs offscreen: it
// writes its pictures and ends instead of opening a window.
QString screenshotFolder(int argc, char* argv[])
{
    for (int i = 1; i + 1 < argc; ++i) {
        if (QByteArray(argv[i]) == "--screenshots")
            return QString::fromLocal8Bit(argv[i + 1]);
    }
    const bool hasDisplay = qEnvironmentVariableIsSet("DISPLAY") || qEnvironmentVariableIsSet("WAYLAND_DISPLAY");
    const bool offscreen = qgetenv("QT_QPA_PLATFORM") == "offscreen";
    if (hasDisplay && !offscreen)
        return QString();
    return QDir(QDir::tempPath()).filePath("utilsdll-showcase");
}

int writeScreenshots(ShowcaseWindow& window, const QString& folder)
{
    window.show();
    QStringList written = window.saveScreenshots(folder);
    const QString dialogs = QDir(folder).filePath("dialogs");
    written << renderDialogPictures(dialogs);
    // The chooser is shown on the folder of pictures just written.
    const QString chooser = renderFolderChooserPicture(dialogs, folder);
    if (!chooser.isEmpty())
        written << chooser;
    QTextStream out(stdout);
    out << '\n' << "Screenshots (" << QDir::toNativeSeparators(folder) << ")" << '\n';
    for (const QString& file : written)
        out << "  " << QDir::toNativeSeparators(file) << '\n';
    return written.isEmpty() ? 1 : 0;
}

} // namespace

int main(int argc, char* argv[])
{
    const int rendered = renderDialogsMode(argc, argv);
    if (rendered >= 0)
        return rendered;

    const QString screenshots = screenshotFolder(argc, argv);
    if (!screenshots.isEmpty())
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    QCoreApplication::setApplicationName("utilsdll-showcase");

    QCommandLineParser parser;
    parser.setApplicationDescription("Starts UtilsDll as an embedding executable does and shows what it offers. "
                                     "Without a display it writes pictures of the gallery instead.");
    parser.addHelpOption();
    const QCommandLineOption preferences("preferences", "The preferences ini file.", "file");
    const QCommandLineOption temporary("temporary-store", "Run on a temporary settings store.");
    const QCommandLineOption pictures("screenshots", "Write pictures of the gallery to <folder> and end.", "folder");
    parser.addOption(preferences);
    parser.addOption(temporary);
    parser.addOption(pictures);
    parser.process(app);

    // 1. The preferences file, before anything reads it.
    Vexa::CStorageLocation::setPreferencesFilePath(parser.isSet(preferences)
                                                       ? parser.value(preferences)
                                                       : Vexa::CStorageLocation::getDefaultPreferencesFilePath());

    // 2. The optional temporary store, seeded from DefaultTemporarySettings.ini
    //    beside the executable. The gallery takes it over.
    CTemporarySettings* temporaryStore = nullptr;
    if (parser.isSet(temporary)) {
        temporaryStore = new CTemporarySettings(QCoreApplication::applicationFilePath().toLocal8Bit().constData());
        Vexa::CSettings::setTemporarySettings(*temporaryStore);
    }

    // 3. The logger, as early as possible.
    Vexa::initLoggerForUtilsDll(nullptr, "utilsdll-showcase.log");

    // 4. The language, before any text is shown.
    Vexa::CLanguageManager::instance()->loadLanguageForApp();

    // 5-8. The style sheets, the fonts, the logo icon and the style.
    dressLikeTheProduct(app);

    QTextStream(stdout) << "UtilsDll showcase" << '\n' << showcaseReport(temporaryStore);

    ShowcaseWindow window(temporaryStore);
    if (!screenshots.isEmpty())
        return writeScreenshots(window, screenshots);
    window.show();
    return QApplication::exec();
}
