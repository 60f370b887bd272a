#pragma once

#include "outline/StopSign.h"

#include <QFutureWatcher>
#include <QPromise>
#include <QThreadPool>
#include <memory>
#include <utility>

/** How far work is when it is done, in per cent. */
inline constexpr int wholeWork = 100;

/**
 * Begins `work(promise)` in another thread, which `watcher` follows from now on instead of what it followed.
 * Nobody waits for work that is given up, so it has to own all that it needs.
 */
template<class Result, class Work> void BeginBeside(QFutureWatcher<Result>& watcher, Work work)
{
    const auto promise = std::make_shared<QPromise<Result>>();
    promise->setProgressRange(0, wholeWork);
    promise->start();
    watcher.setFuture(promise->future());
    QThreadPool::globalInstance()->start([promise, work = std::move(work)] {
        work(*promise);
        promise->finish();
    });
}

/** Stops work once its watcher has cancelled it. */
template<class Result> [[nodiscard]] StopSign StopSignOf(const QPromise<Result>& promise)
{
    return StopSign([&promise] { return promise.isCanceled(); });
}
