// compareImages against a plain read of the same memory, and drawToolLine.
#include "GuiUtils.h"
#include "ToolDrawing.h"

#include <QGuiApplication>
#include <QImage>
#include <QLineF>
#include <QPainter>

#include <benchmark/benchmark.h>

#include <cstdint>

namespace {

const int s_width = 6000;
const int s_height = 4000;

// Two images that differ everywhere a little, so no shortcut applies.
const QImage& image(int seed)
{
    static QImage images[2];
    QImage& made = images[seed];
    if (made.isNull()) {
        made = QImage(s_width, s_height, QImage::Format_ARGB32);
        std::uint32_t state = 2463534242u + std::uint32_t(seed);
        for (int y = 0; y < s_height; ++y) {
            auto* line = reinterpret_cast<std::uint32_t*>(made.scanLine(y));
            for (int x = 0; x < s_width; ++x) {
                state ^= state << 13;
                state ^= state >> 17;
                state ^= state << 5;
                line[x] = state;
            }
        }
    }
    return made;
}

std::int64_t bytesOfBoth()
{
    return 2 * std::int64_t(image(0).sizeInBytes());
}

void BM_CompareImages(benchmark::State& state)
{
    const QImage& first = image(0);
    const QImage& second = image(1);
    for (auto _ : state) {
        double difference = 0;
        benchmark::DoNotOptimize(Vexa::compareImages(first, second, difference, 1.0));
        benchmark::DoNotOptimize(difference);
    }
    state.SetBytesProcessed(state.iterations() * bytesOfBoth());
}
BENCHMARK(BM_CompareImages)->Unit(benchmark::kMillisecond);

// The baseline: sum every 32-bit word of both images, row by row as compareImages reads them.
void BM_MemoryReadBaseline(benchmark::State& state)
{
    const QImage& first = image(0);
    const QImage& second = image(1);
    for (auto _ : state) {
        std::uint64_t sum = 0;
        for (int y = 0; y < s_height; ++y) {
            const auto* a = reinterpret_cast<const std::uint32_t*>(first.constScanLine(y));
            const auto* b = reinterpret_cast<const std::uint32_t*>(second.constScanLine(y));
            for (int x = 0; x < s_width; ++x)
                sum += std::uint64_t(a[x]) + b[x];
        }
        benchmark::DoNotOptimize(sum);
    }
    state.SetBytesProcessed(state.iterations() * bytesOfBoth());
}
BENCHMARK(BM_MemoryReadBaseline)->Unit(benchmark::kMillisecond);

// A 2,000-pixel tiled line of a 16 by 8 tile, horizontal (arg 0) or at 30 degrees (arg 30).
void BM_DrawToolLine(benchmark::State& state)
{
    QImage target(2200, 1200, QImage::Format_ARGB32_Premultiplied);
    target.fill(Qt::white);
    QPixmap tile(16, 8);
    tile.fill(Qt::red);
    QLineF line(QPointF(100, 1100), QPointF(2100, 1100));
    line.setAngle(double(state.range(0)));
    QPainter painter(&target);
    for (auto _ : state)
        drawToolLine(line.p1(), line.p2(), tile, false, &painter, QRectF());
    state.counters["tiles"] = 2000 / 16 + 1;
}
BENCHMARK(BM_DrawToolLine)->Arg(0)->Arg(30)->Unit(benchmark::kMicrosecond);

} // namespace

int main(int argc, char** argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication app(argc, argv); // QPixmap needs it
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 1;
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
