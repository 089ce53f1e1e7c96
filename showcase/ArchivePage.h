#pragma once

#include <QTemporaryDir>
#include <QWidget>

#include <functional>

class QLabel;
class QProgressBar;
class QPushButton;
class QSpinBox;

// The gallery's archive page: compresses a set of generated files with the archive
// helpers and extracts it again, off the GUI thread, with a busy indication meanwhile.
class ArchivePage : public QWidget
{
    Q_OBJECT
public:
    explicit ArchivePage(QWidget* parent = nullptr);

    void retranslate();
    QString workFolder() const;

private slots:
    void compress();
    void extract();

private:
    // Runs 'work' on a thread of its own and shows the text it returns once done.
    void runInBackground(std::function<QString()> work);
    void setBusy(bool busy);

    QTemporaryDir m_work;
    QLabel* m_title = nullptr;
    QSpinBox* m_fileCount = nullptr;
    QPushButton* m_compress = nullptr;
    QPushButton* m_extract = nullptr;
    QProgressBar* m_progress = nullptr;
    QLabel* m_status = nullptr;
};
