#include "support/ParametersRig.h"
#include "support/TestRegistry.h"

#include <QFile>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <map>

namespace {
// The ports the instrument search opens are fakes, kept by device.
struct Rig : ParametersRig {
    Rig()
        : ParametersRig([this](const QString& device) {
            auto line = std::make_shared<FakeSerialPort>();
            lines[device] = line;
            return std::shared_ptr<SerialPort>(line);
        })
    {
    }
    std::map<QString, std::shared_ptr<FakeSerialPort>> lines;
};
} // namespace

class TestProgramParameters : public QObject {
    Q_OBJECT
private slots:
    void search_data()
    {
        QTest::addColumn<QByteArray>("onUsb"); // what arrives on /dev/ttyUSB0 while listening
        QTest::addColumn<bool>("portBusy"); // the program's own port is open
        QTest::addColumn<int>("answer"); // to the offer: Yes or No
        QTest::addColumn<QStringList>("titles");
        QTest::addColumn<QString>("bound"); // COM 1's device afterwards
        const QByteArray readings("    75   DEG F\x07    76   DEG F\x07    77   DEG F\x07");
        QTest::newRow("found, bound") << readings << false << int(Prompter::Answer::Yes)
                                      << QStringList { "INSTRUMENT FOUND" } << "/dev/ttyUSB0";
        QTest::newRow("found, declined") << readings << false << int(Prompter::Answer::No)
                                         << QStringList { "INSTRUMENT FOUND" } << "/dev/ttyS0";
        QTest::newRow("nothing") << QByteArray("ATZ\x07") << false << int(Prompter::Answer::Yes)
                                 << QStringList { "NO INSTRUMENT FOUND" } << "/dev/ttyS0";
        QTest::newRow("receiving") << readings << true << int(Prompter::Answer::Yes)
                                   << QStringList { "SEARCH FOR INSTRUMENT" } << "/dev/ttyS0";
    }
    void search()
    {
        QFETCH(QByteArray, onUsb);
        QFETCH(bool, portBusy);
        QFETCH(int, answer);
        QFETCH(QStringList, titles);
        QFETCH(QString, bound);
        Rig rig;
        rig.controller.Form_Load();
        rig.port.opened = portBusy;
        rig.prompter.answers.push_back(Prompter::Answer(answer));
        QSignalSpy done(&rig.controller.search(), &InstrumentSearch::finished);
        rig.controller.cmdSearchForIr_Click();
        if (!portBusy) {
            QVERIFY(!rig.model.cmdSearchForIr.enabled());
            QCOMPARE(rig.model.cmdSearchForIr.caption(), QStringLiteral("LISTENING..."));
            QCOMPARE(rig.lines.size(), size_t(2));
            rig.lines["/dev/ttyUSB0"]->receive(onUsb);
            QVERIFY(done.wait(InstrumentSearch::ListenMilliseconds + 2000));
        }
        QCOMPARE(rig.prompter.titles(), titles);
        QCOMPARE(rig.ports.device(1), bound);
        QVERIFY(rig.model.cmdSearchForIr.enabled());
        QCOMPARE(rig.model.cmdSearchForIr.caption(), QStringLiteral("SEARCH FOR INSTRUMENT"));
        QCOMPARE(rig.model.comDevice.caption(), bound);
        if (bound == QLatin1String("/dev/ttyUSB0"))
            QVERIFY(rig.portFile().startsWith("/dev/ttyUSB0\r\n"));
    }

