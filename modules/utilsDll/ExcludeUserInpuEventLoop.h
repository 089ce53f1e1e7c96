#pragma once

#include "UtilsDllGlobal.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QObject>
#include <QPointer>

/// \file
/// \brief The nested event loop that keeps the user out, and its event filter.

/// \brief Swallows the user's input sent to one object.
///
/// A fixed set of input-like events is dropped: clicks, keys, focus, Enter, Close, drag
/// and drop, shortcuts, graphics-scene and non-client clicks. The pointer stays tracked
/// on purpose: moves, Leave, wheel, hover and tablet events pass. It installs itself
/// only on an object of the current thread, and becomes its child.
class UTILSDLL_EXPORT CExcludeUserInpuEventsFilter : public QObject
{
    Q_OBJECT
public:
    /// Installs the filter on \p object as its child, when \p object lives on the
    /// current thread; otherwise the filter stays idle.
    explicit CExcludeUserInpuEventsFilter(QObject* object);
    /// Removes the filter from its object.
    ~CExcludeUserInpuEventsFilter() override;

    /// Answers true, dropping \p event, for the input events listed above.
    bool eventFilter(QObject* watched, QEvent* event) override;
};

/// \brief A nested event loop that keeps the user out while the program waits.
///
/// It runs with QEventLoop::ExcludeUserInputEvents and a CExcludeUserInpuEventsFilter
/// on the filtered object. The filtered object must outlive exec(), since the filter
/// is its child.
class UTILSDLL_EXPORT CExcludeUserInpuEventLoop : public QObject
{
    Q_OBJECT
public:
    /// Filters \p filteredObject, the application object by default, while exec() runs.
    explicit CExcludeUserInpuEventLoop(QObject* filteredObject = QCoreApplication::instance(),
                                       QObject* parent = nullptr);

    /// Whether exec() is running.
    bool isRunning() const;

public Q_SLOTS:
    /// \brief Runs the loop until quit(), failedQuit(), exit() or the timeout.
    ///
    /// A non-zero \p nQuitTimeout (milliseconds) arms a delayed quit, which nothing
    /// discards: it may end a later exec(0) of the same loop object.
    /// \return 0 after quit() or the timeout, 1 after failedQuit(), the code given to
    /// exit(), and -1 at once when the loop already runs.
    int exec(int nQuitTimeout = 0);
    /// Ends exec() with 0.
    void quit();
    /// Ends exec() with 1.
    void failedQuit();
    /// Ends exec() with \p returnCode.
    void exit(int returnCode = 0);

private:
    QPointer<QObject> m_filteredObject;
    QEventLoop m_loop;
};
