#include "AboutDlg.h"

#include "AboutDlg_p.h"
#include "Log.h"
#include "SharedConstants.h"
#include "UtilsDllVersion.h"
#include "platform/ActivationMessages_p.h"
#include "ui_AboutDlg.h"
#include "ui_AboutSorelDlg.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QScrollBar>
#include <QShowEvent>
#include <QTextStream>

namespace {

const QString s_separator = "<br>******************************************************<br>";
const QString s_licencesFolder = "Licenses";
// A licence text is a few hundred KB at most. Only this much of a file is read and
// shown, so that a huge file in the folder costs neither the memory nor the time of
// the GUI thread, which reads the first two files and lays out every text.
const qint64 s_maxLicenceBytes = 512 * 1024;
const QString s_cutMark = "[...]<br>";
const int s_versionNumbers[] = {UTILSDLL_VERSION_MAJOR, UTILSDLL_VERSION_MINOR, UTILSDLL_VERSION_PATCH};
const int s_buildNumber = UTILSDLL_VERSION_BUILD;
const QString s_homePage = "https://www.vexalabs.example/";
const QString s_homePageQuery = "?utm_source=Rectivo3&utm_medium=software&utm_content=empty";
const QString s_copyright = QStringLiteral("\u00A9 2012-2024 Vexa Labs. All rights reserved.");

QString versionNumbers()
{
    QStringList parts;
    for (int number : s_versionNumbers)
        parts << QString::number(number);
    return parts.join('.');
}

QString licencesFolder()
{
    return QCoreApplication::applicationDirPath() + QDir::separator() + s_licencesFolder;
}

QString readLicenceAt(const QString& path)
{
    QFile file(path);
    if (!openLicenceFile(file))
        return QString();
    return readLicenceFile(&file);
}

} // namespace

bool openLicenceFile(QFile& file)
{
    // A pipe or a device in the folder would block the open until a writer comes.
    return QFileInfo(file.fileName()).isFile() && file.open(QIODevice::ReadOnly | QIODevice::Text);
}

QString readLicenceFile(QFile* file, const std::function<bool()>& interrupted)
{
    ASSERT(file);
    QString html;
    if (!file)
        return html;
    QByteArray bytes = file->read(s_maxLicenceBytes + 1);
    const bool cut = bytes.size() > s_maxLicenceBytes;
    if (cut) {
        // End on a whole line, which also keeps a multi-byte character whole.
        bytes.truncate(int(s_maxLicenceBytes));
        const int lastNewline = bytes.lastIndexOf('\n');
        if (lastNewline >= 0)
            bytes.truncate(lastNewline + 1);
    }
    // Read in chunks rather than by lines, so that a reader asked to stop looks at the
    // flag often even in a large file of long lines. The text is the one that reading
    // line by line gives: a break after every line, the last one too, where "\r\n" and a
    // final "\r" count as the end of a line.
    const int chunkSize = 64 * 1024;
    QTextStream stream(bytes, QIODevice::ReadOnly);
    // Licence texts are UTF-8 whatever the locale (a byte-order mark still wins).
#if QT_VERSION >= QT_VERSION_CHECK(6, 0, 0)
    stream.setEncoding(QStringConverter::Utf8);
#else
    stream.setCodec("UTF-8");
#endif
    QString line;
    while (!stream.atEnd()) {
        if (interrupted && interrupted())
            return QString();
        const QString chunk = stream.read(chunkSize);
        int from = 0;
        for (int newline = chunk.indexOf('\n'); newline >= 0; newline = chunk.indexOf('\n', from)) {
            line += QStringView(chunk).mid(from, newline - from);
            if (line.endsWith('\r'))
                line.chop(1);
            html += line + "<br>";
            line.clear();
            from = newline + 1;
        }
        line += QStringView(chunk).mid(from);
    }
    if (!line.isEmpty()) {
        if (line.endsWith('\r'))
            line.chop(1);
        html += line + "<br>";
    }
    if (cut)
        html += s_cutMark;
    return html;
}

// ---- CAuxWinEventFilter ----

CAuxWinEventFilter::~CAuxWinEventFilter()
{
    // The watcher refers to this filter: it must not outlive it, even while the dialog lives on.
    delete m_watcher;
    if (QCoreApplication::instance())
        QCoreApplication::instance()->removeNativeEventFilter(this);
}

void CAuxWinEventFilter::setDialog(QWidget* dialog)
{
    m_dialog = dialog;
}