    void memoryText_data()
    {
        QTest::addColumn<quint64>("bytes");
        QTest::addColumn<QString>("text");
        QTest::newRow("64 units") << quint64(65536000) << "64.0 M-BYTES";
        QTest::newRow("one unit") << quint64(1024000) << "1.0 M-BYTES";
        QTest::newRow("a binary megabyte is a little more") << quint64(1048576) << "1.0 M-BYTES";
        QTest::newRow("16 million bytes") << quint64(16000000) << "15.6 M-BYTES";
        QTest::newRow("half a unit has no leading zero") << quint64(512000) << ".5 M-BYTES";
        QTest::newRow("nothing") << quint64(0) << ".0 M-BYTES";
        QTest::newRow("8 GiB") << quint64(8589934592ull) << "8388.6 M-BYTES";
        QTest::newRow("64 GiB") << quint64(68719476736ull) << "67108.9 M-BYTES";
    }
    void memoryText()
    {
        QFETCH(quint64, bytes);
        QFETCH(QString, text);
        QCOMPARE(ProgramParametersController::MegaBytes(bytes), text);
    }

    void loadShowsThePc()
    {
        Rig rig;
        rig.info.totalMemory = 65536000;
        rig.info.availableMemory = 16000000;
        rig.info.processor = 8664;
        rig.model.txtDataPoints.setCaption(QStringLiteral("12"));
        rig.controller.Form_Load();
        QCOMPARE(rig.model.lblProcessor.caption(), QStringLiteral("8664"));
        QCOMPARE(rig.model.lblRamSize.caption(), QStringLiteral("64.0 M-BYTES"));
        QCOMPARE(rig.model.lblAvailiableRam.caption(), QStringLiteral("15.6 M-BYTES"));
        QCOMPARE(rig.model.txtDataPoints.caption(), QStringLiteral("300"));
        QCOMPARE(rig.model.commPortItems(), QStringList({ "COM 1", "COM 2" }));
        QCOMPARE(rig.model.deviceItems(), rig.devices);
    }

    void loadSelectsThePort_data()
    {
        QTest::addColumn<int>("stored");
        QTest::addColumn<QString>("shown");
        QTest::addColumn<int>("index");
        QTest::addColumn<QString>("device");
        QTest::newRow("COM 1") << 1 << "COM 1" << 0 << "/dev/ttyS0";
        QTest::newRow("COM 2") << 2 << "COM 2" << 1 << "/dev/ttyS1";
        QTest::newRow("port 3 shows COM 1") << 3 << "COM 1" << 0 << "/dev/ttyS0";
        QTest::newRow("port 0 shows COM 1") << 0 << "COM 1" << 0 << "/dev/ttyS0";
        QTest::newRow("negative shows COM 1") << -4 << "COM 1" << 0 << "/dev/ttyS0";
    }
    void loadSelectsThePort()
    {
        QFETCH(int, stored);
        QFETCH(int, index);
        QFETCH(QString, shown);
        QFETCH(QString, device);
        Rig rig;
        rig.state.CommPortNumber = qint16(stored);
        rig.port.number = 7;
        rig.port.opened = true;
        rig.model.setCommPortListIndex(1 - index);
        rig.controller.Form_Load();
        QCOMPARE(rig.model.commPortListIndex(), index);
        QCOMPARE(rig.model.comCommPort.caption(), shown);
        QCOMPARE(rig.model.comDevice.caption(), device);
        // Loading only shows: neither the stored number nor the port changes.
        QCOMPARE(int(rig.state.CommPortNumber), stored);
        QCOMPARE(rig.port.number, 7);
        QVERIFY(rig.port.opened);
        QCOMPARE(rig.port.closeCount, 0);
    }

