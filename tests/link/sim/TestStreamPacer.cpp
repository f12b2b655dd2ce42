#include "support/TestRegistry.h"

#include "SimRecords.h"

#include "link/sim/StreamPacer.h"

#include <QTest>

namespace {

constexpr int LineRate = 480;
constexpr qint64 Second = 1000000;

// Microseconds a run of characters takes on the line.
qint64 lineTime(qint64 characters) { return (characters * Second + LineRate - 1) / LineRate; }

} // namespace

class TestStreamPacer : public QObject {
    Q_OBJECT
private slots:
    // Real time at 480 characters a second, 2 s interval: the block, then a 15-character
    // reading every two seconds. Rows: time, whole block out, characters beyond it.
    void realTimeSchedule_data()
    {
        QTest::addColumn<qint64>("us");
        QTest::addColumn<bool>("blockOut");
        QTest::addColumn<int>("beyond");
        QTest::newRow("start") << qint64(0) << false << 0;
        QTest::newRow("first character still on the wire") << qint64(2083) << false << 0;
        QTest::newRow("first character") << qint64(2084) << false << 1;
        QTest::newRow("a tenth of a second") << qint64(100000) << false << 48;
        QTest::newRow("block out, no reading yet") << Second << true << 0;
        QTest::newRow("before the first reading is complete") << 2 * Second + 2083 << true << 0;
        QTest::newRow("first reading begins") << 2 * Second + 2084 << true << 1;
        QTest::newRow("first reading out") << 2 * Second + 31250 << true << 15;
        QTest::newRow("second reading under way") << 4 * Second + 14584 << true << 22;
        QTest::newRow("four readings, the fifth just due") << 10 * Second << true << 60;
    }
    void realTimeSchedule()
    {
        QFETCH(qint64, us);
        QFETCH(bool, blockOut);
        QFETCH(int, beyond);
        const SimulatorOptions options;
        const int blockSize = InstrumentSimulator(options).parameterBlock().size();
        QVERIFY(blockSize < LineRate); // the block is out within the first second

        StreamPacer pacer(options, LineRate);
        const StreamPacer::Output out = pacer.take(us);
        const int expected = (blockOut ? blockSize : 0) + beyond;
        QCOMPARE(out.bytes.size(), expected);
        QCOMPARE(out.bytes, simRecords(options, 10).left(expected));
        QCOMPARE(pacer.take(us).bytes, QByteArray()); // nothing is handed out twice
    }

    // However finely time is cut, the same characters come out in the same order.
    void smallStepsSameBytes_data()
    {
        QTest::addColumn<int>("stepUs");
        QTest::newRow("1 ms") << 1000;
        QTest::newRow("7.3 ms") << 7300;
        QTest::newRow("333 ms") << 333000;
    }
    void smallStepsSameBytes()
    {
        QFETCH(int, stepUs);
        const SimulatorOptions options;
        StreamPacer whole(options, LineRate);
        const QByteArray expected = whole.take(9 * Second).bytes;
        StreamPacer stepped(options, LineRate);
        QByteArray bytes;
        int completed = 0;
        for (qint64 t = 0; t <= 9 * Second; t += stepUs) {
            const StreamPacer::Output out = stepped.take(t);
            bytes += out.bytes;
            completed += out.completed.size();
        }
        bytes += stepped.take(9 * Second).bytes;
        QCOMPARE(bytes, expected);
        QCOMPARE(completed, 5); // the block and readings at 2, 4, 6 and 8 s
    }

    // A record that is due while the one before is still going out follows it directly.
    void backToBack()
    {
        const SimulatorOptions options;
        StreamPacer pacer(options, LineRate, 0.01); // readings due every 20 ms
        const QByteArray block = InstrumentSimulator(options).parameterBlock();
        const qint64 blockEnd = lineTime(block.size());
        QCOMPARE(pacer.nextDueUs(), lineTime(1));
        const StreamPacer::Output out = pacer.take(blockEnd);
        QCOMPARE(out.bytes, block);
        QCOMPARE(out.completed, QList<QByteArray>({ block }));
        QCOMPARE(pacer.nextDueUs(), blockEnd + lineTime(1));
        QCOMPARE(pacer.take(blockEnd + lineTime(15)).completed.size(), 1);
    }

    void unpacedRealTime_data()
    {
        QTest::addColumn<int>("interval");
        QTest::addColumn<qint64>("spacing");
        QTest::newRow("2 s") << 2 << 2 * Second;
        QTest::newRow("unknown interval paced at 1 s") << 0 << Second;
    }
    void unpacedRealTime()
    {
        QFETCH(int, interval);
        QFETCH(qint64, spacing);
        SimulatorOptions options;
        options.intervalSeconds = interval;
        StreamPacer pacer(options, 0);
        QCOMPARE(pacer.take(0).bytes, InstrumentSimulator(options).parameterBlock());
        QCOMPARE(pacer.nextDueUs(), spacing);
        QCOMPARE(pacer.take(spacing - 1).bytes, QByteArray());
        QCOMPARE(pacer.take(2 * spacing).completed.size(), 2);
        QVERIFY(!pacer.finished());
    }

    void downloadEnds_data()
    {
        QTest::addColumn<int>("rate");
        QTest::addColumn<qint64>("maxBytes");
        QTest::newRow("unpaced") << 0 << qint64(-1);
        QTest::newRow("line rate") << LineRate << qint64(-1);
        QTest::newRow("unpaced, ten at a time") << 0 << qint64(10);
    }
    void downloadEnds()
    {
        QFETCH(int, rate);
        QFETCH(qint64, maxBytes);
        SimulatorOptions options;
        options.mode = SimulatorOptions::Mode::Download;
        options.storedCount = 25;
        options.emptyLocations = 2;
        const QByteArray expected = simRecords(options, 29);

        StreamPacer pacer(options, rate);
        QByteArray bytes;
        int completed = 0;
        for (int calls = 0; calls < 1000 && !pacer.finished(); ++calls) {
            const StreamPacer::Output out = pacer.take(100 * Second, maxBytes);
            QVERIFY(maxBytes < 0 || out.bytes.size() <= maxBytes);
            bytes += out.bytes;
            completed += out.completed.size();
        }
        QCOMPARE(bytes, expected);
        QCOMPARE(completed, 29);
        QCOMPARE(pacer.nextDueUs(), qint64(-1));
        if (rate > 0) // the whole memory takes its time on the line
            QCOMPARE(StreamPacer(options, rate).take(lineTime(expected.size()) - 1).bytes.size(),
                expected.size() - 1);
    }

    void silentFromTheStart()
    {
        SimulatorOptions options;
        options.fault = SimulatorOptions::Fault::Silence;
        StreamPacer pacer(options, LineRate);
        QVERIFY(pacer.finished());
        QCOMPARE(pacer.nextDueUs(), qint64(-1));
        QCOMPARE(pacer.take(60 * Second).bytes, QByteArray());
    }
};

TALAVEX_TEST(TestStreamPacer)
#include "TestStreamPacer.moc"
