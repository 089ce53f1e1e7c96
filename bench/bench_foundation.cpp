// Cost of one launch-state accessor against a raw QSettings read of the same key on
// the same backend, on the system store and on a temporary store.
//
//   build/bin/bench_foundation

#include "Settings.h"
#include "SharedUtils.h"
#include "TemporarySettings.h"

#include <benchmark/benchmark.h>

#include <QCoreApplication>
#include <QDir>
#include <QSettings>
#include <QTemporaryDir>

#include <memory>

namespace {

std::unique_ptr<CTemporarySettings> s_temporaryStore;

__attribute__((no_sanitize("undefined"))) void useSystemStore()
{
    Vexa::CSettings::setTemporarySettings(*static_cast<CTemporarySettings*>(nullptr));
}

void useTemporaryStore()
{
    Vexa::CSettings::setTemporarySettings(*s_temporaryStore);
}

void seedStores()
{
    QSettings system("Vexa Labs", "Vexa Rectivo 3");
    system.setValue("loggerEnabled", "1");
    system.setValue("resellerId", "partner");
    system.sync();
    s_temporaryStore->setValue("resellerId", "partner");
}

void BM_isLoggerEnabled(benchmark::State& state)
{
    useSystemStore();
    for (auto _ : state)
        benchmark::DoNotOptimize(Vexa::isLoggerEnabled());
}

void BM_getResellerID_SystemStore(benchmark::State& state)
{
    useSystemStore();
    for (auto _ : state)
        benchmark::DoNotOptimize(Vexa::getResellerID());
}

void BM_getResellerID_TemporaryStore(benchmark::State& state)
{
    useTemporaryStore();
    for (auto _ : state)
        benchmark::DoNotOptimize(Vexa::getResellerID());
    useSystemStore();
}

// The accessors open a store per call, so the fair baseline does the same.
void BM_RawQSettings_NewObjectPerRead_SystemStore(benchmark::State& state)
{
    for (auto _ : state)
        benchmark::DoNotOptimize(QSettings("Vexa Labs", "Vexa Rectivo 3").value("resellerId", "vexa").toString());
}

void BM_RawQSettings_NewObjectPerRead_TemporaryStore(benchmark::State& state)
{
    const QString path = s_temporaryStore->tempSettingsPath();
    for (auto _ : state)
        benchmark::DoNotOptimize(QSettings(path, QSettings::IniFormat).value("resellerId", "vexa").toString());
}

// A long-lived QSettings: the floor of any read through Qt's store.
void BM_RawQSettings_SharedObject_SystemStore(benchmark::State& state)
{
    QSettings settings("Vexa Labs", "Vexa Rectivo 3");
    for (auto _ : state)
        benchmark::DoNotOptimize(settings.value("resellerId", "vexa").toString());
}

void BM_RawQSettings_SharedObject_TemporaryStore(benchmark::State& state)
{
    QSettings settings(s_temporaryStore->tempSettingsPath(), QSettings::IniFormat);
    for (auto _ : state)
        benchmark::DoNotOptimize(settings.value("resellerId", "vexa").toString());
}

BENCHMARK(BM_isLoggerEnabled);
BENCHMARK(BM_getResellerID_SystemStore);
BENCHMARK(BM_getResellerID_TemporaryStore);
BENCHMARK(BM_RawQSettings_NewObjectPerRead_SystemStore);
BENCHMARK(BM_RawQSettings_NewObjectPerRead_TemporaryStore);
BENCHMARK(BM_RawQSettings_SharedObject_SystemStore);
BENCHMARK(BM_RawQSettings_SharedObject_TemporaryStore);

} // namespace

int main(int argc, char** argv)
{
    // A home of its own: the benchmark never reads or writes the user's settings.
    QTemporaryDir home;
    qputenv("HOME", home.path().toLocal8Bit());
    qputenv("XDG_CONFIG_HOME", (home.path() + "/.config").toLocal8Bit());
    qputenv("XDG_DATA_HOME", (home.path() + "/.local/share").toLocal8Bit());
    qputenv("TMPDIR", home.path().toLocal8Bit());
    QCoreApplication app(argc, argv);

    s_temporaryStore = std::make_unique<CTemporarySettings>((home.path() + "/anchor").toUtf8().constData());
    seedStores();

    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    useSystemStore();
    s_temporaryStore.reset();
    return 0;
}
