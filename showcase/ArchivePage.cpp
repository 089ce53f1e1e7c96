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
#include <QVBoxLayout>

namespace {

QStringList writeSampleFiles(const QString& folder, int count)
{
    QDir().mkpath(folder);
    QStringList files;
    for (int i = 0; i < count; ++i) {
        const QString path = QDir(folder).filePath(QStringLiteral("sample_%1.txt").arg(i, 4, 10, QChar('0')));
        QFile file(path);
        if (file.open(QIODevice::WriteOnly))
            file.write(QByteArray("Sample file ") + QByteArray::number(i) + '\n' + QByteArray(4096, char('a' + i % 26)));
        files << path;
    }
    return files;
}

} // namespace

ArchivePage::ArchivePage(QWidget* parent)
    : QWidget(parent)
{
    auto* layout = new QVBoxLayout(this);
    m_title = new QLabel;
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

QString ArchivePage::workFolder() const
{
    return m_work.path();
}

void ArchivePage::compress()
{
    const QString sources = m_work.filePath("sources");
    const QString archive = m_work.filePath("samples.zip");
    const int count = m_fileCount->value();
    runInBackground([sources, archive, count] {
        QDir(sources).removeRecursively();
        QFile::remove(archive);
        const bool done = Vexa::CompressFiles(writeSampleFiles(sources, count), archive);
        return done ? tr("%1 files compressed into %2 (%3 bytes).").arg(count).arg(archive).arg(QFileInfo(archive).size())
                    : tr("Compression failed.");
    });
}

void ArchivePage::extract()
{
    const QString archive = m_work.filePath("samples.zip");
    const QString target = m_work.filePath("extracted");
    runInBackground([archive, target] {
        QDir(target).removeRecursively();
        QDir().mkpath(target);
        Vexa::DecompressFiles(archive, target);
        const int count = QDir(target).entryList(QDir::Files).size();
        return tr("%1 files extracted into %2.").arg(count).arg(target);
    });
}

void ArchivePage::runInBackground(std::function<QString()> work)
{
    setBusy(true);
    auto* result = new QString;
    QThread* thread = QThread::create([work, result] { *result = work(); });
    connect(thread, &QThread::finished, this, [this, thread, result] {
        m_status->setText(*result);
        delete result;
        thread->deleteLater();
        setBusy(false);
    });
    thread->start();
}

void ArchivePage::setBusy(bool busy)
{
    // A range of 0..0 is Qt's busy indicator: the helpers report no progress of their own.
    m_progress->setRange(0, busy ? 0 : 1);
    m_progress->setValue(busy ? 0 : 1);
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
}
