#include "TestEnvironment.h"

#include "AboutDlg.h"
#include "AppBootstrap.h"
#include "CBaseDialog.h"
#include "DialogDriver.h"
#include "HostWarningDlg.h"
#include "MessageBox.h"

#include <QtWidgets>

#include <cmath>
#include <memory>

#ifndef Q_OS_WIN
#include <unistd.h>
#endif

using UtilsDllTest::whenModalShown;
using Vexa::CErrStrings;
using Files = QMap<QString, QByteArray>;

namespace {

#ifdef Q_OS_WIN
// What the call showed, in the form that Linux writes to the standard error stream: the
// system box's title and text, read and closed from a Qt timer.
QString shownText(const CErrStrings& strings, void (CErrStrings::*show)() const = &CErrStrings::ShowSmallFreeSpaceDialog)
{
    QString shown = "no box";
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, [&shown] {
        if (HWND box = UtilsDllTest::shownSystemDialog()) {
            wchar_t title[64] = {}, text[512] = {};
            const int titleLength = GetWindowTextW(box, title, 64);
            const int textLength = int(GetDlgItemTextW(box, 0xFFFF, text, 512)); // the box's text control
            shown = QString::fromWCharArray(title, titleLength) + ": " + QString::fromWCharArray(text, textLength) + '\n';
            PostMessageW(box, WM_COMMAND, IDOK, 0);
        }
    });
    timer.start(100);
    (strings.*show)();
    return shown;
}
#else
// What the call wrote to the standard error stream.
QString shownText(const CErrStrings& strings, void (CErrStrings::*show)() const = &CErrStrings::ShowSmallFreeSpaceDialog)
{
    QTemporaryFile capture;
    if (!capture.open())
        return "capture failed";
    fflush(stderr);
    const int saved = dup(STDERR_FILENO);
    dup2(capture.handle(), STDERR_FILENO);
    (strings.*show)();
    dup2(saved, STDERR_FILENO);
    close(saved);
    capture.seek(0);
    return QString::fromUtf8(capture.readAll());
}
#endif

enum Entry { Information, Warning, Critical, YesNo, Rotate, SaveDiscardCancel, BackgroundProcessing };

// Runs the entry and returns its answer as an int (-1 for the entries with none).
int runEntry(Entry entry, const QString& text, int height)
{
    switch (entry) {
    case Information: CMessageBox::information(nullptr, text, height); return -1;
    case Warning: CMessageBox::warning(nullptr, text, height); return -1;
    case Critical: CMessageBox::critical(nullptr, text, height); return -1;
    case YesNo: return CMessageBox::yesNoMessage(nullptr, text, height);
    case Rotate: return CMessageBox::rotateQuestion(nullptr, text, height) ? 1 : 0;
    case SaveDiscardCancel: return CMessageBox::saveDiscardCancelMessage(nullptr, text, height);
    case BackgroundProcessing: return CMessageBox::backgroundProcessingCancelMessage(nullptr, text);
    }
    return -2;
}

// What a user does: "Escape" or "Return" to the focused widget, else a click on the named button.
void act(QWidget* dialog, const QString& action)
{
    QWidget* focus = QApplication::focusWidget() ? QApplication::focusWidget() : dialog;
    if (action == "Escape" || action == "Return")
        QTest::keyClick(focus, action == "Escape" ? Qt::Key_Escape : Qt::Key_Return);
    else
        QTest::mouseClick(dialog->findChild<QPushButton*>(action), Qt::LeftButton);
}

// The dialog's buttons from left to right, as "name:text", the default one starred.
QStringList buttonsOf(QWidget* dialog)
{
    QList<QPushButton*> buttons = dialog->findChildren<QPushButton*>();
    std::sort(buttons.begin(), buttons.end(), [dialog](QPushButton* a, QPushButton* b) {
        return a->mapTo(dialog, QPoint()).x() < b->mapTo(dialog, QPoint()).x();
    });
    QStringList result;
    for (QPushButton* button : buttons)
        result << button->objectName() + ':' + button->text() + (button->isDefault() ? "*" : "");
    return result;
}

