// What a reading costs on the chart, how fast a million points redraw, what each plotted reading
// takes in memory, and what the cursor's read-out costs.
#include "base/AppState.h"
#include "base/MainWindowModel.h"
#include "chart/CursorReadout.h"
#include "chart/GraphingFunctions.h"
#include "chart/InMemoryChartSurface.h"
#include "ui/QCustomPlotSurface.h"

#include <QApplication>
#include <QFile>
#include <benchmark/benchmark.h>
#include <malloc.h>
#include <memory>
#include <qcustomplot.h>
#include <unistd.h>

namespace {

// Resident memory of this process, in bytes.
qint64 residentBytes()
{
    QFile statm(QStringLiteral("/proc/self/statm"));
    if (!statm.open(QIODevice::ReadOnly))
        return 0;
    const QList<QByteArray> fields = statm.readAll().split(' ');
    return fields.size() > 1 ? fields[1].toLongLong() * sysconf(_SC_PAGESIZE) : 0;
}

// Heap memory in use, in bytes.
qint64 heapBytes()
{
    const struct mallinfo2 info = mallinfo2();
    return qint64(info.uordblks + info.hblkhd);
}

// The engine as real-time sensing runs it: auto-scaling and the compressed mode on, the
// interval reloaded before every reading.
struct EngineRig {
    AppState state;
    MainWindowModel window;
    std::unique_ptr<QCustomPlot> plot;
    std::unique_ptr<ChartSurface> chart;
    std::unique_ptr<GraphingFunctions> engine;

    explicit EngineRig(bool onPlot)
    {
        if (onPlot) {
            plot = std::make_unique<QCustomPlot>();
            plot->resize(800, 600);
            chart = std::make_unique<QCustomPlotSurface>(*plot);
        } else {
            chart = std::make_unique<InMemoryChartSurface>();
        }
        engine = std::make_unique<GraphingFunctions>(*chart, state, window);
        state.Instrument.interval = SamplingInterval(QStringLiteral("1"));
        window.mnuAutoScaleYAxis.setChecked(true);
        window.mnuAutoCompressed.setChecked(true);
        engine->InitializeChart();
        engine->ResetChartSeries();
    }
    void add(qint16 reading)
    {
        state.TimeInterval = 1.0f;
        engine->AddReadingToChart(reading);
    }
    void fill(qint64 readings)
    {
        for (qint64 i = 0; i < readings; ++i)
            add(qint16(i % 1000));
    }
};

// Bytes per plotted reading: the heap in use and the growth of resident memory while a record of
// a million readings is filled. Registered first, so that the resident figure is not hidden by
// memory freed by the other runs.
void BM_MemoryPerReading_Plot(benchmark::State& bench)
{
    const qint64 readings = bench.range(0);
    double heap = 0;
    double resident = 0;
    for (auto _ : bench) {
        const qint64 residentBefore = residentBytes();
        const qint64 heapBefore = heapBytes();
        EngineRig rig(true);
        rig.fill(readings);
        heap = double(heapBytes() - heapBefore) / double(readings);
        resident = double(residentBytes() - residentBefore) / double(readings);
    }
    bench.counters["heap_bytes_per_reading"] = heap;
    bench.counters["rss_bytes_per_reading"] = resident;
}
BENCHMARK(BM_MemoryPerReading_Plot)->Arg(1000000)->Iterations(1)->Unit(benchmark::kMillisecond);

void addReading(benchmark::State& bench, bool onPlot)
{
    const int base = int(bench.range(0));
    EngineRig rig(onPlot);
    rig.fill(base);
    qint16 reading = 0;
    int added = 0;
    for (auto _ : bench) {
        rig.add(reading);
        reading = qint16((reading + 7) % 1000);
        // Keep the record near its starting size, outside the timing.
        if (++added == 1024) {
            bench.PauseTiming();
            rig.chart->setPointCount(1, base + 1);
            rig.chart->setX(1, base + 1, GraphingFunctions::EmptyPoint);
            added = 0;
            bench.ResumeTiming();
        }
    }
    bench.counters["points"] = base;
    bench.SetItemsProcessed(bench.iterations());
}

void BM_AddReading_InMemory(benchmark::State& bench) { addReading(bench, false); }
void BM_AddReading_Plot(benchmark::State& bench) { addReading(bench, true); }
BENCHMARK(BM_AddReading_InMemory)->Arg(1000)->Arg(1000000);
BENCHMARK(BM_AddReading_Plot)->Arg(1000)->Arg(1000000);

// The cursor's read-out over a record of 1,000 and of a million readings, the cursor anywhere in
// it: a search, so its cost barely grows with the record.
void BM_CursorReadout_InMemory(benchmark::State& bench)
{
    EngineRig rig(false);
    const qint64 readings = bench.range(0);
    rig.fill(readings);
    rig.chart->setAxisMax(ChartSurface::Axis::X, double(readings));
    double x = 0.25;
    for (auto _ : bench) {
        benchmark::DoNotOptimize(CursorReadout(*rig.chart, x));
        x = x + 7919.5 < double(readings) ? x + 7919.5 : x + 7919.5 - double(readings);
    }
    bench.counters["points"] = double(readings);
}
BENCHMARK(BM_CursorReadout_InMemory)->Arg(1000)->Arg(1000000);

// A full redraw of the plot with the whole record in view.
void BM_Redraw_Plot(benchmark::State& bench)
{
    EngineRig rig(true);
    rig.fill(bench.range(0));
    rig.chart->setAxisMin(ChartSurface::Axis::X, 0);
    rig.chart->setAxisMax(ChartSurface::Axis::X, double(bench.range(0)));
    for (auto _ : bench)
        rig.plot->replot(QCustomPlot::rpImmediateRefresh);
}
BENCHMARK(BM_Redraw_Plot)->Arg(1000000)->Unit(benchmark::kMillisecond);

// The redraw after SHOW ALL POINTS: 10,000 readings, and a week at one a second (604,800),
// varying as a real record does.
void BM_RedrawShowAll_Plot(benchmark::State& bench)
{
    EngineRig rig(true);
    const qint64 readings = bench.range(0);
    for (qint64 i = 0; i < readings; ++i)
        rig.add(qint16(70 + (i / 600) % 30 + (i * 7919) % 5));
    rig.engine->ShowAllPoints();
    for (auto _ : bench)
        rig.plot->replot(QCustomPlot::rpImmediateRefresh);
    bench.counters["points"] = double(readings);
}
BENCHMARK(BM_RedrawShowAll_Plot)->Arg(10000)->Arg(604800)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char** argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 1;
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
