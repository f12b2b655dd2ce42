#include "support/TestRegistry.h"

#include "SimRecords.h"

#include "base/Numbers.h"
#include "link/sim/InstrumentSimulator.h"

#include <QRegularExpression>
#include <QSet>
#include <QTest>

#include <algorithm>
#include <climits>

using Fault = SimulatorOptions::Fault;
using Mode = SimulatorOptions::Mode;
using Units = SimulatorOptions::Units;

Q_DECLARE_METATYPE(SimulatorOptions::Fault)
Q_DECLARE_METATYPE(SimulatorOptions::Mode)
Q_DECLARE_METATYPE(SimulatorOptions::Units)

namespace {

// One word per record, so that whole streams compare as short strings: P parameter block,
// R real-time reading, #NNN stored reading, S group separator, E empty location,
// N noise ended by BEL, n noise without BEL, - nothing (the stream has ended).
QString kindOf(const QByteArray& record)
{
    static const QRegularExpression stored("^(#\\d{3,})   -?\\d+   DEG [FC]\\x07$");
    static const QRegularExpression reading("^ *-?\\d+   DEG [FC]\\x07$");
    static const QRegularExpression shortReading("^  -?\\d+\\x07$");
    const QString text = QString::fromLatin1(record);
    if (record.isEmpty())
        return "-";
    if (record.startsWith('\x0b') && record.endsWith('\x07'))
        return "P";
    if (record == "\x07")
        return "E";
    if (record == "\r\n\x07")
        return "S";
    if (const auto m = stored.match(text); m.hasMatch())
        return m.captured(1);
    if ((reading.match(text).hasMatch() && record.size() == 15)
        || shortReading.match(text).hasMatch())
        return "R";
    return record.endsWith('\x07') ? "N" : "n";
}

QString kinds(InstrumentSimulator& sim, int count)
{
    QStringList words;
    for (int i = 0; i < count; ++i)
        words << kindOf(sim.nextRecord());
    return words.join(' ');
}

QString numbered(int from, int to)
{
    QStringList words;
    for (int i = from; i <= to; ++i)
        words << QStringLiteral("#%1").arg(i, 3, 10, QLatin1Char('0'));
    return words.join(' ');
}

// The value of a real-time reading the way the receiving end reads it: the field before the
// first run of blanks after the leading ones.
int readingValue(const QByteArray& record)
{
    const QString text = QString::fromLatin1(record).remove(QChar(7));
    const QString field = text.trimmed().section(' ', 0, 0);
    bool ok = false;
    const int value = field.toInt(&ok);
    return ok ? value : INT_MIN;
}

} // namespace