QString textOf(QWidget* dialog, const char* name)
{
    return dialog->findChild<QWidget*>(name)->property("text").toString();
}

const QString s_separator = "<br>******************************************************<br>";

// The licence folder sits beside the test program, which has a folder of its own.
QString licencesFolder()
{
    return QCoreApplication::applicationDirPath() + "/Licenses";
}

void writeLicences(const Files& files)
{
    QDir().mkpath(licencesFolder());
    for (auto it = files.begin(); it != files.end(); ++it) {
        QFile file(licencesFolder() + '/' + it.key());
        if (file.open(QIODevice::WriteOnly))
            file.write(it.value());
    }
}

QList<QLabel*> licenceLabels(QWidget* dialog)
{
    return dialog->findChildren<QLabel*>("lbVisitVexaPatentsPage");
}

// The contrast ratio, as the eye weighs light, of the colour farthest from the most common
// one (the background) in a picture of a text; 1 is none, 21 black on white.
double textContrast(const QImage& picture)
{
    const auto luminance = [](QRgb rgb) {
        const auto linear = [](int channel) {
            const double c = channel / 255.0;
            return c <= 0.03928 ? c / 12.92 : std::pow((c + 0.055) / 1.055, 2.4);
        };
        return 0.2126 * linear(qRed(rgb)) + 0.7152 * linear(qGreen(rgb)) + 0.0722 * linear(qBlue(rgb));
    };
    QHash<QRgb, int> counts;
    for (int y = 0; y < picture.height(); ++y)
        for (int x = 0; x < picture.width(); ++x)
            ++counts[picture.pixel(x, y) | 0xFF000000];
    QRgb background = 0;
    for (auto it = counts.cbegin(); it != counts.cend(); ++it)
        if (it.value() > counts.value(background))
            background = it.key();
    double contrast = 1.0;
    for (auto it = counts.cbegin(); it != counts.cend(); ++it) {
        const double a = luminance(it.key()) + 0.05, b = luminance(background) + 0.05;
        contrast = std::max(contrast, std::max(a, b) / std::min(a, b));
    }
    return contrast;
}

class HeaderDialog : public CBaseDialog
{
public:
    explicit HeaderDialog(int headerHeight) : CBaseDialog(nullptr, {})
    {
        setHeaderHeight(headerHeight);
        setMinimumSize(200, 120);
        button = new QPushButton("Button", this);
        button->setGeometry(100, 80, 80, 30);
    }
    QPushButton* button;
};

// Mouse events carry explicit global positions: the dialog moves under the pointer.
void sendMouse(QWidget* target, QEvent::Type type, const QPoint& global, Qt::MouseButton button,
               Qt::MouseButtons held)
{
    QMouseEvent event(type, target->mapFromGlobal(global), global, button, held, Qt::NoModifier);
    QApplication::sendEvent(target, &event);
}

} // namespace

using Answers = QList<QPair<QString, int>>;
Q_DECLARE_METATYPE(Entry)
Q_DECLARE_METATYPE(Answers)
Q_DECLARE_METATYPE(Qt::MouseButton)

// The base dialog's drag, the message boxes, the host warning, the about boxes and the error strings.
class TestDialogs : public QObject
{
    Q_OBJECT
private slots:
    void cleanup() { QDir(licencesFolder()).removeRecursively(); }

