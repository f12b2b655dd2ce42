#include "support/TestRegistry.h"

#include "base/AppState.h"
#include "link/IRSystem.h"
#include "link/sim/SimulatedInstrument.h"
#include "support/ParametersRig.h"
#include "ui/IRSystemWidget.h"
#include "ui/LinuxSystemInfo.h"
#include "ui/ProgramParametersDialog.h"
#include "ui/QtSerialPort.h"
#include "ui/SystemStatusWindow.h"

#include <QComboBox>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

namespace {
// The dialog on the controller, the search opening real serial ports.
struct DialogRig : ParametersRig {
    DialogRig()
        : ParametersRig(&QtSerialPort::forDevice)
        , dialog(model, controller)
    {
        info.totalMemory = 65536000;
    }
    ProgramParametersDialog dialog;

    template <typename T> T* find(const char* name)
    {
        return dialog.findChild<T*>(QLatin1String(name));
    }
};
} // namespace

class TestStatusDialogs : public QObject {
    Q_OBJECT
private slots:
    void statusWindowTracksItsVisibility()
    {
        AppState state;
        IRSystem system;
        SystemStatusWindow window(state, system);
        QCOMPARE(window.objectName(), QStringLiteral("frmSystStatus"));
        auto* widget = window.findChild<IRSystemWidget*>(QStringLiteral("IRSystem1"));
        QVERIFY(widget);
        QCOMPARE(widget->model(), &system);
        QVERIFY(!state.SystemStatusVisible);

        window.load();
        QVERIFY(state.SystemStatusVisible);

        system.SenseTemperature();
        QVERIFY(system.tmrIRGraphics().isActive());
        window.unload();
        QVERIFY(!state.SystemStatusVisible);
        // A closed display leaves no timer running.
        QVERIFY(!system.tmrIRGraphics().isActive());
        QVERIFY(!system.tmrCompGraphics().isActive());
        QCOMPARE(int(system.GetCurrentState()), 0);
    }

    void everyStateLooksDifferent()
    {
        IRSystem system;
        IRSystemWidget widget;
        widget.setModel(&system);
        widget.resize(320, 160);
        QList<QImage> frames;
        frames << widget.grab().toImage();
        system.SenseTemperature();
        system.tmrIRGraphics_Timer();
        frames << widget.grab().toImage();
        system.ScanForIrSystem();
        frames << widget.grab().toImage();
        system.DownloadIRData();
        frames << widget.grab().toImage();
        for (int i = 0; i < frames.size(); ++i) {
            QCOMPARE(frames.at(i).size(), QSize(320, 160));
            for (int j = i + 1; j < frames.size(); ++j)
                QVERIFY2(frames.at(i) != frames.at(j),
                    qPrintable(QStringLiteral("%1 %2").arg(i).arg(j)));
        }
    }

    void dialogShowsTheLoadedFacts()
    {
        DialogRig rig;
        rig.state.CommPortNumber = 5;
        QCOMPARE(rig.dialog.objectName(), QStringLiteral("frmProgramParameters"));
        rig.dialog.show();
        QVERIFY(rig.find<QComboBox>("comDevice")->isEditable());
        auto* ports = rig.find<QComboBox>("comCommPort");
        QCOMPARE(ports->count(), 2);
        QCOMPARE(ports->itemText(0), QStringLiteral("COM 1"));
        QCOMPARE(ports->itemText(1), QStringLiteral("COM 2"));
        QCOMPARE(ports->currentText(), QStringLiteral("COM 1"));
        QCOMPARE(rig.find<QLabel>("lblRamSize")->text(), QStringLiteral("64.0 M-BYTES"));
        QCOMPARE(rig.find<QLineEdit>("txtDataPoints")->text(), QStringLiteral("300"));
        QCOMPARE(rig.find<QComboBox>("comDevice")->currentText(), QStringLiteral("/dev/ttyS0"));
        // Showing the stored number is no pick: port 5 stays until the operator chooses.
        QCOMPARE(int(rig.state.CommPortNumber), 5);
        QCOMPARE(rig.port.number, 1);
        rig.dialog.reject();
    }

    void pickingAPortAppliesIt()
    {
        DialogRig rig;
        rig.port.opened = true;
        rig.dialog.show();
        auto* ports = rig.find<QComboBox>("comCommPort");
        ports->setFocus();
        QTest::keyClick(ports, Qt::Key_Down);
        QCOMPARE(ports->currentText(), QStringLiteral("COM 2"));
        QCOMPARE(int(rig.state.CommPortNumber), 2);
        QCOMPARE(rig.port.number, 2);
        QVERIFY(!rig.port.opened);
        QCOMPARE(rig.find<QComboBox>("comDevice")->currentText(), QStringLiteral("/dev/ttyS1"));
        rig.dialog.reject();
    }

    void typingADeviceBindsIt()
    {
        DialogRig rig;
        rig.dialog.show();
        QLineEdit* edit = rig.find<QComboBox>("comDevice")->lineEdit();
        QVERIFY(edit);
        edit->selectAll();
        QTest::keyClicks(edit, QStringLiteral("/dev/ttyUSB7"));
        QTest::keyClick(edit, Qt::Key_Return);
        QCOMPARE(rig.ports.device(1), QStringLiteral("/dev/ttyUSB7"));
        QFile file(rig.dir.filePath(PortMap::fileName()));
        QVERIFY(file.open(QIODevice::ReadOnly));
        QCOMPARE(file.readAll(), QByteArray("/dev/ttyUSB7\r\n/dev/ttyS1\r\n"));
        rig.dialog.reject();
    }

