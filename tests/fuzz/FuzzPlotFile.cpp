// The plot file (.rec) reader on arbitrary bytes, and a save-and-load-again round trip: the
// readings, the axis ranges and the time unit come back exactly, the titles as one line each.
// Byte 0 even: the rest is a file to read, whose plot is then saved and loaded again. Odd: the
// rest makes a plot (time unit, four axis bounds, titles, raw doubles for the points) to save
// and load. The files go to a folder under TMPDIR.
#include "FuzzCheck.h"
#include "chart/PlotFile.h"

#include <QFile>
#include <QTemporaryDir>
#include <array>
#include <cmath>
#include <cstdint>
#include <fuzzer/FuzzedDataProvider.h>

namespace {
double finite(FuzzedDataProvider& in)
{
    double value = 0;
    const std::vector<uint8_t> bytes = in.ConsumeBytes<uint8_t>(sizeof value);
    std::copy(bytes.begin(), bytes.end(), reinterpret_cast<uint8_t*>(&value));
    return std::isfinite(value) ? value : 0.0;
}

QString title(FuzzedDataProvider& in)
{
    return QString::fromUtf8(QByteArray::fromStdString(in.ConsumeRandomLengthString(200)));
}

std::array<QString*, 4> titles(PlotData& plot)
{
    return { &plot.xTitle, &plot.yTitle, &plot.unitsCaption, &plot.intervalCaption };
}
} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    static QTemporaryDir folder;
    FUZZ_CHECK(folder.isValid());
    if (size < 1)
        return 0;
    const QString path = folder.filePath(QStringLiteral("plot.rec"));
    PlotData plot;
    if (data[0] % 2 == 0) {
        QFile file(path);
        FUZZ_CHECK(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
        FUZZ_CHECK(file.write(reinterpret_cast<const char*>(data + 1), qint64(size - 1))
            == qint64(size - 1));
        file.close();
        QString error;
        if (!PlotFile::Read(path, &plot, &error)) {
            FUZZ_CHECK(!error.isEmpty());
            return 0;
        }
        FUZZ_CHECK(plot.x.size() == plot.y.size());
    } else {
        FuzzedDataProvider in(data + 1, size - 1);
        plot.timeUnit = in.ConsumeIntegral<qint16>();
        for (QString* text : titles(plot))
            *text = title(in);
        for (double* bound : { &plot.xMin, &plot.xMax, &plot.yMin, &plot.yMax })
            *bound = finite(in);
        while (in.remaining_bytes() > 0) {
            plot.x.push_back(finite(in));
            plot.y.push_back(finite(in));
        }
    }

    FUZZ_CHECK(PlotFile::Write(path, plot).ok);
    PlotData loaded;
    QString error;
    FUZZ_CHECK(PlotFile::Read(path, &loaded, &error));
    for (QString* title : titles(plot))
        title->replace(QLatin1Char('\r'), QLatin1Char(' '))
            .replace(QLatin1Char('\n'), QLatin1Char(' '));
    FUZZ_CHECK(loaded == plot);
    return 0;
}