void CAuxWinEventFilter::install()
{
    QCoreApplication::instance()->installNativeEventFilter(this);
    if (!VexaPlatform::deliversNativeActivationMessages() && m_dialog && !m_watcher) {
        m_watcher = new ActivationChangeWatcher(*this, m_dialog);
        m_dialog->installEventFilter(m_watcher);
    }
}

bool CAuxWinEventFilter::nativeEventFilter(const QByteArray& eventType, void* message, NativeResult*)
{
    if (!m_dialog || !m_dialog->isVisible())
        return false;
    const std::uintptr_t window = VexaPlatform::activationMessageWindow(eventType.constData(), message);
    if (window == 0 || window != std::uintptr_t(m_dialog->winId()))
        return false;
    noteActivationChange();
    return false; // the message always goes on
}

void CAuxWinEventFilter::noteActivationChange()
{
    if (m_activationSeen)
        m_dialog->close();
    else
        m_activationSeen = true;
}

CAuxWinEventFilter::ActivationChangeWatcher::ActivationChangeWatcher(CAuxWinEventFilter& filter, QObject* parent)
    : QObject(parent)
    , m_filter(filter)
{
}

bool CAuxWinEventFilter::ActivationChangeWatcher::eventFilter(QObject* watched, QEvent* event)
{
    QWidget* dialog = m_filter.m_dialog;
    if (event->type() == QEvent::ActivationChange && watched == dialog && dialog->isVisible()) {
        // The toolkit tells which way the change went: being active is the first
        // message, losing it after that the second.
        if (dialog->isActiveWindow())
            m_filter.m_activationSeen = true;
        else if (m_filter.m_activationSeen) // queued: the dialog's close is refused while
                                            // its activation change is being delivered
            QMetaObject::invokeMethod(dialog, "close", Qt::QueuedConnection);
    }
    return QObject::eventFilter(watched, event);
}

void installFilterOnce(CAuxWinEventFilter& filter, bool& filterPending)
{
    if (!filterPending)
        return;
    QCoreApplication::processEvents();
    filter.install();
    filterPending = false;
}

// ---- LicensesDownloadThread ----

LicensesDownloadThread::LicensesDownloadThread(const QStringList& files, QObject* parent)
    : QThread(parent)
    , m_files(files)
{
}

// The about box may close while this still reads: a running QThread must not be
// destroyed, so whoever deletes the reader first stops it and waits.
LicensesDownloadThread::~LicensesDownloadThread()
{
    stopAndWait();
}

void LicensesDownloadThread::stopAndWait()
{
    requestInterruption();
    wait();
}

void LicensesDownloadThread::run()
{
    const auto interrupted = [this] { return isInterruptionRequested(); };
    for (int i = 0; i < m_files.size() && !interrupted(); ++i) {
        QFile file(m_files.at(i));
        if (!openLicenceFile(file))
            continue;
        QString text = readLicenceFile(&file, interrupted);
        // A text cut short by a stop is not handed over.
        if (interrupted())
            return;
        if (i != m_files.size() - 1)
            text += s_separator;
        emit fileRead(text);
    }
}

// ---- CAboutDlg ----

struct CAboutDlg::Private
{
    Ui::aboutDlg ui;
    CAuxWinEventFilter eventFilter;
    bool filterPending = true;
    QPointer<LicensesDownloadThread> reader;
};