class TestSimulator : public QObject {
    Q_OBJECT
private slots:
    void parameterBlockBytes_data()
    {
        QTest::addColumn<Units>("units");
        QTest::addColumn<bool>("ambientMissing");
        QTest::addColumn<int>("interval");
        QTest::addColumn<QByteArray>("expected"); // %1 = the first reading, right in six places

        const QByteArray fahrenheit = "\x0b  DEG F\r\n"
                                      "INT (SECS)      2\r\n"
                                      "EMISSIVITY      0.95\r\n"
                                      "HI ALARM        85\r\n"
                                      "LO ALARM        25\r\n"
                                      "MAX TEMP        %2\r\n"
                                      "AMB TEMP        72\r\n"
                                      "MIN TEMP        %2\r\n"
                                      "AVG TEMP        %2\r\n"
                                      "STORED PTS      0\r\n"
                                      "%1   DEG F\r\n"
                                      "\x07";
        QTest::newRow("fahrenheit") << Units::Fahrenheit << false << 2 << fahrenheit;
        QTest::newRow("no ambient reading")
            << Units::Fahrenheit << true << 2
            << QByteArray(fahrenheit).replace("AMB TEMP        72", "AMB TEMP        ---");
        QTest::newRow("interval unknown")
            << Units::Fahrenheit << false << 0
            << QByteArray(fahrenheit).replace("INT (SECS)      2", "INT (SECS)      ");
        QTest::newRow("long interval")
            << Units::Fahrenheit << false << 3600
            << QByteArray(fahrenheit).replace("INT (SECS)      2", "INT (SECS)      3600");
        QTest::newRow("celsius") << Units::Celsius << false << 2
                                 << QByteArray(fahrenheit)
                                        .replace("DEG F", "DEG C")
                                        .replace("ALARM        85", "ALARM        29")
                                        .replace("ALARM        25", "ALARM        -4")
                                        .replace("TEMP        72", "TEMP        22");
    }
    void parameterBlockBytes()
    {
        QFETCH(Units, units);
        QFETCH(bool, ambientMissing);
        QFETCH(int, interval);
        QFETCH(QByteArray, expected);
        SimulatorOptions options;
        options.units = units;
        options.ambientMissing = ambientMissing;
        options.intervalSeconds = interval;
        options.storedCount = 0; // nothing stored: the statistics are the first reading
        InstrumentSimulator sim(options);
        const int first = sim.temperatureAt(sim.firstLiveSample());
        const QByteArray block = QString::fromLatin1(expected)
                                     .arg(QString::number(first).rightJustified(6))
                                     .arg(first)
                                     .toLatin1();
        QCOMPARE(sim.parameterBlock(), block);
        QCOMPARE(sim.nextRecord(), block);
    }

    // The block's statistics describe the readings a download of the same instrument delivers.
    void parameterBlockStatisticsMatchTheMemory_data()
    {
        QTest::addColumn<Units>("units");
        QTest::addColumn<int>("stored");
        QTest::newRow("fahrenheit, 120") << Units::Fahrenheit << 120;
        QTest::newRow("celsius, 400") << Units::Celsius << 400;
        QTest::newRow("one") << Units::Fahrenheit << 1;
    }
    void parameterBlockStatisticsMatchTheMemory()
    {
        QFETCH(Units, units);
        QFETCH(int, stored);
        SimulatorOptions options;
        options.units = units;
        options.storedCount = stored;
        options.emptyLocations = 0;

        QList<int> values;
        options.mode = Mode::Download;
        InstrumentSimulator download(options);
        static const QRegularExpression record("^#\\d+   (-?\\d+)   DEG");
        while (!download.finished()) {
            const auto m = record.match(QString::fromLatin1(download.nextRecord()));
            if (m.hasMatch())
                values << m.captured(1).toInt();
        }
        QCOMPARE(values.size(), stored);
        double sum = 0;
        for (int v : values)
            sum += v;

        options.mode = Mode::RealTime;
        const QStringList lines
            = QString::fromLatin1(InstrumentSimulator(options).parameterBlock()).split("\r\n");
        QCOMPARE(lines.size(), 12); // eleven lines and the BEL
        auto value = [&](int line) { return lines.at(line).mid(16).toInt(); };
        QCOMPARE(value(5), *std::max_element(values.begin(), values.end()));
        QCOMPARE(value(7), *std::min_element(values.begin(), values.end()));
        QCOMPARE(value(8), qRound(sum / stored));
        QCOMPARE(value(9), stored);
    }