    void dragByHeaderBand_data()
    {
        QTest::addColumn<int>("header");
        QTest::addColumn<QPoint>("press");
        QTest::addColumn<bool>("onButton");
        QTest::addColumn<Qt::MouseButton>("button");
        QTest::addColumn<Qt::MouseButton>("release");
        QTest::addColumn<bool>("drags");

        const auto left = Qt::LeftButton, right = Qt::RightButton;
        QTest::newRow("band 30, press at 30") << 30 << QPoint(10, 30) << false << left << left << true;
        QTest::newRow("band 30, press at 31") << 30 << QPoint(10, 31) << false << left << left << false;
        QTest::newRow("no band, press on a button") << 0 << QPoint(5, 5) << true << left << left << false;
        QTest::newRow("right button") << 0 << QPoint(10, 10) << false << right << right << false;
        // Any release ends a drag, even of a button that was not pressed.
        QTest::newRow("right release") << 0 << QPoint(10, 10) << false << left << right << true;
    }

    void dragByHeaderBand()
    {
        QFETCH(int, header);
        QFETCH(QPoint, press);
        QFETCH(bool, onButton);
        QFETCH(Qt::MouseButton, button);
        QFETCH(Qt::MouseButton, release);
        QFETCH(bool, drags);

        HeaderDialog dialog(header);
        dialog.show();
        QVERIFY(QTest::qWaitForWindowExposed(&dialog));
        QWidget* target = onButton ? static_cast<QWidget*>(dialog.button) : &dialog;
        const QPoint start = dialog.pos();
        const QPoint global = target->mapToGlobal(press);
        sendMouse(target, QEvent::MouseButtonPress, global, button, button);
        sendMouse(target, QEvent::MouseMove, global + QPoint(40, 25), Qt::NoButton, button);
        const Qt::MouseButtons held = Qt::MouseButtons(button) & ~Qt::MouseButtons(release);
        sendMouse(target, QEvent::MouseButtonRelease, global + QPoint(40, 25), release, held);
        sendMouse(target, QEvent::MouseMove, global + QPoint(90, 90), Qt::NoButton, held);
        QCOMPARE(dialog.pos() - start, drags ? QPoint(40, 25) : QPoint(0, 0));
    }

    void messageBoxEntries_data()
    {
        QTest::addColumn<Entry>("entry");
        QTest::addColumn<QStringList>("buttons"); // "name:text" from left to right, the default starred
        QTest::addColumn<int>("height");
        QTest::addColumn<Answers>("answers"); // a button's object name, or "Escape" / "Return"

        const int yes = QMessageBox::Yes, no = QMessageBox::No, save = QMessageBox::Save;
        const int discard = QMessageBox::Discard, cancel = QMessageBox::Cancel;
        QTest::newRow("information") << Information << QStringList{"mbSipleButton:OK*"} << 200
                                     << Answers{{"mbSipleButton", -1}};
        QTest::newRow("warning") << Warning << QStringList{"mbSipleButton:Close*"} << 210 << Answers{{"Escape", -1}};
        QTest::newRow("critical") << Critical << QStringList{"mbSipleButton:Close*"} << 220 << Answers{{"Return", -1}};
        QTest::newRow("yes/no") << YesNo << QStringList{"yesButton:Yes*", "noButton:No"} << 230
                                << Answers{{"yesButton", yes}, {"noButton", no}, {"Escape", no}, {"Return", yes}};
        QTest::newRow("rotate") << Rotate << QStringList{"rotateButton:Rotate*", "cancelButton:Cancel"} << 240
                                << Answers{{"rotateButton", 1}, {"cancelButton", 0}, {"Escape", 0}, {"Return", 1}};
        QTest::newRow("save/discard/cancel")
            << SaveDiscardCancel << QStringList{"discardButton:Don't save", "saveButton:Save*", "cancelButton:Cancel"}
            << 250 << Answers{{"saveButton", save}, {"discardButton", discard}, {"cancelButton", cancel},
                              {"Escape", cancel}, {"Return", save}};
        QTest::newRow("background processing")
            << BackgroundProcessing
            << QStringList{"dontQuitButton:Don't quit", "quitWithoutSavingButton:Quit without saving*"} << 165
            << Answers{{"quitWithoutSavingButton", discard}, {"dontQuitButton", cancel}, {"Escape", cancel},
                       {"Return", discard}};
    }

