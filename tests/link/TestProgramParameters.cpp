#include "support/ParametersRig.h"
#include "support/TestRegistry.h"

#include <QSignalSpy>
#include <QTest>
#include <map>

namespace {
// The ports the instrument search opens are fakes, kept by device; "/dev/broken" will not open.
struct Rig : ParametersRig {
    Rig()
        : ParametersRig([this](const QString& device) {
            auto line = std::make_shared<FakeSerialPort>();
            line->failure = device.endsWith("broken") ? "Permission denied" : "";
            return std::shared_ptr<SerialPort>(lines[device] = line);
        })
    {
    }
    std::map<QString, std::shared_ptr<FakeSerialPort>> lines;
};
} // namespace

class TestProgramParameters : public QObject {
    Q_OBJECT
private slots:
    // SEARCH FOR INSTRUMENT listens on every serial device: a block, a stored reading and a
    // reading split across arrivals are three records, enough; noise is none. A search again
    // starts afresh.
    void search_data()
    {
        QTest::addColumn<bool>("portBusy"); // the program's own port is open
        QTest::addColumn<int>("answer"); // to the offer
        QTest::addColumn<bool>("again"); // a second search, with noise only
        QTest::addColumn<QString>("titles");
        QTest::addColumn<QString>("bound"); // COM 1's device afterwards
        const int yes = int(Prompter::Answer::Yes);
        QTest::newRow("found, bound") << false << yes << false << "INSTRUMENT FOUND"
                                      << "/dev/ttyUSB0";
        QTest::newRow("found, declined, then nothing")
            << false << int(Prompter::Answer::No) << true << "INSTRUMENT FOUND|NO INSTRUMENT FOUND"
            << "/dev/ttyS0";
        QTest::newRow("receiving") << true << yes << false << "SEARCH FOR INSTRUMENT"
                                   << "/dev/ttyS0";
    }
    void search()
    {
        QFETCH(bool, portBusy);
        QFETCH(int, answer);
        QFETCH(bool, again);
        QFETCH(QString, bound);
        Rig rig;
        rig.devices << "/dev/broken";
        rig.info.totalMemory = 65536000;
        rig.info.availableMemory = 512000;
        rig.info.processor = 8664;
        rig.model.txtDataPoints.setCaption(QStringLiteral("12"));
        rig.controller.Form_Load();
        QCOMPARE(QStringList({ rig.model.lblProcessor.caption(), rig.model.lblRamSize.caption(),
                     rig.model.lblAvailiableRam.caption(), rig.model.txtDataPoints.caption() }),
            QStringList({ "8664", "64.0 M-BYTES", ".5 M-BYTES", "300" }));
        QCOMPARE(rig.model.commPortItems(), QStringList({ "COM 1", "COM 2" }));
        QCOMPARE(rig.model.deviceItems(), rig.devices);
        rig.port.opened = portBusy;
        rig.prompter.answers.push_back(Prompter::Answer(answer));
        QSignalSpy done(&rig.controller.search(), &InstrumentSearch::finished);
        for (int round = 0; round < (again ? 2 : 1); ++round) {
            rig.controller.cmdSearchForIr_Click();
            if (portBusy)
                break;
            QVERIFY(!rig.model.cmdSearchForIr.enabled());
            QCOMPARE(rig.model.cmdSearchForIr.caption(), QStringLiteral("LISTENING..."));
            rig.lines["/dev/ttyS0"]->receive(QByteArray(300, 'x')
                + "\x07"
                  "ATZ\r\nOK\x07"
                  "12.5.6\x07");
            if (round == 0) {
                rig.lines["/dev/ttyUSB0"]->receive("\x0b  DEG F\r\nINT (SECS)      2\x07#001   7");
                rig.lines["/dev/ttyUSB0"]->receive("5   DEG F\x07\r\n\x07\x07    7");
                rig.lines["/dev/ttyUSB0"]->receive("6   DEG F\x07");
            }
            QVERIFY(done.wait(InstrumentSearch::ListenMilliseconds + 5000));
            QVERIFY(!rig.lines["/dev/ttyS0"]->isOpen() && !rig.lines["/dev/ttyUSB0"]->isOpen());
        }
        QTEST(rig.prompter.titles().join('|'), "titles");
        if (again)
            QVERIFY(rig.prompter.messages().back().text.startsWith(
                "NO INSTRUMENT RECORDS ARRIVED ON THE 3 SERIAL PORTS.\r\n"
                "1 OF THEM COULD NOT BE OPENED.\r\n"));
        QCOMPARE(rig.ports.device(1), bound);
        QVERIFY(rig.model.cmdSearchForIr.enabled());
        QCOMPARE(rig.model.cmdSearchForIr.caption(), QStringLiteral("SEARCH FOR INSTRUMENT"));
        QCOMPARE(rig.model.comDevice.caption(), bound);
        QCOMPARE(rig.portFile(),
            bound.endsWith("USB0") ? QByteArray("/dev/ttyUSB0\r\n/dev/ttyS1\r\n") : QByteArray());
    }

