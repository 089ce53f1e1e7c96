// utilsdll-showcase: starts the library the way an embedding executable does and
// shows what it sees.

#include "DialogPictures.h"
#include "ShowcaseReport.h"

#include "AppBootstrap.h"
#include "LoggerBootstrap.h"
#include "customvexaappstyle.h"
#include "Settings.h"
#include "TemporarySettings.h"
#include "storageLocation.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QCoreApplication>
#include <QTextStream>

#include <memory>

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
        Vexa::setPredefinedAppStyleSheet(QString(), &app);
        Vexa::loadFonts();
        Vexa::loadAppLogoIcon();
        QApplication::setStyle(new Vexa::CustomVexaAppStyle);
        const QStringList written = renderDialogPictures(QString::fromLocal8Bit(argv[i + 1]));
        QTextStream out(stdout);
        for (const QString& file : written)
            out << file << '\n';
        return written.isEmpty() ? 1 : 0;
    }
    return -1;
}

} // namespace

int main(int argc, char* argv[])
{
    const int rendered = renderDialogsMode(argc, argv);
    if (rendered >= 0)
        return rendered;

    QCoreApplication app(argc, argv);
    QCoreApplication::setApplicationName("utilsdll-showcase");

    QCommandLineParser parser;
    parser.setApplicationDescription("Starts UtilsDll as an embedding executable does and prints what it sees.");
    parser.addHelpOption();
    const QCommandLineOption preferences("preferences", "The preferences ini file.", "file");
    const QCommandLineOption temporary("temporary-store", "Run on a temporary settings store.");
    parser.addOption(preferences);
    parser.addOption(temporary);
    parser.process(app);

    // 1. The preferences file, before anything reads it.
    Vexa::CStorageLocation::setPreferencesFilePath(parser.isSet(preferences)
                                                       ? parser.value(preferences)
                                                       : Vexa::CStorageLocation::getDefaultPreferencesFilePath());

    // 2. The optional temporary store, seeded from DefaultTemporarySettings.ini
    //    beside the executable.
    std::unique_ptr<CTemporarySettings> temporaryStore;
    if (parser.isSet(temporary)) {
        temporaryStore = std::make_unique<CTemporarySettings>(
            QCoreApplication::applicationFilePath().toLocal8Bit().constData());
        Vexa::CSettings::setTemporarySettings(*temporaryStore);
    }

    // 3. The logger, as early as possible.
    Vexa::initLoggerForUtilsDll(nullptr, "utilsdll-showcase.log");

    QTextStream(stdout) << "UtilsDll showcase" << '\n' << showcaseReport(temporaryStore.get());
    return 0;
}