    void messageBoxEntries()
    {
        QFETCH(Entry, entry);
        QFETCH(QStringList, buttons);
        QFETCH(int, height);
        QFETCH(Answers, answers);

        for (const auto& answer : answers) {
            bool shown = false;
            whenModalShown<CMessageBox>([&](CMessageBox* box) {
                const auto reply = qScopeGuard([&] { act(box, answer.first); }); // even when a check fails
                QCOMPARE(box->size(), QSize(520, height));
                QCOMPARE(buttonsOf(box), buttons);
                QCOMPARE(textOf(box, "textLabel"), QString("Question?"));
                QCOMPARE(box->windowTitle(), QString("Dialog"));
                shown = true;
            });
            QVERIFY2(runEntry(entry, "Question?", height) == answer.second, qPrintable(answer.first));
            QVERIFY(shown);
        }
    }

    void hostWarning()
    {
        // The focus starts on Quit, so Return at once quits.
        const QList<QPair<QString, bool>> endings = {
            {"quitButton", true}, {"tryButton", false}, {"Escape", false}, {"Return", true}};
        for (const auto& ending : endings) {
            CHostWarningDlg dialog(nullptr);
            whenModalShown<CHostWarningDlg>([ending](CHostWarningDlg* shown) { act(shown, ending.first); });
            QCOMPARE(dialog.exec(), 0);
            QVERIFY2(dialog.hasUserChosenToQuit() == ending.second, qPrintable(ending.first));
        }

        CHostWarningDlg dialog(nullptr);
        dialog.show();
        QCOMPARE(dialog.objectName(), QString("HostWarningDlg"));
        QCOMPARE(dialog.windowTitle(), QString("Open original image"));
        auto* checkBox = dialog.findChild<QCheckBox*>("showExplanatoryCheckBox");
        for (int height : {315, 180}) {
            QTest::mouseClick(checkBox, Qt::LeftButton, {}, QPoint(5, checkBox->height() / 2));
            QCOMPARE(dialog.height(), height);
        }

        // The language is applied at construction only.
        QTranslator german;
        QVERIFY(german.load(":/translations/vexa_de.qm") && QCoreApplication::installTranslator(&german));
        const auto remove = qScopeGuard([&german] { QCoreApplication::removeTranslator(&german); });
        QCoreApplication::processEvents(); // delivers the posted LanguageChange
        QCOMPARE(textOf(&dialog, "quitButton"), QString("Quit"));
        CHostWarningDlg translated(nullptr);
        QCOMPARE(textOf(&translated, "quitButton"), QString("Beenden"));
    }

