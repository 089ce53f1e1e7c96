// Sizes of the library and of its resource sets, and the time of installing a
// language with CLanguageManager::loadLanguageForApp.
#include "LanguageManager.h"
#include "Settings.h"

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QDirIterator>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QResource>
#include <QTemporaryDir>

#include <cstdio>

namespace {

struct SetSize
{
    int files = 0;
    qint64 unpacked = 0;
    qint64 stored = 0;
};

int setOf(const QString& path)
{
    if (path.startsWith(":/calibration/"))
        return 1;
    if (path.startsWith(":/translations/") && path.endsWith(".qm"))
        return 2;
    if (path.startsWith(":/icons/app_icon_rectivo/"))
        return 3;
    return 0;
}

void reportSizes()
{
    std::printf("library %s: %lld bytes\n", UTILSDLL_LIBRARY_FILE,
                static_cast<long long>(QFileInfo(UTILSDLL_LIBRARY_FILE).size()));
    SetSize sets[4];
    QDirIterator it(":/", QDir::Files, QDirIterator::Subdirectories);
    while (it.hasNext()) {
        const QString path = it.next();
        // Qt's own resources live under :/qt-project.org and are not ours.
        if (path.startsWith(":/qt-project.org"))
            continue;
        const QResource resource(path);
        SetSize& set = sets[setOf(path)];
        ++set.files;
        set.unpacked += resource.uncompressedSize();
        set.stored += resource.size();
    }
    for (int i = 0; i < 4; ++i)
        std::printf("resource set %d: %d files, %lld bytes unpacked, %lld bytes stored\n", i, sets[i].files,
                    static_cast<long long>(sets[i].unpacked), static_cast<long long>(sets[i].stored));
}

void BM_LoadLanguageForApp(benchmark::State& state)
{
    Vexa::CSettings().setValue("VexaAppLanguage", static_cast<unsigned>(state.range(0)));
    Vexa::CLanguageManager* manager = Vexa::CLanguageManager::instance();
    for (auto _ : state)
        manager->loadLanguageForApp();
}
// Each call leaves the application catalogue of a language with a toolkit catalogue
// installed (intended), so the runs are kept short.
BENCHMARK(BM_LoadLanguageForApp)->Arg(1033)->Arg(1031)->Iterations(200)->Unit(benchmark::kMicrosecond);

} // namespace

int main(int argc, char** argv)
{
    // The language is a stored preference: keep it out of the user's own settings.
    QTemporaryDir home;
    qputenv("HOME", home.path().toLocal8Bit());
    qputenv("XDG_CONFIG_HOME", home.filePath("config").toLocal8Bit());
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);

    reportSizes();
    Vexa::CSettings().setValue("VexaAppLanguage", 1031u);
    QElapsedTimer timer;
    timer.start();
    Vexa::CLanguageManager::instance()->loadLanguageForApp();
    std::printf("first loadLanguageForApp (German, model built): %.3f ms\n", timer.nsecsElapsed() / 1e6);

    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
