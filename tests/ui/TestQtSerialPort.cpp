#include "support/TestRegistry.h"

#include "link/PortMap.h"
#include "ui/QtSerialPort.h"

#include <QSignalSpy>
#include <QSocketNotifier>
#include <QTemporaryDir>
#include <QTest>

#include <cerrno>
#include <fcntl.h>
#include <stdlib.h>
#include <unistd.h>

Q_DECLARE_METATYPE(QSerialPort::SerialPortError)

namespace {
// A pseudo-terminal pair: the port under test opens the slave as its device, the test writes
// on the master as the instrument would.
class Pty {
public:
    Pty()
    {
        master_ = posix_openpt(O_RDWR | O_NOCTTY);
        if (master_ < 0 || grantpt(master_) != 0 || unlockpt(master_) != 0) {
            closeMaster();
            return;
        }
        const char* name = ptsname(master_);
        if (!name) {
            closeMaster();
            return;
        }
        slavePath_ = QString::fromLocal8Bit(name);
        // Writes must never block: the reader runs on this thread's event loop.
        fcntl(master_, F_SETFL, fcntl(master_, F_GETFL) | O_NONBLOCK);
    }
    ~Pty() { closeMaster(); }
    Pty(const Pty&) = delete;
    Pty& operator=(const Pty&) = delete;

    bool isOpen() const { return master_ >= 0; }
    QString slavePath() const { return slavePath_; }

    // Writes everything, letting the event loop run whenever the terminal is full.
    bool write(const QByteArray& data)
    {
        qsizetype done = 0;
        while (done < data.size()) {
            const ssize_t n = ::write(master_, data.constData() + done, size_t(data.size() - done));
            if (n > 0) {
                done += n;
                continue;
            }
            if (n < 0 && errno != EAGAIN && errno != EINTR)
                return false;
            QSocketNotifier writable(master_, QSocketNotifier::Write);
            QSignalSpy ready(&writable, &QSocketNotifier::activated);
            if (!ready.wait(5000))
                return false;
        }
        return true;
    }

    void closeMaster()
    {
        if (master_ >= 0)
            ::close(master_);
        master_ = -1;
    }

private:
    int master_ = -1;
    QString slavePath_;
};

// Collects what the port hands over, the way the receive handler takes it: every waiting
// character on each notification, or only part of them when `share` says so.
struct Collector {
    explicit Collector(QtSerialPort& port)
        : port(port)
    {
        port.setReceiveCallback([this] { take(); });
    }
    void take()
    {
        ++notifications;
        openAtLastNotice = port.isOpen();
        qsizetype wanted = share ? std::max<qsizetype>(1, port.pendingCount() / share) : -1;
        char c;
        while (wanted != 0 && port.readChar(c)) {
            received.append(c);
            if (wanted > 0)
                --wanted;
        }
    }
    void drain()
    {
        char c;
        while (port.readChar(c))
            received.append(c);
    }
    QtSerialPort& port;
    QByteArray received;
    int notifications = 0;
    bool openAtLastNotice = false;
    int share = 0;
};

QByteArray pattern(int size)
{
    QByteArray data(size, '\0');
    for (int i = 0; i < size; ++i)
        data[i] = char((i * 7 + i / 256) & 0xFF);
    return data;
}
} // namespace

class TestQtSerialPort : public QObject {
    Q_OBJECT
private slots:
    void receivesInOrder_data()
    {
        QTest::addColumn<QByteArray>("data");
        QTest::addColumn<int>("share");
        QTest::newRow("one record") << QByteArray("  75   DEG F\x07") << 0;
        QByteArray everyByte;
        for (int i = 0; i < 256; ++i)
            everyByte.append(char(i));
        QTest::newRow("every byte value passes untouched") << everyByte << 0;
        QTest::newRow("a long stream") << pattern(200000) << 0;
        // The handler leaving characters behind makes the buffer grow and be compacted.
        QTest::newRow("a long stream read piecemeal") << pattern(400000) << 3;
    }
    void receivesInOrder()
    {
        QFETCH(QByteArray, data);
        QFETCH(int, share);
        Pty pty;
        QVERIFY(pty.isOpen());
        PortMap map;
        map.setDevice(1, pty.slavePath());
        QtSerialPort port(map);
        Collector collector(port);
        collector.share = share;
        QCOMPARE(port.deviceName(), pty.slavePath());
        QVERIFY2(port.open(), qPrintable(port.errorString()));
        QVERIFY(port.isOpen());

        QVERIFY(pty.write(data));
        QTRY_VERIFY_WITH_TIMEOUT(
            collector.received.size() + port.pendingCount() >= data.size(), 10000);
        collector.drain();
        QCOMPARE(collector.received.size(), data.size());
        QCOMPARE(collector.received, data);
        QVERIFY(collector.notifications > 0);
        char c;
        QVERIFY(!port.readChar(c));
    }

    void deviceFollowsThePortNumber()
    {
        PortMap map;
        map.setDevice(2, QStringLiteral("/dev/ttyUSB5"));
        QtSerialPort port(map);
        QCOMPARE(port.portNumber(), 1);
        QCOMPARE(port.deviceName(), QStringLiteral("/dev/ttyS0"));
        port.setPortNumber(2);
        QCOMPARE(port.deviceName(), QStringLiteral("/dev/ttyUSB5"));
        map.setRunOverride(2, QStringLiteral("/dev/pts/9"));
        QCOMPARE(port.deviceName(), QStringLiteral("/dev/pts/9"));
    }