    void errorStrings()
    {
        // Five texts, then their five raw pointers, and nothing more: the class's layout is public.
        QCOMPARE(sizeof(CErrStrings), 5 * sizeof(QString) + 5 * sizeof(const ushort*));
        UTILSDLL_NEEDS_NATIVE_WINDOWS("the system's message box needs a native owner: the run under the windows plug-in");
        using Show = void (CErrStrings::*)() const;
        const QList<QPair<Show, QString>> shows = {
            {&CErrStrings::ShowSmallFreeSpaceDialog, "Error: Windows small space message on drive "},
            {&CErrStrings::ShowOutOfMemoryDialog, "Error: Out of memory. Program will be closed.\n"},
            {&CErrStrings::ShowOutOfMemoryInPhotoshopDialog,
             "Error: Vexa Rectivo 3 has run out of memory. The application may now become unstable. Please close "
             "Vexa Rectivo 3 and Photoshop, quit all other programs running, and try again.\n"},
            {&CErrStrings::ShowUnhandledExceptionDialog, "Error: Unhandled exception. Program will be closed.\n"}};
        const CErrStrings strings;
        // A window is active, so the owner is looked up too.
        QWidget window;
        window.show();
        QApplication::setActiveWindow(&window);
        QVERIFY(QTest::qWaitForWindowActive(&window));
        for (const auto& show : shows) {
            const QString shown = shownText(strings, show.first);
            QVERIFY2(shown.startsWith(show.second), qPrintable(shown));
        }

#ifndef Q_OS_WIN // these folder names hold a ':', which Windows does not allow
        // The drive of the temporary folder, which must exist to be taken: cut at the first ':'
        // only; without one the whole path stays, then ":\\" follows. Copies keep the prepared
        // texts; Retranslate recomputes them.
        const QString root = UtilsDllTest::IsolatedEnvironment::root();
        // Beyond ASCII, up to a character outside the basic plane, as Linux writes them in UTF-8.
        const QString letters = QString::fromUtf8("D\u00E9\u20AC\U0001D11E");
        QVERIFY(QDir(root).mkpath(letters + ":Temp/E:inner"));
        const QByteArray saved = qgetenv("TMPDIR");
        for (const auto& [folder, drive] :
             {std::pair{root + "/" + letters + ":Temp/E:inner", root + "/" + letters + ":\\"}, std::pair{root, root + ":\\"}}) {
            qputenv("TMPDIR", QFile::encodeName(folder));
            CErrStrings strings;
            qputenv("TMPDIR", saved);
            const QString expected = "Error: Windows small space message on drive " + drive + "\n";
            QCOMPARE(shownText(strings), expected);
            const CErrStrings copy(strings);
            strings.Retranslate();
            QCOMPARE(shownText(copy), expected);
            QVERIFY(!shownText(strings).contains(drive));
        }
#endif
    }

    void licencesReadAtOnce_data()
    {
        QTest::addColumn<Files>("files");
        QTest::addColumn<QStringList>("texts"); // the texts shown, in either order
        QTest::addColumn<int>("separators");

        QTest::newRow("no folder") << Files() << QStringList() << -1;
        // UTF-8 whatever the locale's encoding.
        QTest::newRow("two files") << Files{{"one.txt", "A\nA2\n"}, {"two.txt", "B \xc3\xa9\xe2\x82\xac\n"}}
                                   << QStringList{"A<br>A2<br>", QString::fromUtf8("B \u00e9\u20ac<br>")} << 1;
        // An empty file drops out of the join, and is taken off the list all the same.
        QTest::newRow("one of two empty") << Files{{"one.txt", ""}, {"two.txt", "B\n"}} << QStringList{"B<br>"} << 0;
        // Read in chunks: lines cross chunk boundaries, "\r\n" ends a line, and so does the end.
        QTest::newRow("longer than a chunk") << Files{{"one.txt", QByteArray("line\r\n").repeated(20000) + "last"}}
                                             << QStringList{QString("line<br>").repeated(20000) + "last<br>"} << 0;
        QTest::newRow("other files ignored") << Files{{"one.txt", "A\n"}, {"notes.md", "M\n"}} << QStringList{"A<br>"}
                                             << 0;
    }

    void licencesReadAtOnce()
    {
        QFETCH(Files, files);
        QFETCH(QStringList, texts);
        QFETCH(int, separators);

        if (separators >= 0)
            writeLicences(files);
#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
        // Qt 5 reads text in the locale's encoding unless told otherwise.
        QTextCodec* const localeCodec = QTextCodec::codecForLocale();
        QTextCodec::setCodecForLocale(QTextCodec::codecForName("ISO-8859-1"));
        const auto restore = qScopeGuard([localeCodec] { QTextCodec::setCodecForLocale(localeCodec); });
#endif
        CAboutDlg dialog;
        QVERIFY(!dialog.findChild<QThread*>());
        QCOMPARE(licenceLabels(&dialog).size(), 1);
        const QString shown = licenceLabels(&dialog).first()->text();
        QCOMPARE(shown.count(s_separator), qMax(separators, 0));
        QVERIFY(shown.startsWith("Vexa Rectivo and the Vexa logo"));
        for (const QString& text : texts)
            QVERIFY2(shown.contains(text), qPrintable(shown));
        QCOMPARE(shown.contains(s_separator + "<br>"), separators > 0);
        QVERIFY(!shown.endsWith(s_separator));
    }