    void recordShapes_data()
    {
        QTest::addColumn<Units>("units");
        QTest::addColumn<bool>("shortForm");
        QTest::addColumn<QString>("readingPattern");
        QTest::newRow("long, F") << Units::Fahrenheit << false << "^ {2,5}-?\\d{1,4}   DEG F\\x07$";
        QTest::newRow("long, C") << Units::Celsius << false << "^ {2,5}-?\\d{1,4}   DEG C\\x07$";
        QTest::newRow("short") << Units::Fahrenheit << true << "^  -?\\d{1,4}\\x07$";
    }
    void recordShapes()
    {
        QFETCH(Units, units);
        QFETCH(bool, shortForm);
        QFETCH(QString, readingPattern);
        SimulatorOptions options;
        options.units = units;
        options.shortForm = shortForm;
        InstrumentSimulator sim(options);
        const QRegularExpression pattern(readingPattern);
        QVERIFY(sim.nextRecord().startsWith('\x0b'));
        for (int i = 1; i <= 50; ++i) {
            const QByteArray record = sim.nextRecord();
            QVERIFY2(pattern.match(QString::fromLatin1(record)).hasMatch(), record.constData());
            if (!shortForm)
                QCOMPARE(record.size(), 15); // the value right in six places
            QCOMPARE(readingValue(record), sim.temperatureAt(sim.firstLiveSample() + i));
            // What the receiving end tests a short record with.
            QVERIFY(Numbers::IsNumeric(QString::fromLatin1(record.chopped(1))) == shortForm);
        }
        QCOMPARE(sim.storedRecord(7, 0),
            QStringLiteral("#007   %1   DEG %2\x07")
                .arg(sim.temperatureAt(0))
                .arg(units == Units::Celsius ? 'C' : 'F')
                .toLatin1());
        QVERIFY(sim.storedRecord(1234, 0).startsWith("#1234   "));
    }

    void downloadLayout_data()
    {
        QTest::addColumn<int>("stored");
        QTest::addColumn<int>("empty");
        QTest::addColumn<QString>("expected");
        QTest::newRow("short memory") << 3 << 1 << numbered(1, 3) + " E -";
        QTest::newRow("one whole group, no separator") << 10 << 0 << numbered(1, 10) + " -";
        QTest::newRow("second group begins") << 11 << 2 << numbered(1, 10) + " S #011 E E -";
        QTest::newRow("three groups")
            << 21 << 1 << numbered(1, 10) + " S " + numbered(11, 20) + " S #021 E -";
        QTest::newRow("empty memory") << 0 << 2 << "E E -";
        QTest::newRow("nothing at all") << 0 << 0 << "-";
    }
    void downloadLayout()
    {
        QFETCH(int, stored);
        QFETCH(int, empty);
        QFETCH(QString, expected);
        SimulatorOptions options;
        options.mode = Mode::Download;
        options.storedCount = stored;
        options.emptyLocations = empty;
        InstrumentSimulator sim(options);
        const int count = int(expected.count(' ')) + 1;
        QCOMPARE(kinds(sim, count), expected);
        QVERIFY(sim.finished());
        QCOMPARE(sim.totalRecords(), count - 1);
        QCOMPARE(sim.nextRecordDueSeconds(), 0.0); // a download goes out in one go
    }

    void faults_data()
    {
        QTest::addColumn<Mode>("mode");
        QTest::addColumn<Fault>("fault");
        QTest::addColumn<int>("after");
        QTest::addColumn<QString>("expected");
        QTest::newRow("real time, none") << Mode::RealTime << Fault::None << 0 << "P R R R R";
        QTest::newRow("real time, silent from the start")
            << Mode::RealTime << Fault::Silence << 0 << "- - -";
        QTest::newRow("real time, silent after three")
            << Mode::RealTime << Fault::Silence << 3 << "P R R - -";
        QTest::newRow("real time, blank records")
            << Mode::RealTime << Fault::BlankRecords << 2 << "P R E E E E E E";
        QTest::newRow("real time, stored records")
            << Mode::RealTime << Fault::WrongMode << 1 << "P #001 #002 #003";
        QTest::newRow("real time, noise") << Mode::RealTime << Fault::Noise << 1 << "P N N N";
        QTest::newRow("real time, noise without BEL")
            << Mode::RealTime << Fault::NoiseWithoutBel << 0 << "n n n";
        QTest::newRow("download, readings")
            << Mode::Download << Fault::WrongMode << 2 << "#001 #002 R R R R -";
        QTest::newRow("download, silent")
            << Mode::Download << Fault::Silence << 3 << "#001 #002 #003 - -";
        QTest::newRow("download, noise") << Mode::Download << Fault::Noise << 0 << "N N N N N N -";
        QTest::newRow("download, blank")
            << Mode::Download << Fault::BlankRecords << 4 << "#001 #002 #003 #004 E E -";
        QTest::newRow("download, fault never reached")
            << Mode::Download << Fault::Silence << 50 << "#001 #002 #003 #004 #005 E -";
    }
    void faults()
    {
        QFETCH(Mode, mode);
        QFETCH(Fault, fault);
        QFETCH(int, after);
        QFETCH(QString, expected);
        SimulatorOptions options;
        options.mode = mode;
        options.fault = fault;
        options.faultAfter = after;
        options.storedCount = 5;
        options.emptyLocations = 1;
        InstrumentSimulator sim(options);
        QCOMPARE(kinds(sim, int(expected.count(' ')) + 1), expected);
    }

