#pragma once

#include <QAbstractNativeEventFilter>
#include <QObject>
#include <QPointer>
#include <QStringList>
#include <QThread>

#include <functional>

class QFile;
class QWidget;

// Closes a dialog when it loses activation after having had it: the first
// activation message is the dialog becoming active, the second its losing it.
class CAuxWinEventFilter : public QAbstractNativeEventFilter
{
public:
    CAuxWinEventFilter() = default;
    ~CAuxWinEventFilter() override;
    CAuxWinEventFilter(const CAuxWinEventFilter&) = delete;
    CAuxWinEventFilter& operator=(const CAuxWinEventFilter&) = delete;

    void setDialog(QWidget* dialog);
    // Installs the filter, and where the system sends no activation messages, the
    // watcher of the dialog's activation changes.
    void install();
    // Qt 6 widened the filter's result to a pointer-sized integer.
#if QT_VERSION >= QT_VERSION_CHECK(6, 0, 0)
    using NativeResult = qintptr;
#else
    using NativeResult = long;
#endif
    bool nativeEventFilter(const QByteArray& eventType, void* message, NativeResult* result) override;
    // One activation change of the dialog: the second one closes it.
    void noteActivationChange();

private:
    class ActivationChangeWatcher;
    friend class ActivationChangeWatcher;
    QWidget* m_dialog = nullptr;
    bool m_activationSeen = false;
    QPointer<QObject> m_watcher; // a child of the dialog, removed with the filter
};

class CAuxWinEventFilter::ActivationChangeWatcher : public QObject
{
    Q_OBJECT
public:
    ActivationChangeWatcher(CAuxWinEventFilter& filter, QObject* parent);
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    CAuxWinEventFilter& m_filter;
};

// Reads the licence files beyond the first two on its own thread and hands each text
// to the dialog. Despite its name, it reads local files only.
class LicensesDownloadThread : public QThread
{
    Q_OBJECT
public:
    LicensesDownloadThread(const QStringList& files, QObject* parent);
    ~LicensesDownloadThread() override;

    // Asks the reader to stop, at the next file or within the current one, and waits
    // until it has. No text of a file cut short is sent.
    void stopAndWait();

Q_SIGNALS:
    void fileRead(const QString& contents);

protected:
    void run() override;

private:
    QStringList m_files;
};

// The about boxes' step on each show: the filter is installed on the first one only,
// after the pending events have been handled.
void installFilterOnce(CAuxWinEventFilter& filter, bool& filterPending);

// Opens a licence file read-only as text; false for what is not a regular file.
bool openLicenceFile(QFile& file);

// The text of a licence file as simple HTML: each line followed by "<br>". Of a file
// longer than a licence text can be, only the lines of its first 512 KiB are read,
// followed by "[...]<br>". When interrupted answers true, checked between chunks,
// reading stops and the text is empty.
QString readLicenceFile(QFile* file, const std::function<bool()>& interrupted = {});
