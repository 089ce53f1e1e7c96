// Packs and unpacks about 200 MB of mixed files (text, JPEG images, many small
// files) with CompressFiles and the plain DecompressFiles, and with the zip and unzip
// tools on the same files, then prints each pair's speed ratio. The files are made in
// a temporary folder at start and removed at the end.
#include "ArchiveHelpers.h"

#include <benchmark/benchmark.h>

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QImage>
#include <QProcess>
#include <QRandomGenerator>
#include <QTemporaryDir>

#include <cstdio>
#include <ctime>
#include <functional>
#include <map>
#include <string>

#include <sys/resource.h>

namespace {

struct Corpus
{
    explicit Corpus(const QString& workspace)
        : workspace(workspace)
        , root(workspace + QStringLiteral("/corpus-XXXXXX"))
    {
    }
    QString outputPath(const char* name) const { return workspace + '/' + QLatin1String(name); }

    QString workspace; // the corpus folder and every archive and output sit here
    QTemporaryDir root;
    QStringList files;
    qint64 bytes = 0;
    QString ourArchive;  // made by CompressFiles, unpacked by both sides
};

Corpus* s_corpus = nullptr;
// Per run: wall-clock seconds, and the processor seconds that the work itself used
// (ours in this process, the tool's in its child). The machine is shared, so the
// processor time is the steadier of the two to compare.
std::map<std::string, double> s_secondsPerRun;
std::map<std::string, double> s_cpuSecondsPerRun;

double processCpuSeconds()
{
    timespec now = {};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &now);
    return now.tv_sec + now.tv_nsec / 1e9;
}

double childrenCpuSeconds()
{
    rusage usage = {};
    getrusage(RUSAGE_CHILDREN, &usage);
    return usage.ru_utime.tv_sec + usage.ru_utime.tv_usec / 1e6 + usage.ru_stime.tv_sec
         + usage.ru_stime.tv_usec / 1e6;
}

const char* const kWords[] = {"photo", "lens", "distortion", "keystone", "horizon", "crop", "tilt", "shift",
                              "anamorphic", "correction", "pixel", "calibration", "module", "profile", "the",
                              "and", "of", "with", "image", "frame"};

QByteArray textData(int size, QRandomGenerator& random)
{
    QByteArray text;
    text.reserve(size + 32);
    while (text.size() < size) {
        text += kWords[random.bounded(int(sizeof(kWords) / sizeof(kWords[0])))];
        text += random.bounded(12) == 0 ? '\n' : ' ';
    }
    text.truncate(size);
    return text;
}

QByteArray binaryData(int size, QRandomGenerator& random)
{
    QByteArray data(size, Qt::Uninitialized);
    random.fillRange(reinterpret_cast<quint32*>(data.data()), size / 4);
    return data;
}

// A noisy gradient: JPEG keeps it large, like a real photograph.
QImage noisyImage(int width, int height, QRandomGenerator& random)
{
    QImage image(width, height, QImage::Format_RGB32);
    for (int y = 0; y < height; ++y) {
        QRgb* line = reinterpret_cast<QRgb*>(image.scanLine(y));
        for (int x = 0; x < width; ++x) {
            const quint32 noise = random.generate();
            line[x] = qRgb((x * 255 / width + (noise & 63)) & 255, (y * 255 / height + ((noise >> 8) & 63)) & 255,
                           (noise >> 16) & 255);
        }
    }
    return image;
}

bool addFile(Corpus& corpus, const QString& name, const QByteArray& content)
{
    const QString path = corpus.root.filePath(name);
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
        return false;
    corpus.files << path;
    corpus.bytes += content.size();
    return true;
}

bool makeCorpus(Corpus& corpus)
{
    QRandomGenerator random(20240611);
    for (int i = 0; i < 40; ++i) // about 80 MB of text
        if (!addFile(corpus, QStringLiteral("text%1.txt").arg(i), textData(2 * 1024 * 1024, random)))
            return false;
    while (corpus.bytes < 160LL * 1024 * 1024) { // about 80 MB of JPEG images
        const QString path = corpus.root.filePath(QStringLiteral("image%1.jpg").arg(corpus.files.size()));
        if (!noisyImage(1600, 1200, random).save(path, "JPEG", 92))
            return false;
        corpus.files << path;
        corpus.bytes += QFileInfo(path).size();
    }
    for (int i = 0; i < 4000; ++i) { // 4000 small files, about 40 MB
        const int size = 2048 + random.bounded(16384);
        const QByteArray content = i % 2 ? textData(size, random) : binaryData(size, random);
        if (!addFile(corpus, QStringLiteral("small%1.%2").arg(i).arg(i % 2 ? "txt" : "bin"), content))
            return false;
    }
    return true;
}

bool runTool(const QString& program, const QStringList& arguments, const QByteArray& input = QByteArray())
{
    QProcess process;
    process.start(program, arguments);
    if (!process.waitForStarted())
        return false;
    process.write(input);
    process.closeWriteChannel();
    return process.waitForFinished(-1) && process.exitStatus() == QProcess::NormalExit && process.exitCode() == 0;
}