    void thirdLicenceArrivesFromItsThread()
    {
        writeLicences({{"one.txt", "A\n"}, {"two.txt", "B\n"}, {"three.txt", "C\n"}});
        CAboutDlg dialog;
        auto* thread = dialog.findChild<QThread*>();
        QVERIFY(thread && thread->wait(5000));
        QTRY_COMPARE(licenceLabels(&dialog).size(), 2);

        // The first label holds two texts and ends with the separator; the last file's has none.
        const QString first = licenceLabels(&dialog).at(0)->text();
        QLabel* added = licenceLabels(&dialog).at(1);
        QVERIFY(first.endsWith(s_separator));
        QCOMPARE(first.count(s_separator), 2);
        QVERIFY(QStringList({"A<br>", "B<br>", "C<br>"}).contains(added->text()));
        QVERIFY(!first.contains(added->text()));
    }

    // Deleting the box right after show() while its reader is inside a huge third file used
    // to destroy a running thread, which aborts the process. The reader now stops within the file.
    void closingWhileTheReaderReadsStopsIt()
    {
        writeLicences({{"one.txt", "A\n"}, {"two.txt", "B\n"}, {"three.txt", "C\n"}});
        // The box takes the files in the folder's own order; the one it leaves to its reader
        // grows to 64 GiB of zeros, sparse on disk, which takes minutes to read through.
        const QStringList order = QDir(licencesFolder()).entryList({"*.txt"}, QDir::NoFilter, QDir::NoSort);
        QVERIFY(QFile(licencesFolder() + '/' + order.at(2)).resize(qint64(1) << 36));

        auto* dialog = new CAboutDlg;
        const QThread* reader = dialog->findChild<QThread*>();
        QVERIFY(reader && reader->isRunning());
        dialog->show();
        delete dialog;
    }

    // Under the product's style sheets every text stands out from what lies behind it:
    // at least the contrast that is asked of body text.
    void textIsReadable_data()
    {
        QTest::addColumn<bool>("sorel");
        QTest::addColumn<QString>("label");
        QTest::newRow("host warning, explanation") << false << "explanatoryTextLabel";
        QTest::newRow("host warning, main text") << false << "mainTextLabel";
        QTest::newRow("Sorel, collection") << true << "label_sorel";
        QTest::newRow("Sorel, product name") << true << "label_product_name";
        QTest::newRow("Sorel, version") << true << "label_footer";
    }

    void textIsReadable()
    {
        QFETCH(bool, sorel);
        QFETCH(QString, label);
        Vexa::setPredefinedAppStyleSheet(QString(), qApp);
        const auto plain = qScopeGuard([] { qApp->setStyleSheet(QString()); });
        std::unique_ptr<QWidget> dialog;
        if (sorel) {
            dialog = std::make_unique<CAboutSorelDlg>();
        } else {
            dialog = std::make_unique<CHostWarningDlg>(nullptr);
            dialog->findChild<QCheckBox*>("showExplanatoryCheckBox")->click(); // shows the explanation
        }
        dialog->show();
        const QWidget* text = dialog->findChild<QWidget*>(label);
        QVERIFY(text && text->isVisible());
        const QImage picture = dialog->grab(QRect(text->mapTo(dialog.get(), QPoint()), text->size())).toImage();
        const double contrast = textContrast(picture);
        QVERIFY2(contrast >= 4.5, qPrintable(QString::number(contrast)));
    }