    void noiseBursts_data()
    {
        QTest::addColumn<Fault>("fault");
        QTest::newRow("ended by BEL") << Fault::Noise;
        QTest::newRow("without BEL") << Fault::NoiseWithoutBel;
    }
    void noiseBursts()
    {
        QFETCH(Fault, fault);
        SimulatorOptions options;
        options.fault = fault;
        InstrumentSimulator sim(options);
        QSet<char> seen;
        for (int i = 0; i < 200; ++i) {
            const QByteArray burst = sim.nextRecord();
            const QByteArray body = fault == Fault::Noise ? burst.chopped(1) : burst;
            QVERIFY(!body.isEmpty());
            QVERIFY(!body.contains('\x07'));
            QCOMPARE(burst.endsWith('\x07'), fault == Fault::Noise);
            for (char c : body)
                seen.insert(c);
        }
        QVERIFY(seen.size() > 200); // bytes of every sort, not a few repeated
        QVERIFY(seen.contains('#') && seen.contains('\x0b'));
    }

    void sameSeedSameStream_data()
    {
        QTest::addColumn<Mode>("mode");
        QTest::addColumn<Fault>("fault");
        QTest::newRow("real time") << Mode::RealTime << Fault::None;
        QTest::newRow("download") << Mode::Download << Fault::None;
        QTest::newRow("noise") << Mode::RealTime << Fault::Noise;
    }
    void sameSeedSameStream()
    {
        QFETCH(Mode, mode);
        QFETCH(Fault, fault);
        SimulatorOptions options;
        options.mode = mode;
        options.fault = fault;
        options.faultAfter = 1;
        options.seed = 42;
        const QByteArray first = simRecords(options, 300);
        QCOMPARE(simRecords(options, 300), first);
        options.seed = 43;
        QVERIFY(simRecords(options, 300) != first);
    }

    void waveform_data()
    {
        QTest::addColumn<quint32>("seed");
        QTest::newRow("seed 1") << 1u;
        QTest::newRow("seed 7") << 7u;
        QTest::newRow("seed 123456") << 123456u;
    }
    void waveform()
    {
        QFETCH(quint32, seed);
        SimulatorOptions options;
        options.seed = seed;
        const InstrumentSimulator fahrenheit(options);
        options.units = Units::Celsius;
        const InstrumentSimulator celsius(options);

        int above = 0, below = 0, gentle = 0;
        const int samples = 600;
        for (int n = 0; n < samples; ++n) {
            const int f = fahrenheit.temperatureAt(n);
            QVERIFY2(f >= 10 && f <= 120, qPrintable(QString::number(f)));
            above += f > 85;
            below += f < 25;
            if (n > 0 && qAbs(f - fahrenheit.temperatureAt(n - 1)) <= 5)
                ++gentle;
            QVERIFY(qAbs(celsius.temperatureAt(n) - (f - 32) * 5.0 / 9.0) <= 0.8);
        }
        // Crosses the usual limits both ways, mostly inside them, and moves smoothly.
        QVERIFY(above > samples / 10);
        QVERIFY(below >= 2 && below < samples / 20);
        QVERIFY(gentle > samples * 9 / 10);
    }
};

TALAVEX_TEST(TestSimulator)
#include "TestSimulator.moc"
