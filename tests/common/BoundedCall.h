#pragma once

// For the tests that put a FIFO where the library expects a file: opening one for
// reading waits for a writer, forever if none comes. The call under test runs on a
// thread of its own; if it has not returned in time, the FIFO is opened for writing
// and closed again until it does, which lets a blocked reader go on to an end of file.
// A call that blocks thus fails its test in seconds instead of hanging the suite.

#include <QDeadlineTimer>
#include <QString>
#include <QThread>

#include <atomic>
#include <functional>
#include <thread>

#ifndef Q_OS_WIN
#include <QFile>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#endif

namespace UtilsDllTest {

#ifndef Q_OS_WIN
inline bool makeFifo(const QString& path)
{
    return ::mkfifo(QFile::encodeName(path).constData(), 0600) == 0;
}

// True if call returned within timeoutMs without help.
inline bool returnsWithoutBlocking(const QString& fifoPath, const std::function<void()>& call,
                                   int timeoutMs = 10000)
{
    std::atomic<bool> done{false};
    std::thread thread([&] {
        call();
        done = true;
    });
    QDeadlineTimer deadline(timeoutMs);
    while (!done && !deadline.hasExpired())
        QThread::msleep(5);
    const bool returnedInTime = done;
    while (!done) {
        const int fd = ::open(QFile::encodeName(fifoPath).constData(), O_WRONLY | O_NONBLOCK | O_CLOEXEC);
        if (fd >= 0)
            ::close(fd);
        QThread::msleep(5);
    }
    thread.join();
    return returnedInTime;
}
#endif

} // namespace UtilsDllTest