    void okClosesTheDialog()
    {
        DialogRig rig;
        rig.dialog.show();
        QVERIFY(rig.dialog.isVisible());
        QTest::mouseClick(rig.find<QPushButton>("cmdOK"), Qt::LeftButton);
        QVERIFY(!rig.dialog.isVisible());
        QCOMPARE(rig.dialog.result(), int(QDialog::Accepted));
    }

    void memInfo_data()
    {
        QTest::addColumn<QByteArray>("text");
        QTest::addColumn<QByteArray>("key");
        QTest::addColumn<quint64>("bytes");
        const QByteArray sample("MemTotal:       16318412 kB\nMemFree:         1234 kB\n"
                                "MemAvailable:    8000000 kB\n");
        QTest::newRow("total") << sample << QByteArray("MemTotal") << quint64(16318412) * 1024;
        QTest::newRow("available")
            << sample << QByteArray("MemAvailable") << quint64(8000000) * 1024;
        QTest::newRow("missing") << sample << QByteArray("SwapTotal") << quint64(0);
        QTest::newRow("garbage") << QByteArray("MemTotal: lots\n") << QByteArray("MemTotal")
                                 << quint64(0);
    }
    void memInfo()
    {
        QFETCH(QByteArray, text);
        QFETCH(QByteArray, key);
        QFETCH(quint64, bytes);
        QCOMPARE(LinuxSystemInfo::memInfoBytes(text, key), bytes);
    }

    void memInfoFromFile()
    {
        QTemporaryDir dir;
        QVERIFY(dir.isValid());
        QFile file(dir.filePath(QStringLiteral("meminfo")));
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write("MemTotal:  64000 kB\nMemFree:  100 kB\n");
        file.close();
        const LinuxSystemInfo info(file.fileName());
        QCOMPARE(info.totalPhysicalMemory(), quint64(65536000));
        // Without MemAvailable, free memory stands in.
        QCOMPARE(info.availablePhysicalMemory(), quint64(102400));
        const LinuxSystemInfo missing(dir.filePath(QStringLiteral("none")));
        QCOMPARE(missing.totalPhysicalMemory(), quint64(0));
    }

    void processorTypes_data()
    {
        QTest::addColumn<QString>("architecture");
        QTest::addColumn<int>("type");
        QTest::newRow("x86-64") << "x86_64" << 8664;
        QTest::newRow("i386") << "i386" << 586;
        QTest::newRow("i686") << "i686" << 586;
        QTest::newRow("itanium") << "ia64" << 2200;
        QTest::newRow("arm64") << "arm64" << 0;
    }
    void processorTypes()
    {
        QFETCH(QString, architecture);
        QFETCH(int, type);
        QCOMPARE(LinuxSystemInfo::processorTypeFor(architecture), type);
    }

    void searchFindsTheInstrumentAmongTwoTerminals()
    {
        // Two serial lines: one carries only noise that never ends a record, the other the
        // instrument's real-time readings.
        SimulatedInstrument noisy;
        SimulatedInstrument instrument;
        QVERIFY(noisy.open());
        QVERIFY(instrument.open());
        noisy.setCharactersPerSecond(0);
        instrument.setCharactersPerSecond(0);
        instrument.setTimeScale(0.01);
        DialogRig rig;
        rig.devices = QStringList { noisy.devicePath(), instrument.devicePath() };
        rig.dialog.show();
        QSignalSpy done(&rig.controller.search(), &InstrumentSearch::finished);
        rig.prompter.answers.push_back(Prompter::Answer::Yes);

        auto* button = rig.find<QPushButton>("cmdSearchForIr");
        QVERIFY(button);
        QCOMPARE(button->text(), QStringLiteral("SEARCH FOR INSTRUMENT"));
        QTest::mouseClick(button, Qt::LeftButton);
        QTRY_VERIFY(!button->isEnabled());
        // The simulators start once the search listens, as an instrument already sending would.
        SimulatorOptions noise;
        noise.fault = SimulatorOptions::Fault::NoiseWithoutBel;
        noisy.start(noise);
        SimulatorOptions readings;
        readings.intervalSeconds = 1;
        instrument.start(readings);

        QVERIFY(done.wait(InstrumentSearch::ListenMilliseconds + 3000));
        QCOMPARE(rig.controller.search().bestDevice(), instrument.devicePath());
        QCOMPARE(rig.prompter.titles(), QStringList { "INSTRUMENT FOUND" });
        QVERIFY(rig.prompter.messages().front().text.contains(instrument.devicePath()));
        QCOMPARE(rig.ports.device(1), instrument.devicePath());
        auto* device = rig.find<QComboBox>("comDevice");
        QVERIFY(device);
        QTRY_COMPARE(device->currentText(), instrument.devicePath());
        QVERIFY(button->isEnabled());
    }
};

TALAVEX_TEST(TestStatusDialogs)
#include "TestStatusDialogs.moc"