// Runs work once per iteration, timing only it: prepare (removing the last output)
// stays outside both clocks. cpuClock tells whose processor time counts.
void measure(benchmark::State& state, const char* name, double (*cpuClock)(), const std::function<void()>& prepare,
             const std::function<bool()>& work)
{
    double seconds = 0;
    double cpuSeconds = 0;
    for (auto _ : state) {
        prepare();
        const double cpuStart = cpuClock();
        QElapsedTimer timer;
        timer.start();
        if (!work())
            state.SkipWithError(name);
        seconds += timer.nsecsElapsed() / 1e9;
        cpuSeconds += cpuClock() - cpuStart;
    }
    state.SetBytesProcessed(int64_t(state.iterations()) * s_corpus->bytes);
    s_secondsPerRun[name] = seconds / double(state.iterations());
    s_cpuSecondsPerRun[name] = cpuSeconds / double(state.iterations());
    state.counters["work_cpu_s"] = s_cpuSecondsPerRun[name];
}

void BM_CompressFiles(benchmark::State& state)
{
    const QString archive = s_corpus->outputPath("bench-ours.zip");
    measure(state, "compress", processCpuSeconds, [&]() { QFile::remove(archive); },
            [&]() { return Vexa::CompressFiles(s_corpus->files, archive); });
    state.counters["archive_MB"] = QFileInfo(archive).size() / 1e6;
    s_corpus->ourArchive = archive;
}

void BM_ZipTool(benchmark::State& state)
{
    const QString archive = s_corpus->outputPath("bench-tool.zip");
    const QByteArray names = s_corpus->files.join('\n').toLocal8Bit() + '\n';
    // -j stores bare file names, as CompressFiles does; -@ reads the list.
    measure(state, "zip", childrenCpuSeconds, [&]() { QFile::remove(archive); },
            [&]() { return runTool("zip", QStringList() << "-q" << "-j" << "-@" << archive, names); });
    state.counters["archive_MB"] = QFileInfo(archive).size() / 1e6;
    QFile::remove(archive);
}

void BM_DecompressFiles(benchmark::State& state)
{
    const QString target = s_corpus->outputPath("bench-out-ours");
    measure(state, "decompress", processCpuSeconds, [&]() { QDir(target).removeRecursively(); },
            [&]() { return ::DecompressFiles(s_corpus->ourArchive.toStdWString(), target.toStdWString()); });
    QDir(target).removeRecursively();
}

void BM_UnzipTool(benchmark::State& state)
{
    const QString target = s_corpus->outputPath("bench-out-tool");
    measure(state, "unzip", childrenCpuSeconds, [&]() { QDir(target).removeRecursively(); },
            [&]() { return runTool("unzip", QStringList() << "-q" << "-o" << s_corpus->ourArchive << "-d" << target); });
    QDir(target).removeRecursively();
}

BENCHMARK(BM_CompressFiles)->Unit(benchmark::kMillisecond)->Iterations(3)->UseRealTime();
BENCHMARK(BM_ZipTool)->Unit(benchmark::kMillisecond)->Iterations(3)->UseRealTime();
BENCHMARK(BM_DecompressFiles)->Unit(benchmark::kMillisecond)->Iterations(3)->UseRealTime();
BENCHMARK(BM_UnzipTool)->Unit(benchmark::kMillisecond)->Iterations(3)->UseRealTime();

void printRatio(const char* ours, const char* tool)
{
    if (!s_secondsPerRun.count(ours) || !s_secondsPerRun.count(tool))
        return;
    const double megabytes = s_corpus->bytes / 1e6;
    std::printf("%-10s %7.1f MB/s (%7.1f MB/s of processor time)   %-6s %7.1f MB/s (%7.1f)   "
                "ratio %.2f, by processor time %.2f\n",
                ours, megabytes / s_secondsPerRun[ours], megabytes / s_cpuSecondsPerRun[ours], tool,
                megabytes / s_secondsPerRun[tool], megabytes / s_cpuSecondsPerRun[tool],
                s_secondsPerRun[tool] / s_secondsPerRun[ours], s_cpuSecondsPerRun[tool] / s_cpuSecondsPerRun[ours]);
}

} // namespace

int main(int argc, char** argv)
{
    QCoreApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    QTemporaryDir workspace;
    Corpus corpus(workspace.path());
    if (!workspace.isValid() || !corpus.root.isValid() || !makeCorpus(corpus)) {
        std::fprintf(stderr, "could not generate the files to pack\n");
        return 1;
    }
    std::printf("corpus: %lld files, %.1f MB\n", static_cast<long long>(corpus.files.size()), corpus.bytes / 1e6);
    s_corpus = &corpus;
    benchmark::RunSpecifiedBenchmarks();
    printRatio("compress", "zip");
    printRatio("decompress", "unzip");
    s_corpus = nullptr;
    return 0;
}