    void missingDeviceIsNamed()
    {
        QTemporaryDir dir;
        QVERIFY(dir.isValid());
        const QString device = dir.filePath(QStringLiteral("ttyGone0"));
        PortMap map;
        map.setRunOverride(1, device);
        QtSerialPort port(map);
        QVERIFY(!port.open());
        QVERIFY(!port.isOpen());
        const QString message = port.errorString();
        QVERIFY2(message.contains(device), qPrintable(message));
        QVERIFY2(message.contains(QLatin1String("does not exist")), qPrintable(message));
        QVERIFY2(message.contains(QLatin1String("SETTINGS")), qPrintable(message));
        QVERIFY2(message.contains(QLatin1String("--port")), qPrintable(message));
    }

    void openFailureTexts_data()
    {
        QTest::addColumn<QSerialPort::SerialPortError>("error");
        QTest::addColumn<bool>("readable");
        QTest::addColumn<QStringList>("phrases");
        QTest::addColumn<QStringList>("absent");
        QTest::newRow("no such device")
            << QSerialPort::DeviceNotFoundError << false
            << QStringList { "COM 2", "/dev/ttyUSB0", "does not exist", "SETTINGS", "--port" }
            << QStringList { "dialout" };
        QTest::newRow("no rights")
            << QSerialPort::PermissionError << false
            << QStringList { "COM 2", "/dev/ttyUSB0", "Permission denied", "\"dialout\"",
                   "sudo usermod -aG dialout $USER", "log out" }
            << QStringList { "does not exist" };
        QTest::newRow("held by another program")
            << QSerialPort::PermissionError << true
            << QStringList { "/dev/ttyUSB0", "Permission denied", "Another program" }
            << QStringList { "dialout" };
        QTest::newRow("anything else gives the system's reason")
            << QSerialPort::UnsupportedOperationError << true
            << QStringList { "COM 2", "/dev/ttyUSB0", "Permission denied" }
            << QStringList { "dialout", "does not exist" };
    }
    void openFailureTexts()
    {
        QFETCH(QSerialPort::SerialPortError, error);
        QFETCH(bool, readable);
        QFETCH(QStringList, phrases);
        QFETCH(QStringList, absent);
        const QString message = QtSerialPort::describeOpenFailure(2, QStringLiteral("/dev/ttyUSB0"),
            error, QStringLiteral("Permission denied"), readable);
        for (const QString& phrase : phrases)
            QVERIFY2(
                message.contains(phrase), qPrintable(phrase + QLatin1String(" in ") + message));
        for (const QString& phrase : absent)
            QVERIFY2(
                !message.contains(phrase), qPrintable(phrase + QLatin1String(" in ") + message));
    }

    void resetDropsWhatWaits()
    {
        Pty pty;
        QVERIFY(pty.isOpen());
        PortMap map;
        map.setDevice(1, pty.slavePath());
        QtSerialPort port(map);
        int notices = 0;
        port.setReceiveCallback([&notices] { ++notices; });
        QVERIFY2(port.open(), qPrintable(port.errorString()));
        QVERIFY(pty.write("abc"));
        QTRY_COMPARE_WITH_TIMEOUT(port.pendingCount(), qsizetype(3), 5000);
        port.resetBufferCounts();
        QCOMPARE(port.pendingCount(), qsizetype(0));
        char c;
        QVERIFY(!port.readChar(c));
        QVERIFY(pty.write("d"));
        QTRY_COMPARE_WITH_TIMEOUT(port.pendingCount(), qsizetype(1), 5000);
        QVERIFY(port.readChar(c));
        QCOMPARE(c, 'd');
        QVERIFY(notices >= 2);
    }

    void vanishingDeviceClosesThePort()
    {
        auto pty = std::make_unique<Pty>();
        QVERIFY(pty->isOpen());
        const QString device = pty->slavePath();
        PortMap map;
        map.setDevice(1, device);
        QtSerialPort port(map);
        Collector collector(port);
        QVERIFY2(port.open(), qPrintable(port.errorString()));
        QVERIFY(pty->write("12\x07"));
        QTRY_COMPARE_WITH_TIMEOUT(collector.received, QByteArray("12\x07"), 5000);

        pty.reset();
        QTRY_VERIFY_WITH_TIMEOUT(!port.isOpen(), 5000);
        // The owner heard of it and found the port closed.
        QTRY_VERIFY_WITH_TIMEOUT(!collector.openAtLastNotice, 5000);
        QCOMPARE(port.errorString(), "THE SERIAL DEVICE " + device + " WAS DISCONNECTED.");
        char c;
        QVERIFY(!port.readChar(c));

        // A new device on the same number opens as usual.
        Pty next;
        QVERIFY(next.isOpen());
        map.setDevice(1, next.slavePath());
        QVERIFY2(port.open(), qPrintable(port.errorString()));
        QVERIFY(next.write("7"));
        QTRY_COMPARE_WITH_TIMEOUT(collector.received,
            QByteArray("12\x07"
                       "7"),
            5000);
        port.close();
        QVERIFY(!port.isOpen());
    }
};

TALAVEX_TEST(TestQtSerialPort)
#include "TestQtSerialPort.moc"
