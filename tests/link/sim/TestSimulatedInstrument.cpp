#include "support/TestRegistry.h"

#include "SimRecords.h"

#include "PtyReader.h"
#include "link/sim/InstrumentSimulator.h"
#include "link/sim/PtyServer.h"
#include "link/sim/SimulatedInstrument.h"

#include <QFileInfo>
#include <QProcess>
#include <QRegularExpression>
#include <QSerialPort>
#include <QSignalSpy>
#include <QTest>

Q_DECLARE_METATYPE(SimulatorOptions)

namespace {

SimulatorOptions download(int stored, int empty)
{
    SimulatorOptions options;
    options.mode = SimulatorOptions::Mode::Download;
    options.storedCount = stored;
    options.emptyLocations = empty;
    return options;
}

} // namespace

class TestSimulatedInstrument : public QObject {
    Q_OBJECT
private slots:
    void serverQueuesWhileNobodyReads()
    {
        PtyServer server;
        QString error;
        QVERIFY2(server.open(&error), qPrintable(error));
        QVERIFY(QFileInfo::exists(server.slavePath()));

        QByteArray pattern;
        for (int i = 0; i < 200 * 1024; ++i)
            pattern += char('A' + (i * 7) % 26);
        server.write(pattern);
        // The terminal holds some, our queue the next 64 KB, and the rest is lost.
        QCOMPARE(server.queuedBytes(), PtyServer::MaxQueuedBytes);
        QVERIFY(server.droppedBytes() > 0);
        QTRY_VERIFY(server.unreadBytes() > 0);

        PtyReader reader(server.slavePath());
        QVERIFY(reader.isOpen());
        const qint64 delivered = pattern.size() - server.droppedBytes();
        QTRY_COMPARE_WITH_TIMEOUT(qint64(reader.data.size()), delivered, 20000);
        QCOMPARE(reader.data, pattern.left(int(delivered)));
        QCOMPARE(server.queuedBytes(), qint64(0));
    }

    // The real serial class at 4800 8N1 gets the records in order, each record whole before
    // the next is due: at every recordSent exactly the records so far have gone out.
    void serialPortReceivesPacedRecords()
    {
        SimulatedInstrument instrument;
        QString error;
        QVERIFY2(instrument.open(&error), qPrintable(error));
        instrument.setTimeScale(0.5); // a reading every second

        QSerialPort port(instrument.devicePath());
        port.setBaudRate(4800);
        port.setDataBits(QSerialPort::Data8);
        port.setParity(QSerialPort::NoParity);
        port.setStopBits(QSerialPort::OneStop);
        QVERIFY2(port.open(QIODevice::ReadOnly), qPrintable(port.errorString()));
        QByteArray received;
        connect(&port, &QSerialPort::readyRead, this, [&] { received += port.readAll(); });

        QList<qint64> sentAt;
        QList<int> indices;
        connect(
            &instrument, &SimulatedInstrument::recordSent, this, [&](int index, const QByteArray&) {
                indices << index;
                sentAt << instrument.charactersSent();
            });
        const SimulatorOptions options;
        instrument.start(options);
        QTRY_VERIFY_WITH_TIMEOUT(sentAt.size() >= 3, 20000);

        InstrumentSimulator expected(options);
        qint64 total = 0;
        for (int k = 0; k < 3; ++k) {
            total += expected.nextRecord().size();
            QCOMPARE(indices.at(k), k);
            QCOMPARE(sentAt.at(k), total);
        }
        const QByteArray stream = simRecords(options, 10);
        QTRY_VERIFY(received.size() >= total);
        QVERIFY(stream.startsWith(received));
        instrument.stop();
        QVERIFY(!instrument.isRunning());
    }

    // Each start is a fresh stream on a clean line: what the last one left unread is gone.
    void restartStartsClean()
    {
        SimulatedInstrument instrument;
        QVERIFY(instrument.open());
        instrument.setCharactersPerSecond(0);
        instrument.setTimeScale(0.01);
        PtyReader reader(instrument.devicePath(), false);
        QVERIFY(reader.isOpen());

        QSignalSpy sent(&instrument, &SimulatedInstrument::recordSent);
        instrument.start(SimulatorOptions());
        QTRY_VERIFY(sent.size() >= 3);
        QTRY_VERIFY(instrument.server().unreadBytes() > 0);
        instrument.stop();
        QCOMPARE(instrument.charactersSent(), qint64(0));

        const SimulatorOptions memory = download(12, 2);
        QSignalSpy finished(&instrument, &SimulatedInstrument::finished);
        instrument.start(memory);
        QTRY_COMPARE(finished.size(), 1);
        QVERIFY(instrument.isDrained());
        QTRY_COMPARE(instrument.server().unreadBytes(), simRecords(memory, 100).size());
        reader.readAvailable();
        QCOMPARE(reader.data, simRecords(memory, 100));
    }

