#include "DelayedCall.h"
#include "WaitPrimitives.h"

#include <QCoreApplication>
#include <QObject>

#include <benchmark/benchmark.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <memory>
#include <thread>
#include <vector>

namespace {

const int kFarAway = 3600 * 1000; // no pending call of a benchmark ever fires

// Arms one call for each of count other targets on this thread while it lives.
class OtherTargetsPending
{
public:
    explicit OtherTargetsPending(int count)
    {
        for (int i = 0; i < count; ++i) {
            m_targets.push_back(std::make_unique<QObject>());
            CDelayedCall::invoke(kFarAway, m_targets.back().get(), "deleteLater");
        }
    }
    ~OtherTargetsPending()
    {
        for (const auto& target : m_targets)
            CDelayedCall::discard(target.get(), nullptr);
    }

private:
    std::vector<std::unique_ptr<QObject>> m_targets;
};

void BM_InvokeDiscardPair(benchmark::State& state)
{
    OtherTargetsPending others(static_cast<int>(state.range(0)));
    QObject mine;
    for (auto _ : state) {
        CDelayedCall::invoke(kFarAway, &mine, "deleteLater");
        CDelayedCall::discard(&mine, "deleteLater");
    }
}
BENCHMARK(BM_InvokeDiscardPair)->Arg(10)->Arg(1000)->Arg(100000);

// The look-up alone, without Qt's timer registration.
void BM_IsActiveAmongPending(benchmark::State& state)
{
    OtherTargetsPending others(static_cast<int>(state.range(0)));
    QObject mine;
    CDelayedCall::invoke(kFarAway, &mine, "deleteLater");
    for (auto _ : state)
        benchmark::DoNotOptimize(CDelayedCall::isActive(&mine, "deleteLater"));
    CDelayedCall::discard(&mine, nullptr);
}
BENCHMARK(BM_IsActiveAmongPending)->Arg(10)->Arg(1000)->Arg(100000);

// Qt's own share of a pair: one timer started and killed on an object that already
// runs count timers, as the thread's invoker does. QObject::killTimer and the event
// dispatcher both search their timer lists linearly.
class TimerHost : public QObject
{
public:
    explicit TimerHost(int count)
    {
        for (int i = 0; i < count; ++i)
            startTimer(kFarAway, Qt::CoarseTimer);
    }
};

void BM_QtTimerPairAmongRunning(benchmark::State& state)
{
    TimerHost host(static_cast<int>(state.range(0)));
    for (auto _ : state)
        host.killTimer(host.startTimer(kFarAway, Qt::CoarseTimer));
}
BENCHMARK(BM_QtTimerPairAmongRunning)->Arg(10)->Arg(1000)->Arg(100000);

qint64 nowNs()
{
    return std::chrono::duration_cast<std::chrono::nanoseconds>(
               std::chrono::steady_clock::now().time_since_epoch())
        .count();
}

// The time from another thread's store of the awaited value to the waiter's return.
// The setter pauses 20 µs before each store so that the waiter is inside its loop.
void measureWakeUp(benchmark::State& state, bool blocking)
{
    QAtomicInt value(0);
    std::atomic<int> requested{0};
    std::atomic<qint64> storedAt{0};
    std::atomic<bool> done{false};
    std::thread setter([&] {
        int served = 0;
        while (!done.load()) {
            const int request = requested.load(std::memory_order_acquire);
            if (request == served) {
                std::this_thread::yield();
                continue;
            }
            const qint64 until = nowNs() + 20000;
            while (nowNs() < until) {
            }
            storedAt.store(nowNs(), std::memory_order_relaxed);
            value.storeRelease(request);
            served = request;
        }
    });
    std::vector<double> latenciesUs;
    int round = 0;
    for (auto _ : state) {
        requested.store(++round, std::memory_order_release);
        if (blocking)
            waitBlockingAtomicIntValue(value, round);
        else
            waitNonBlockingAtomicIntValue(value, round, false);
        const qint64 wokeAt = nowNs();
        // The wait reads relaxed; the fence pairs with the setter's release store.
        std::atomic_thread_fence(std::memory_order_acquire);
        const double latencyNs = double(wokeAt - storedAt.load(std::memory_order_relaxed));
        state.SetIterationTime(latencyNs / 1e9);
        latenciesUs.push_back(latencyNs / 1e3);
    }
    done = true;
    setter.join();
    // The mean is at the mercy of the scheduler on a busy machine; the quantiles less so.
    std::sort(latenciesUs.begin(), latenciesUs.end());
    if (!latenciesUs.empty()) {
        state.counters["p50_us"] = latenciesUs[latenciesUs.size() / 2];
        state.counters["p90_us"] = latenciesUs[latenciesUs.size() * 9 / 10];
    }
}

void BM_WakeUpBlocking(benchmark::State& state)
{
    measureWakeUp(state, true);
}
BENCHMARK(BM_WakeUpBlocking)->UseManualTime()->Unit(benchmark::kMicrosecond);

void BM_WakeUpNonBlocking(benchmark::State& state)
{
    measureWakeUp(state, false);
}
BENCHMARK(BM_WakeUpNonBlocking)->UseManualTime()->Unit(benchmark::kMicrosecond);

} // namespace

// Timers need the event dispatcher that the application object gives this thread.
int main(int argc, char** argv)
{
    QCoreApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
