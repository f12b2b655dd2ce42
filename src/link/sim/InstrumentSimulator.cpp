#include "InstrumentSimulator.h"

#include <QString>
#include <cmath>

namespace {

constexpr double Pi = 3.14159265358979323846;
constexpr int SlowPeriod = 80; // samples per slow swing
constexpr int FastPeriod = 23;
constexpr int DipLength = 12; // samples a cold dip lasts
constexpr double DipFloor = 18.0; // DEG F at the bottom of a dip

// Random streams, so that noise bytes and waveform noise never share numbers.
enum Stream : quint64 { PhaseStream = 1, WaveNoiseStream, NoiseLengthStream, NoiseByteStream };

quint64 mix(quint64 z)
{
    z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9ULL;
    z = (z ^ (z >> 27)) * 0x94D049BB133111EBULL;
    return z ^ (z >> 31);
}

QByteArray text(const QString& s) { return s.toLatin1(); }

// A parameter line: the label left in a 16-character field, then the value.
QByteArray parameterLine(const char* label, const QString& value)
{
    return text(QString::fromLatin1(label).leftJustified(16) + value) + "\r\n";
}

} // namespace

InstrumentSimulator::InstrumentSimulator(const SimulatorOptions& options)
    : options_(options)
{
}

quint64 InstrumentSimulator::random(quint64 stream, quint64 n) const
{
    return mix(mix(options_.seed * 0x9E3779B97F4A7C15ULL + stream) + n * 0xD1B54A32D192ED03ULL);
}

double InstrumentSimulator::fahrenheitAt(int sample) const
{
    const double phase1 = 2 * Pi * double(random(PhaseStream, 0) % 1000) / 1000.0;
    const double phase2 = 2 * Pi * double(random(PhaseStream, 1) % 1000) / 1000.0;
    const int dipPeriod = 150 + int(random(PhaseStream, 2) % 50);
    const int dipOffset = int(random(PhaseStream, 3) % quint64(dipPeriod));

    const double n = sample;
    double value = 92.0 + 15.0 * std::sin(2 * Pi * n / SlowPeriod + phase1)
        + 3.0 * std::sin(2 * Pi * n / FastPeriod + phase2);
    // About one degree of sensor noise either way.
    value += double(random(WaveNoiseStream, quint64(sample)) % 2001) / 1000.0 - 1.0;

    // The operator now and then aims at something cold; a raised-cosine envelope keeps it smooth.
    const int inCycle = int((qint64(sample) + dipOffset) % dipPeriod);
    if (inCycle < DipLength) {
        const double s = std::sin(Pi * (inCycle + 0.5) / DipLength);
        const double weight = s * s;
        value = value * (1.0 - weight) + DipFloor * weight;
    }
    return value;
}

int InstrumentSimulator::temperatureAt(int sample) const
{
    const double f = fahrenheitAt(sample);
    if (options_.units == SimulatorOptions::Units::Celsius)
        return int(std::lround((f - 32.0) * 5.0 / 9.0));
    return int(std::lround(f));
}

QByteArray InstrumentSimulator::unitsText() const
{
    return options_.units == SimulatorOptions::Units::Celsius ? "DEG C" : "DEG F";
}

QByteArray InstrumentSimulator::parameterBlock() const
{
    const bool celsius = options_.units == SimulatorOptions::Units::Celsius;
    const int first = temperatureAt(firstLiveSample());

    int maxTemp = first;
    int minTemp = first;
    double average = first;
    if (options_.storedCount > 0) {
        maxTemp = minTemp = temperatureAt(0);
        double sum = 0;
        for (int i = 0; i < options_.storedCount; ++i) {
            const int t = temperatureAt(i);
            maxTemp = qMax(maxTemp, t);
            minTemp = qMin(minTemp, t);
            sum += t;
        }
        average = sum / options_.storedCount;
    }

    QByteArray block;
    block += VerticalTab;
    block += "  " + unitsText() + "\r\n";
    block += parameterLine("INT (SECS)",
        options_.intervalSeconds > 0 ? QString::number(options_.intervalSeconds) : QString());
    block += parameterLine("EMISSIVITY", QStringLiteral("0.95"));
    block += parameterLine("HI ALARM", QString::number(celsius ? 29 : 85));
    block += parameterLine("LO ALARM", QString::number(celsius ? -4 : 25));
    block += parameterLine("MAX TEMP", QString::number(maxTemp));
    block += parameterLine("AMB TEMP",
        options_.ambientMissing ? QStringLiteral("---") : QString::number(celsius ? 22 : 72));
    block += parameterLine("MIN TEMP", QString::number(minTemp));
    block += parameterLine("AVG TEMP", QString::number(std::lround(average)));
    block += parameterLine("STORED PTS", QString::number(qMax(0, options_.storedCount)));
    // The first reading always comes in the long form: the program only takes a first reading
    // of ten characters or more from the block.
    block += text(QString::number(first).rightJustified(6)) + "   " + unitsText() + "\r\n";
    block += Bel;
    return block;
}

