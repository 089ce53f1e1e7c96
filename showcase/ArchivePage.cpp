#include "ArchivePage.h"

#include "ArchiveHelpers.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QSpinBox>
#include <QThread>
#include <QTimer>
#include <QVBoxLayout>

namespace {

QStringList writeSampleFiles(const QString& folder, int count, QAtomicInt& written)
{
    QDir().mkpath(folder);
    QStringList files;
    for (int i = 0; i < count; ++i) {
        const QString path = QDir(folder).filePath(QStringLiteral("sample_%1.txt").arg(i, 4, 10, QChar('0')));
        QFile file(path);
        if (file.open(QIODevice::WriteOnly))
            file.write(QByteArray("Sample file ") + QByteArray::number(i) + '\n' + QByteArray(4096, char('a' + i % 26)));
        files << path;
        written.storeRelease(i + 1);
    }
    return files;
}

int filesIn(const QString& folder)
{
    return QDir(folder).entryList(QDir::Files | QDir::NoDotAndDotDot).size();
}

} // namespace

ArchivePage::ArchivePage(QWidget* parent)
    : QWidget(parent)
{
    auto* layout = new QVBoxLayout(this);
    m_title = new QLabel;
    m_title->setWordWrap(true);
    m_fileCount = new QSpinBox;
    m_fileCount->setObjectName("fileCountSpinBox");
    m_fileCount->setRange(1, 5000);
    m_fileCount->setValue(200);
    m_compress = new QPushButton;
    m_compress->setObjectName("compressButton");
    m_extract = new QPushButton;
    m_extract->setObjectName("extractButton");
    m_extract->setEnabled(false);
    m_progress = new QProgressBar;
    m_progress->setObjectName("archiveProgress");
    m_progress->setRange(0, 1);
    m_status = new QLabel;
    m_status->setObjectName("archiveStatus");
    m_status->setWordWrap(true);
    m_poll = new QTimer(this);
    m_poll->setInterval(50);
    connect(m_poll, &QTimer::timeout, this, &ArchivePage::showProgress);
    connect(m_compress, &QPushButton::clicked, this, &ArchivePage::compress);
    connect(m_extract, &QPushButton::clicked, this, &ArchivePage::extract);

    auto* buttons = new QHBoxLayout;
    buttons->addWidget(m_fileCount);
    buttons->addWidget(m_compress);
    buttons->addWidget(m_extract);
    buttons->addStretch(1);
    layout->addWidget(m_title);
    layout->addLayout(buttons);
    layout->addWidget(m_progress);
    layout->addWidget(m_status);
    layout->addStretch(1);
    retranslate();
}

ArchivePage::~ArchivePage()
{
    // The worker writes into the page's work folder: it must end before the folder goes.
    if (m_thread)
        m_thread->wait();
}

QString ArchivePage::workFolder() const
{
    return m_work.path();
}

void ArchivePage::compress()
{
    const QString sources = m_work.filePath("sources");
    const QString archive = m_work.filePath("samples.zip");
    const int count = m_fileCount->value();
    runInBackground(
        count,
        [sources, archive, count](Job& job) {
            QDir(sources).removeRecursively();
            QFile::remove(archive);
            job.phase.storeRelease(Writing);
            const QStringList files = writeSampleFiles(sources, count, job.done);
            // The helpers tell nothing until the whole archive is written.
            job.phase.storeRelease(Compressing);
            job.succeeded = Vexa::CompressFiles(files, archive);
        },
        [count, archive](const Job& job) {
            return job.succeeded ? tr("%1 files compressed into %2 (%3 bytes).")
                                       .arg(count)
                                       .arg(QDir::toNativeSeparators(archive))
                                       .arg(QFileInfo(archive).size())
                                 : tr("Compression failed.");
        });
    m_archivedCount = count;
}

void ArchivePage::extract()
{
    const QString archive = m_work.filePath("samples.zip");
    const QString target = m_work.filePath("extracted");
    QDir(target).removeRecursively();
    QDir().mkpath(target);
    runInBackground(
        m_archivedCount,
        [archive, target](Job& job) {
            job.phase.storeRelease(Extracting);
            Vexa::DecompressFiles(archive, target);
            job.done.storeRelease(filesIn(target));
        },
        [target](const Job& job) {
            return tr("%1 files extracted into %2.").arg(job.done.loadAcquire()).arg(QDir::toNativeSeparators(target));
        });
}

void ArchivePage::runInBackground(int total, std::function<void(Job&)> work,
                                  std::function<QString(const Job&)> describe)
{
    m_job = std::make_shared<Job>();
    m_job->total = total;
    m_describe = std::move(describe);
    setBusy(true);
    std::shared_ptr<Job> job = m_job;
    m_thread = QThread::create([work, job] { work(*job); });
    connect(m_thread, &QThread::finished, this, &ArchivePage::finish);
    m_thread->start();
    m_poll->start();
}

// How far the worker got: files written, then the helper's single call, or the
// extracted files counted in the target folder as the helper writes them.
void ArchivePage::showProgress()
{
    if (!m_job)
        return;
    const int total = m_job->total;
    switch (m_job->phase.loadAcquire()) {
    case Writing:
        m_progress->setRange(0, total);
        m_progress->setValue(m_job->done.loadAcquire());
        m_progress->setFormat(tr("Writing the files: %p%"));
        break;
    case Compressing:
        m_progress->setRange(0, 0); // Qt's busy indicator
        break;
    case Extracting:
        m_progress->setRange(0, total);
        m_progress->setValue(qMin(total, filesIn(m_work.filePath("extracted"))));
        m_progress->setFormat(tr("Extracting: %p%"));
        break;
    default:
        break;
    }
}

void ArchivePage::finish()
{
    m_poll->stop();
    m_thread->deleteLater();
    m_thread = nullptr;
    m_status->setText(m_describe(*m_job));
    setBusy(false);
}

void ArchivePage::setBusy(bool busy)
{
    if (!busy) {
        m_progress->setRange(0, qMax(1, m_job ? m_job->total : 1));
        m_progress->setValue(m_progress->maximum());
        m_progress->setFormat(tr("Done"));
    } else {
        m_progress->setRange(0, qMax(1, m_job->total));
        m_progress->setValue(0);
    }
    m_compress->setEnabled(!busy);
    m_extract->setEnabled(!busy && QFile::exists(m_work.filePath("samples.zip")));
    m_fileCount->setEnabled(!busy);
}

void ArchivePage::retranslate()
{
    m_title->setText(tr("Compress a set of generated files with the archive helpers, then extract it again"));
    m_fileCount->setSuffix(tr(" files"));
    m_compress->setText(tr("Compress"));
    m_extract->setText(tr("Extract"));
    if (!m_thread && m_job) {
        m_progress->setFormat(tr("Done"));
        m_status->setText(m_describe(*m_job));
    }
}
