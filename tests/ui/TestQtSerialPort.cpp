#include "support/TestRegistry.h"

#include "link/PortMap.h"
#include "ui/QtSerialPort.h"

#include <QTemporaryDir>
#include <QTest>

#include <fcntl.h>
#include <stdlib.h>
#include <unistd.h>

// The serial adapter's words for a device that cannot be opened or goes away (reading the stream
// is covered by whole runs over a terminal).
class TestQtSerialPort : public QObject {
    Q_OBJECT
private slots:
    void failures_data()
    {
        QTest::addColumn<QString>("how");
        QTest::addColumn<QString>("phrases"); // apart by "|"; "@" stands for the device
        QTest::addColumn<QString>("absent");
        auto row = [](const char* how, const char* phrases, const char* absent) {
            QTest::newRow(how) << QString(how) << QString(phrases) << QString(absent);
        };
        row("missing", "COM 2|@|does not exist|SETTINGS|--port", "dialout");
        row("vanished", "THE SERIAL DEVICE @ WAS DISCONNECTED.", "dialout");
        row("no rights", "COM 2|@|Permission denied|\"dialout\"|usermod -aG dialout $USER|log out",
            "does not exist|Another program");
        row("held by another program", "@|Permission denied|Another program", "dialout");
        row("other", "COM 2|@|Permission denied", "dialout|does not exist|Another program");
    }
    void failures()
    {
        QFETCH(QString, how);
        QFETCH(QString, phrases);
        QFETCH(QString, absent);
        QTemporaryDir dir;
        QString device = dir.filePath(QStringLiteral("ttyGone0")), message;
        PortMap map;
        QtSerialPort port(map);
        if (how == QLatin1String("missing")) {
            map.setDevice(2, QStringLiteral("/dev/ttyUSB5"));
            port.setPortNumber(2);
            QCOMPARE(port.deviceName(), QStringLiteral("/dev/ttyUSB5"));
            map.setRunOverride(2, device);
            QCOMPARE(port.deviceName(), device);
            QVERIFY(!port.open() && !port.isOpen());
            message = port.errorString();
        } else if (how == QLatin1String("vanished")) {
            // A pseudo-terminal whose far end closes, as a USB adapter pulled out.
            const int master = posix_openpt(O_RDWR | O_NOCTTY);
            QVERIFY(master >= 0 && grantpt(master) == 0 && unlockpt(master) == 0);
            device = QString::fromLocal8Bit(ptsname(master));
            map.setDevice(1, device);
            bool openWhenTold = true;
            port.setReceiveCallback([&] { openWhenTold = port.isOpen(); });
            QVERIFY2(port.open(), qPrintable(port.errorString()));
            ::close(master);
            QTRY_VERIFY_WITH_TIMEOUT(!port.isOpen() && !openWhenTold, 5000); // the owner heard
            message = port.errorString();
        } else {
            message = QtSerialPort::describeOpenFailure(2, device,
                how == "other" ? QSerialPort::UnsupportedOperationError
                               : QSerialPort::PermissionError,
                QStringLiteral("Permission denied"), how != "no rights");
        }
        for (const QString& phrase : phrases.split('|'))
            QVERIFY2(message.contains(QString(phrase).replace('@', device)), qPrintable(message));
        for (const QString& phrase : absent.split('|'))
            QVERIFY2(!message.contains(phrase), qPrintable(message));
    }
};
TALAVEX_TEST(TestQtSerialPort)
#include "TestQtSerialPort.moc"