QByteArray InstrumentSimulator::readingRecord(int sample) const
{
    const QString value = QString::number(temperatureAt(sample));
    if (options_.shortForm)
        return text("  " + value) + Bel;
    return text(value.rightJustified(6)) + "   " + unitsText() + Bel;
}

QByteArray InstrumentSimulator::storedRecord(int number, int sample) const
{
    return text(QStringLiteral("#%1   %2   ")
                    .arg(number, 3, 10, QLatin1Char('0'))
                    .arg(temperatureAt(sample)))
        + unitsText() + Bel;
}

QByteArray InstrumentSimulator::noiseRecord(int index) const
{
    const int length = 1 + int(random(NoiseLengthStream, quint64(index)) % 40);
    QByteArray bytes;
    bytes.reserve(length + 1);
    for (int i = 0; i < length; ++i) {
        char c = char(random(NoiseByteStream, quint64(index) * 64 + quint64(i)) & 0xff);
        // BEL only ever ends a burst, so that the record boundaries stay where they are meant.
        if (c == Bel)
            c = 0;
        bytes += c;
    }
    if (options_.fault == SimulatorOptions::Fault::Noise)
        bytes += Bel;
    return bytes;
}

int InstrumentSimulator::downloadRecordCount() const
{
    const int stored = qMax(0, options_.storedCount);
    const int separators = stored > 0 ? (stored - 1) / GroupSize : 0;
    return stored + separators + qMax(0, options_.emptyLocations);
}

int InstrumentSimulator::totalRecords() const
{
    if (options_.fault == SimulatorOptions::Fault::Silence) {
        const int normal = qMax(0, options_.faultAfter);
        return options_.mode == SimulatorOptions::Mode::Download
            ? qMin(normal, downloadRecordCount())
            : normal;
    }
    return options_.mode == SimulatorOptions::Mode::Download ? downloadRecordCount() : -1;
}

bool InstrumentSimulator::finished() const
{
    const int total = totalRecords();
    return total >= 0 && index_ >= total;
}

double InstrumentSimulator::nextRecordDueSeconds() const
{
    if (options_.mode == SimulatorOptions::Mode::Download)
        return 0.0;
    return double(index_) * (options_.intervalSeconds > 0 ? options_.intervalSeconds : 1);
}

QByteArray InstrumentSimulator::normalRecord(int index) const
{
    if (options_.mode == SimulatorOptions::Mode::RealTime) {
        if (index == 0)
            return parameterBlock();
        return readingRecord(firstLiveSample() + index);
    }

    const int stored = qMax(0, options_.storedCount);
    const int separators = stored > 0 ? (stored - 1) / GroupSize : 0;
    if (index >= stored + separators)
        return QByteArray(1, Bel); // an empty memory location
    // Every group of ten is followed by its separator, except the last group.
    const int group = index / (GroupSize + 1);
    const int within = index % (GroupSize + 1);
    if (within == GroupSize)
        return QByteArray("\r\n") + Bel;
    const int number = group * GroupSize + within + 1;
    return storedRecord(number, number - 1);
}

QByteArray InstrumentSimulator::faultRecord(int index) const
{
    const int nth = index - options_.faultAfter; // 0 for the first faulty record
    switch (options_.fault) {
    case SimulatorOptions::Fault::BlankRecords:
        return QByteArray(1, Bel);
    case SimulatorOptions::Fault::WrongMode:
        if (options_.mode == SimulatorOptions::Mode::RealTime)
            return storedRecord(nth + 1, firstLiveSample() + index);
        return readingRecord(firstLiveSample() + nth);
    case SimulatorOptions::Fault::Noise:
    case SimulatorOptions::Fault::NoiseWithoutBel:
        return noiseRecord(index);
    case SimulatorOptions::Fault::None:
    case SimulatorOptions::Fault::Silence:
        break;
    }
    return normalRecord(index);
}

QByteArray InstrumentSimulator::nextRecord()
{
    if (finished())
        return QByteArray();
    const int index = index_++;
    if (options_.fault != SimulatorOptions::Fault::None && index >= options_.faultAfter)
        return faultRecord(index);
    return normalRecord(index);
}