    // A huge licence file, first in the folder's order or left to the reader, is read only
    // as far as a licence text can go, on either thread, and shown cut. Before, a file of
    // gigabytes aborted the process and one of tens of megabytes held the GUI thread.
    void hugeLicenceFilesAreCut()
    {
        const QByteArray licence = QByteArray("Permission is hereby granted.\n").repeated(30);
        writeLicences({{"one.txt", licence}, {"two.txt", licence}, {"three.txt", licence}});
        const QStringList order = QDir(licencesFolder()).entryList({"*.txt"}, QDir::NoFilter, QDir::NoSort);
        // 1.2 GB, most of it a hole in the file: zeros that cost no disk.
        for (int i : {0, 2})
            QVERIFY(QFile(licencesFolder() + '/' + order.at(i)).resize(qint64(1200) << 20));

        CAboutDlg dialog;
        auto* thread = dialog.findChild<QThread*>();
        QVERIFY(thread && thread->wait(30000));
        QTRY_COMPARE(licenceLabels(&dialog).size(), 2);
        const QString cutMark = "[...]<br>";
        for (QLabel* label : licenceLabels(&dialog)) {
            const QString text = label->text();
            QVERIFY2(text.size() < 1 << 20, qPrintable(QString::number(text.size())));
            QCOMPARE(text.count(cutMark), 1);
            QVERIFY(text.contains(QString("Permission is hereby granted.<br>").repeated(30)));
        }
        QVERIFY(licenceLabels(&dialog).at(0)->text().contains(cutMark + s_separator + "<br>"));
    }

    // What the pictures test cannot see: titles, link targets, the product name, the fixed size.
    void fixedTextsOfBothBoxes()
    {
        CAboutDlg about;
        QCOMPARE(about.windowTitle(), QString("About Vexa Rectivo 3"));
        QVERIFY(textOf(&about, "lbVisitVexaHomePage")
                    .contains("?utm_source=Rectivo3&utm_medium=software&utm_content=empty"));
        about.updateProductName("");
        QCOMPARE(textOf(&about, "label_1"), QString("Vexa Rectivo 3"));
        about.updateProductName("Pro");
        QCOMPARE(textOf(&about, "label_1"), QString("Vexa Rectivo 3 Pro"));

        CAboutSorelDlg sorel;
        QCOMPARE(sorel.windowTitle(), QString("About"));
        QVERIFY(textOf(&sorel, "label_footer").startsWith("Version: 3.2.0.254"));
        const QString link = textOf(&sorel, "label_acknowledgements");
        QVERIFY2(link.startsWith("<a href=\"file:///" + QCoreApplication::applicationDirPath() + QDir::separator() + "Licenses"
                                 + QDir::separator() + "acknowledgments.html\""),
                 qPrintable(link));
    }

    // Runs again by name with a real window system (Xvfb, or Windows' own windows), which
    // delivers activation differently. Closing is also how both boxes are deleted: they
    // delete themselves on close.
    void closesWhenAnotherWindowIsActivated()
    {
        UTILSDLL_NEEDS_NATIVE_WINDOWS(
            "Windows' activation messages come only to native windows: the run under the windows plug-in");
        QWidget other;
        other.resize(200, 200);
        other.show();
        QVERIFY(QTest::qWaitForWindowExposed(&other));
        for (int variant = 0; variant < 2; ++variant) {
            QPointer<QWidget> about = variant == 0 ? static_cast<QWidget*>(new CAboutDlg)
                                                   : static_cast<QWidget*>(new CAboutSorelDlg);
            // Hidden and shown again, it keeps one filter: one loss of activation still closes it.
            for (int round = 0; round < 2; ++round) {
                about->hide();
                about->show();
                about->activateWindow();
                QVERIFY(QTest::qWaitForWindowActive(about));
            }
            QVERIFY(about);
            other.activateWindow();
            QVERIFY(QTest::qWaitForWindowActive(&other));
            QTRY_VERIFY(about.isNull());
        }
    }
};

UTILSDLL_TEST_MAIN_WITH(TestDialogs, QApplication)
#include "tst_dialogs.moc"
