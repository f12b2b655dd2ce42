#include "support/FakeSerialPort.h"
#include "support/TestRegistry.h"

#include "link/InstrumentSearch.h"

#include <QSignalSpy>
#include <QTest>
#include <map>

namespace {
// Hands out fake ports by device path; a device named "broken" cannot be opened.
struct FakePorts {
    std::map<QString, std::shared_ptr<FakeSerialPort>> ports;
    InstrumentSearch::PortFactory factory()
    {
        return [this](const QString& device) {
            auto port = std::make_shared<FakeSerialPort>();
            if (device == QLatin1String("broken"))
                port->failure = QStringLiteral("Permission denied");
            ports[device] = port;
            return std::shared_ptr<SerialPort>(port);
        };
    }
};
} // namespace

class TestInstrumentSearch : public QObject {
    Q_OBJECT
private slots:
    void records_data()
    {
        QTest::addColumn<QByteArray>("record");
        QTest::addColumn<bool>("instrument");
        QTest::newRow("parameter block")
            << QByteArray("\x0b  DEG F\r\nINT (SECS)      2\r\n") << true;
        QTest::newRow("stored reading") << QByteArray("#001   75   DEG F") << true;
        QTest::newRow("real-time reading") << QByteArray("    1234   DEG F") << true;
        QTest::newRow("short reading") << QByteArray("  75") << true;
        QTest::newRow("empty location") << QByteArray() << false;
        QTest::newRow("group separator") << QByteArray("\r\n") << false;
        QTest::newRow("modem chatter") << QByteArray("ATZ\r\nOK") << false;
        QTest::newRow("two points") << QByteArray("12.5.6") << false;
        QTest::newRow("long text") << QByteArray("hello there, operator") << false;
    }
    void records()
    {
        QFETCH(QByteArray, record);
        QFETCH(bool, instrument);
        QCOMPARE(InstrumentSearch::IsInstrumentRecord(record), instrument);
    }

    void findsTheDeviceWithRecords()
    {
        FakePorts fakes;
        InstrumentSearch search(fakes.factory());
        QSignalSpy done(&search, &InstrumentSearch::finished);
        search.start({ "/dev/ttyS0", "broken", "/dev/ttyUSB0" }, 60000);
        QVERIFY(search.running());
        QCOMPARE(search.findings().size(), size_t(3));
        QVERIFY(!search.findings()[1].opened);
        QCOMPARE(search.findings()[1].error, QStringLiteral("Permission denied"));

        // Noise on one line, records split across arrivals on the other.
        fakes.ports["/dev/ttyS0"]->receive(QByteArray(300, 'x') + "\x07" + "ATZ\x07");
        fakes.ports["/dev/ttyUSB0"]->receive("    75   DE");
        fakes.ports["/dev/ttyUSB0"]->receive("G F\x07    76   DEG F\x07");
        QCOMPARE(search.findings()[0].records, 0);
        QCOMPARE(search.findings()[2].records, 2);
        QCOMPARE(done.count(), 0);
        // The third record is enough: the search ends without waiting out its time.
        fakes.ports["/dev/ttyUSB0"]->receive("    77   DEG F\x07");
        QVERIFY(done.wait(1000));
        QCOMPARE(done.count(), 1);
        QVERIFY(!search.running());
        QCOMPARE(search.bestDevice(), QStringLiteral("/dev/ttyUSB0"));
        // Every port it opened is closed again, and nothing was ever sent.
        QVERIFY(!fakes.ports["/dev/ttyS0"]->isOpen());
        QVERIFY(!fakes.ports["/dev/ttyUSB0"]->isOpen());
    }

    void nothingFoundWhenTheTimeIsUp()
    {
        FakePorts fakes;
        InstrumentSearch search(fakes.factory());
        QSignalSpy done(&search, &InstrumentSearch::finished);
        search.start({ "/dev/ttyS0" }, 20);
        fakes.ports["/dev/ttyS0"]->receive("noise without an end");
        QVERIFY(done.wait(2000));
        QCOMPARE(done.count(), 1);
        QVERIFY(search.bestDevice().isEmpty());
    }

    void noDeviceOpens()
    {
        FakePorts fakes;
        InstrumentSearch search(fakes.factory());
        QSignalSpy done(&search, &InstrumentSearch::finished);
        search.start({ "broken" }, 60000);
        QVERIFY(done.wait(1000));
        QCOMPARE(done.count(), 1);
        QVERIFY(search.bestDevice().isEmpty());
    }
};

TALAVEX_TEST(TestInstrumentSearch)
#include "TestInstrumentSearch.moc"