    void toolServesTheStream_data()
    {
        QTest::addColumn<QStringList>("arguments");
        QTest::addColumn<SimulatorOptions>("options");
        QTest::addColumn<int>("recordCount"); // records to wait for
        QTest::addColumn<bool>("exits");

        QTest::newRow("download") << QStringList { "--mode", "download", "--stored", "12",
            "--empty", "1", "--rate", "0" }
                                  << download(12, 1) << 100 << true;
        SimulatorOptions celsius = download(5, 0);
        celsius.units = SimulatorOptions::Units::Celsius;
        celsius.seed = 9;
        QTest::newRow("download, celsius, line rate") << QStringList { "--mode", "download",
            "--stored", "5", "--empty", "0", "--units", "C", "--seed", "9" }
                                                      << celsius << 100 << true;
        QTest::newRow("download, stays")
            << QStringList { "--mode", "download", "--stored", "3", "--rate", "0", "--stay" }
            << download(3, 3) << 100 << false;

        SimulatorOptions noise;
        noise.fault = SimulatorOptions::Fault::Noise;
        noise.faultAfter = 1;
        noise.seed = 3;
        QTest::newRow("real time, noise") << QStringList { "--fault", "noise", "--fault-after", "1",
            "--seed", "3", "--rate", "0", "--time-scale", "0.01" }
                                          << noise << 4 << false;
        SimulatorOptions plain;
        plain.intervalSeconds = 0;
        plain.ambientMissing = true;
        plain.shortForm = true;
        plain.storedCount = 7;
        QTest::newRow("real time, short, no interval, no ambient") << QStringList { "--interval",
            "0", "--no-ambient", "--short", "--stored", "7", "--rate", "0", "--time-scale", "0.01" }
                                                                   << plain << 3 << false;
    }
    void toolServesTheStream()
    {
        QFETCH(QStringList, arguments);
        QFETCH(SimulatorOptions, options);
        QFETCH(int, recordCount);
        QFETCH(bool, exits);
        const QString tool = qEnvironmentVariable("TALAVEX_SIM");
        if (tool.isEmpty())
            QSKIP("TALAVEX_SIM is not set");

        QProcess process;
        process.start(tool, arguments);
        QVERIFY2(process.waitForStarted(), qPrintable(process.errorString()));
        QTRY_VERIFY_WITH_TIMEOUT(process.canReadLine(), 10000);
        const QString path = QString::fromLocal8Bit(process.readLine()).trimmed();
        QVERIFY2(QRegularExpression("^/dev/pts/\\d+$").match(path).hasMatch(), qPrintable(path));

        PtyReader reader(path);
        QVERIFY(reader.isOpen());
        const QByteArray expected = simRecords(options, recordCount);
        QTRY_VERIFY_WITH_TIMEOUT(reader.data.size() >= expected.size(), 20000);
        QCOMPARE(reader.data.left(expected.size()), expected);

        if (exits) {
            QTRY_COMPARE_WITH_TIMEOUT(process.state(), QProcess::NotRunning, 10000);
            QCOMPARE(process.exitStatus(), QProcess::NormalExit);
            QCOMPARE(process.exitCode(), 0);
            QCOMPARE(reader.data, expected);
        } else {
            QCOMPARE(process.state(), QProcess::Running);
            process.kill();
            QVERIFY(process.waitForFinished());
        }
    }

    void toolRejectsBadOptions_data()
    {
        QTest::addColumn<QStringList>("arguments");
        QTest::addColumn<QString>("named");
        QTest::newRow("mode") << QStringList { "--mode", "bogus" } << "--mode";
        QTest::newRow("units") << QStringList { "--units", "K" } << "--units";
        QTest::newRow("fault") << QStringList { "--fault", "smoke" } << "--fault";
        QTest::newRow("negative interval") << QStringList { "--interval", "-1" } << "--interval";
        QTest::newRow("time stands still") << QStringList { "--time-scale", "0" } << "--time-scale";
    }
    void toolRejectsBadOptions()
    {
        QFETCH(QStringList, arguments);
        QFETCH(QString, named);
        const QString tool = qEnvironmentVariable("TALAVEX_SIM");
        if (tool.isEmpty())
            QSKIP("TALAVEX_SIM is not set");
        QProcess process;
        process.start(tool, arguments);
        QVERIFY(process.waitForFinished(10000));
        QCOMPARE(process.exitCode(), 1);
        QVERIFY(process.readAllStandardOutput().isEmpty()); // no device path was offered
        QVERIFY(QString::fromLocal8Bit(process.readAllStandardError()).contains(named));
    }
};

TALAVEX_TEST(TestSimulatedInstrument)
#include "TestSimulatedInstrument.moc"