    // Picking a COM number: stored number, port open, list index picked (-1 none), then the
    // stored number, the port's number and how often it was closed.
    void pickingAPort_data()
    {
        QTest::addColumn<QList<int>>("row");
        QTest::newRow("COM 2 closes the open port") << QList<int> { 1, 1, 1, 2, 2, 1 };
        QTest::newRow("COM 1 on a closed port") << QList<int> { 2, 0, 0, 1, 1, 0 };
        QTest::newRow("same port still closes it") << QList<int> { 1, 1, 0, 1, 1, 1 };
        QTest::newRow("a pick replaces port 3") << QList<int> { 3, 0, 1, 2, 2, 0 };
        QTest::newRow("no selection keeps port 3") << QList<int> { 3, 1, -1, 3, 3, 1 };
        QTest::newRow("no selection, port 0: nothing") << QList<int> { 0, 1, -1, 0, 9, 0 };
    }
    void pickingAPort()
    {
        QFETCH(QList<int>, row);
        const int stored = row[0], picked = row[2], closes = row[5];
        const bool wasOpen = row[1];
        Rig rig;
        rig.state.CommPortNumber = qint16(stored);
        rig.port.number = 9;
        rig.port.opened = wasOpen;
        rig.model.setCommPortListIndex(stored == 2 ? 0 : 1);
        rig.controller.Form_Load();
        // Loading shows the stored port (COM 1 for one beyond the list) and changes nothing.
        QCOMPARE(rig.model.commPortListIndex(), stored == 2 ? 1 : 0);
        QCOMPARE(rig.model.comCommPort.caption(), stored == 2 ? "COM 2" : "COM 1");
        QVERIFY(rig.port.number == 9 && rig.port.opened == wasOpen && rig.port.closeCount == 0);
        rig.model.setCommPortListIndex(picked);
        rig.controller.comCommPort_Click();
        QCOMPARE(QList<int>({ rig.state.CommPortNumber, rig.port.number, rig.port.closeCount }),
            row.mid(3));
        QCOMPARE(rig.port.opened, wasOpen && closes == 0);
        QCOMPARE(rig.port.openCount, 0);
        QCOMPARE(rig.model.comDevice.caption(), rig.ports.device(picked == 1 ? 2 : 1));
    }

    // A device typed for the COM number shown is bound and saved; the port in use is closed
    // when it is the one rebound. Leaving the box untouched binds nothing.
    void bindingADevice_data()
    {
        QTest::addColumn<int>("stored");
        QTest::addColumn<int>("shownIndex");
        QTest::addColumn<QString>("typed"); // empty: untouched
        QTest::addColumn<QByteArray>("file");
        QTest::addColumn<int>("closes");
        QTest::newRow("COM 1 to a USB adapter")
            << 1 << 0 << "/dev/ttyUSB0" << QByteArray("/dev/ttyUSB0\r\n/dev/ttyS1\r\n") << 1;
        QTest::newRow("COM 2 while COM 1 is in use")
            << 1 << 1 << "/dev/ttyACM0" << QByteArray("/dev/ttyS0\r\n/dev/ttyACM0\r\n") << 0;
        QTest::newRow("a bare name gets its directory")
            << 2 << 1 << "ttyUSB3" << QByteArray("/dev/ttyS0\r\n/dev/ttyUSB3\r\n") << 1;
        QTest::newRow("untouched") << 1 << 0 << "" << QByteArray() << 0;
    }
    void bindingADevice()
    {
        QFETCH(int, stored);
        QFETCH(int, shownIndex);
        QFETCH(QString, typed);
        Rig rig;
        rig.state.CommPortNumber = qint16(stored);
        rig.port.number = stored;
        rig.port.opened = true;
        rig.ports.setRunOverride(shownIndex + 1, QStringLiteral("/dev/pts/4"));
        rig.controller.Form_Load();
        rig.model.setCommPortListIndex(shownIndex);
        if (!typed.isEmpty())
            rig.model.comDevice.setCaption(typed);
        QVERIFY(rig.controller.comDevice_Click());
        QTEST(rig.portFile(), "file");
        QTEST(rig.port.closeCount, "closes");
        QCOMPARE(int(rig.state.CommPortNumber), stored);
        QCOMPARE(rig.model.comDevice.caption(), rig.ports.device(shownIndex + 1));
        QCOMPARE(rig.ports.hasRunOverride(shownIndex + 1), typed.isEmpty());
    }
};

TALAVEX_TEST(TestProgramParameters)
#include "TestProgramParameters.moc"
