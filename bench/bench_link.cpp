#include "BenchPlatform.h"

#include <QCoreApplication>
#include <benchmark/benchmark.h>

namespace {

QByteArray parameterBlock()
{
    return QByteArray("\x0b  DEG F\r\nINT (SECS)      1\r\nEMISSIVITY      0.95\r\n"
                      "HI ALARM        200\r\nLO ALARM        50\r\nMAX TEMP        152\r\n"
                      "AMB TEMP        72\r\nMIN TEMP        70\r\nAVG TEMP        101\r\n"
                      "STORED PTS      120\r\n  1234   DEG F\r\n\x07");
}

QByteArray readings(int count)
{
    QByteArray bytes;
    for (int i = 0; i < count; ++i)
        bytes += "  " + QByteArray::number(60 + i % 50) + "   DEG F\x07";
    return bytes;
}

// Characters per second through the whole receive path: record assembly, classification,
// the readout, the chart and the last-obtained file.
void BM_ReceiveHandler(benchmark::State& state)
{
    bench::Rig rig;
    rig.port.deliver(parameterBlock());
    const QByteArray stream = readings(10000);
    for (auto _ : state)
        rig.port.deliver(stream);
    state.SetBytesProcessed(state.iterations() * stream.size());
    state.counters["chars_per_s"] = benchmark::Counter(
        double(state.iterations() * stream.size()), benchmark::Counter::kIsRate);
}
BENCHMARK(BM_ReceiveHandler)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char** argv)
{
    QCoreApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
