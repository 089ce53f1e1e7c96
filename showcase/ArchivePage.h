#pragma once

#include <QAtomicInt>
#include <QTemporaryDir>
#include <QWidget>

#include <functional>
#include <memory>

class QLabel;
class QProgressBar;
class QPushButton;
class QSpinBox;
class QTimer;

// The gallery's archive page: compresses a set of generated files with the archive
// helpers and extracts it again, off the GUI thread, showing how far the work got.
class ArchivePage : public QWidget
{
    Q_OBJECT
public:
    explicit ArchivePage(QWidget* parent = nullptr);
    ~ArchivePage() override;

    void retranslate();
    QString workFolder() const;

private slots:
    void compress();
    void extract();
    void showProgress();

private:
    enum Phase { Idle, Writing, Compressing, Extracting };

    // What a worker shares with the page while it runs.
    struct Job
    {
        QAtomicInt phase{Idle};
        QAtomicInt done{0};
        int total = 0;
        bool succeeded = false;
    };

    // Runs 'work' on a thread of its own; 'describe' gives the status text once done,
    // and again whenever the language changes.
    void runInBackground(int total, std::function<void(Job&)> work, std::function<QString(const Job&)> describe);
    void finish();
    void setBusy(bool busy);

    QTemporaryDir m_work;
    QLabel* m_title = nullptr;
    QSpinBox* m_fileCount = nullptr;
    QPushButton* m_compress = nullptr;
    QPushButton* m_extract = nullptr;
    QProgressBar* m_progress = nullptr;
    QLabel* m_status = nullptr;
    QTimer* m_poll = nullptr;
    QThread* m_thread = nullptr;
    std::shared_ptr<Job> m_job;
    std::function<QString(const Job&)> m_describe;
    int m_archivedCount = 0;
};