    void pickingAPort_data()
    {
        QTest::addColumn<int>("stored");
        QTest::addColumn<bool>("wasOpen");
        QTest::addColumn<int>("picked");
        QTest::addColumn<int>("number");
        QTest::addColumn<int>("portNumber");
        QTest::addColumn<int>("closes");
        QTest::addColumn<QString>("device");
        QTest::newRow("COM 2 closes the open port")
            << 1 << true << 1 << 2 << 2 << 1 << "/dev/ttyS1";
        QTest::newRow("COM 1 on a closed port") << 2 << false << 0 << 1 << 1 << 0 << "/dev/ttyS0";
        QTest::newRow("same port still closes it") << 1 << true << 0 << 1 << 1 << 1 << "/dev/ttyS0";
        QTest::newRow("a pick replaces port 3") << 3 << false << 1 << 2 << 2 << 0 << "/dev/ttyS1";
        QTest::newRow("no selection keeps port 3")
            << 3 << true << -1 << 3 << 3 << 1 << "/dev/ttyS0";
        QTest::newRow("no selection and port 0 does nothing")
            << 0 << true << -1 << 0 << 9 << 0 << "/dev/ttyS0";
    }
    void pickingAPort()
    {
        QFETCH(int, stored);
        QFETCH(bool, wasOpen);
        QFETCH(int, picked);
        QFETCH(int, number);
        QFETCH(int, portNumber);
        QFETCH(int, closes);
        QFETCH(QString, device);
        Rig rig;
        rig.state.CommPortNumber = qint16(stored);
        rig.port.number = 9;
        rig.port.opened = wasOpen;
        rig.controller.Form_Load();
        rig.model.setCommPortListIndex(picked);
        rig.controller.comCommPort_Click();
        QCOMPARE(int(rig.state.CommPortNumber), number);
        QCOMPARE(rig.port.number, portNumber);
        QCOMPARE(rig.port.closeCount, closes);
        QCOMPARE(rig.port.opened, wasOpen && closes == 0);
        QCOMPARE(rig.port.openCount, 0);
        QCOMPARE(rig.model.comDevice.caption(), device);
    }

    void bindingADeviceSavesIt_data()
    {
        QTest::addColumn<int>("stored");
        QTest::addColumn<int>("shownIndex");
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QByteArray>("file");
        QTest::addColumn<int>("closes");
        QTest::newRow("COM 1 to a USB adapter")
            << 1 << 0 << "/dev/ttyUSB0" << QByteArray("/dev/ttyUSB0\r\n/dev/ttyS1\r\n") << 1;
        QTest::newRow("COM 2 while COM 1 is in use")
            << 1 << 1 << "/dev/ttyACM0" << QByteArray("/dev/ttyS0\r\n/dev/ttyACM0\r\n") << 0;
        QTest::newRow("a bare name gets its directory")
            << 2 << 1 << "ttyUSB3" << QByteArray("/dev/ttyS0\r\n/dev/ttyUSB3\r\n") << 1;
    }
    void bindingADeviceSavesIt()
    {
        QFETCH(int, stored);
        QFETCH(int, shownIndex);
        QFETCH(QString, typed);
        QFETCH(QByteArray, file);
        QFETCH(int, closes);
        Rig rig;
        rig.state.CommPortNumber = qint16(stored);
        rig.port.number = stored;
        rig.port.opened = true;
        rig.controller.Form_Load();
        rig.model.setCommPortListIndex(shownIndex);
        rig.model.comDevice.setCaption(typed);
        QVERIFY(rig.controller.comDevice_Click());
        QCOMPARE(rig.portFile(), file);
        QCOMPARE(rig.port.closeCount, closes);
        QCOMPARE(int(rig.state.CommPortNumber), stored);
        QCOMPARE(rig.model.comDevice.caption(), rig.ports.device(shownIndex + 1));
        QVERIFY(rig.model.comDevice.caption().startsWith(QLatin1String("/dev/tty")));
    }

    void untouchedDeviceBindsNothing()
    {
        Rig rig;
        rig.ports.setRunOverride(1, QStringLiteral("/dev/pts/4"));
        rig.controller.Form_Load();
        QCOMPARE(rig.model.comDevice.caption(), QStringLiteral("/dev/pts/4"));
        QVERIFY(rig.controller.comDevice_Click());
        QVERIFY(rig.ports.hasRunOverride(1));
        QVERIFY(!QFile::exists(rig.dir.filePath(PortMap::fileName())));
    }
};

TALAVEX_TEST(TestProgramParameters)
#include "TestProgramParameters.moc"