CAboutDlg::CAboutDlg(QWidget* parent, Qt::WindowFlags flags)
    : CBaseDialog(parent, flags)
    , d(std::make_unique<Private>())
{
    d->eventFilter.setDialog(this);
    setAttribute(Qt::WA_DeleteOnClose);
    d->ui.setupUi(this);
    d->ui.scrollArea->verticalScrollBar()->setContextMenuPolicy(Qt::NoContextMenu);

    // The first two licences are read at once, so the first screen never waits for more.
    QString licences;
    const QDir folder(licencesFolder());
    if (folder.exists()) {
        QStringList paths;
        for (const QString& entry : folder.entryList(QStringList{"*.txt"}, QDir::NoFilter, QDir::NoSort))
            paths << folder.absolutePath() + QDir::separator() + entry;
        QStringList texts;
        for (int i = 0; i < 2 && !paths.isEmpty(); ++i) {
            const QString text = readLicenceAt(paths.takeFirst());
            if (!text.isEmpty())
                texts << text;
        }
        licences = texts.join(s_separator + "<br>");
        if (!paths.isEmpty()) {
            d->reader = new LicensesDownloadThread(paths, this);
            connect(d->reader, &LicensesDownloadThread::fileRead, this, &CAboutDlg::addFileContents);
            d->reader->start(QThread::InheritPriority);
            licences += s_separator;
        }
    }

    const QString version = tr("Version") + ' ' + versionNumbers() + " / " + tr("Build") + ' '
                            + QString::number(s_buildNumber) + " / " + tr("64 bit");
    d->ui.label->setPixmap(QPixmap(":/icons/aboutDialog_rectivo/line-left.png"));
    d->ui.label_1->setText(Vexa::PRODUCT_NAME);
    d->ui.label_2->setPixmap(QPixmap(":/icons/aboutDialog_rectivo/VEXA.png"));
    d->ui.label_6->setPixmap(QPixmap(":/icons/aboutDialog_rectivo/RC.png"));
    d->ui.aboutLabel->setText(version);
    d->ui.lbVisitVexaHomePage->setText(
        QString("<a href=\"%1%2\" style=\"color: #747474; text-decoration: underline;\">%3</a>")
            .arg(s_homePage, s_homePageQuery, tr("Visit our home page")));
    d->ui.lbVisitVexaPatentsPage->setText(d->ui.lbVisitVexaPatentsPage->text().arg("Vexa Rectivo") + licences);
    d->ui.verticalLabel->setText(s_copyright);
    setWindowTitle(windowTitle().arg(Vexa::PRODUCT_NAME));
    d->ui.label_3->setStyleSheet(d->ui.label_3->styleSheet()
                                 + "font-size: 20px; font-weight: bold; font-family: \"OpenSansLight\";");
    d->ui.verticalLabel->setStyleSheet(d->ui.verticalLabel->styleSheet() + "font-family: \"OpenSansLight\";");
}

// The box may be closed while its licence reader still reads: the reader is stopped,
// between files or within one, and waited for before anything of the box goes away.
CAboutDlg::~CAboutDlg()
{
    if (d->reader)
        d->reader->stopAndWait();
}

void CAboutDlg::updateProductName(const QString& name)
{
    if (name.isEmpty())
        return;
    d->ui.label_1->setText(d->ui.label_1->text() + ' ' + name);
}

void CAboutDlg::addFileContents(const QString& contents)
{
    auto* label = new QLabel(this);
    label->setObjectName("lbVisitVexaPatentsPage");
    label->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Preferred);
    label->setMinimumSize(0, 0);
    label->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    label->setWordWrap(true);
    label->setOpenExternalLinks(true);
    label->setTextInteractionFlags(Qt::LinksAccessibleByMouse);
    label->setText(contents);
    d->ui.verticalLayout_21->addWidget(label);
}

void CAboutDlg::showEvent(QShowEvent* event)
{
    installFilterOnce(d->eventFilter, d->filterPending);
    showFirstTime(event);
}

// ---- CAboutSorelDlg ----

struct CAboutSorelDlg::Private
{
    Ui::aboutSorelDlg ui;
    CAuxWinEventFilter eventFilter;
    bool filterPending = true;
};

CAboutSorelDlg::CAboutSorelDlg(QWidget* parent, Qt::WindowFlags flags)
    : CBaseDialog(parent, flags)
    , d(std::make_unique<Private>())
{
    setAttribute(Qt::WA_DeleteOnClose);
    d->eventFilter.setDialog(this);
    d->ui.setupUi(this);
    d->ui.label_product_name->setText(
        QString("<p style=\"font-family: MavenProMedium; font-size: 37px; color: black;\">%1<sup>&reg;</sup></p>")
            .arg(Vexa::PRODUCT_NAME));
    d->ui.label_footer->setText(tr("Version") + ": " + versionNumbers() + '.' + QString::number(s_buildNumber)
                                + " x64 (v0.0.0.0)");
    const QString acknowledgements = QCoreApplication::applicationDirPath() + QDir::separator() + s_licencesFolder
                                     + QDir::separator() + "acknowledgments.html";
    d->ui.label_acknowledgements->setTextFormat(Qt::RichText);
    d->ui.label_acknowledgements->setText("<a href=\"file:///" + acknowledgements
                                          + "\" style=\"color: #e0a11a;\">Acknowledgments</a>");
    d->ui.label_acknowledgements->setTextInteractionFlags(Qt::TextBrowserInteraction);
    d->ui.label_acknowledgements->setOpenExternalLinks(true);
}

CAboutSorelDlg::~CAboutSorelDlg() = default;

void CAboutSorelDlg::showEvent(QShowEvent* event)
{
    installFilterOnce(d->eventFilter, d->filterPending);
    showFirstTime(event);
}
