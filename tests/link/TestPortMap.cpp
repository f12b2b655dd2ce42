#include "support/TestRegistry.h"

#include "link/PortMap.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTest>

namespace {
void writeFile(const QString& path, const QByteArray& content)
{
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(content), content.size());
}

QByteArray readFile(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    return file.readAll();
}
} // namespace

class TestPortMap : public QObject {
    Q_OBJECT
private slots:
    void defaults_data()
    {
        QTest::addColumn<int>("number");
        QTest::addColumn<QString>("device");
        QTest::newRow("COM 1") << 1 << "/dev/ttyS0";
        QTest::newRow("COM 2") << 2 << "/dev/ttyS1";
        QTest::newRow("COM 4 beyond the file") << 4 << "/dev/ttyS3";
        QTest::newRow("no port 0") << 0 << "";
        QTest::newRow("no negative port") << -1 << "";
    }
    void defaults()
    {
        QFETCH(int, number);
        QFETCH(QString, device);
        const PortMap map;
        QCOMPARE(map.device(number), device);
    }

    void load_data()
    {
        QTest::addColumn<bool>("fileExists");
        QTest::addColumn<QByteArray>("content");
        QTest::addColumn<QStringList>("devices"); // COM 1 to COM 3
        const QStringList defaults { "/dev/ttyS0", "/dev/ttyS1", "/dev/ttyS2" };
        QTest::newRow("no file") << false << QByteArray() << defaults;
        QTest::newRow("empty file") << true << QByteArray() << defaults;
        QTest::newRow("both lines") << true << QByteArray("/dev/ttyUSB0\r\n/dev/ttyUSB1\r\n")
                                    << QStringList { "/dev/ttyUSB0", "/dev/ttyUSB1", "/dev/ttyS2" };
        QTest::newRow("short file") << true << QByteArray("/dev/ttyUSB0\r\n")
                                    << QStringList { "/dev/ttyUSB0", "/dev/ttyS1", "/dev/ttyS2" };
        QTest::newRow("no final line end")
            << true << QByteArray("/dev/ttyS4\r\n/dev/ttyS5")
            << QStringList { "/dev/ttyS4", "/dev/ttyS5", "/dev/ttyS2" };
        QTest::newRow("bare line feeds")
            << true << QByteArray("/dev/ttyACM0\n/dev/ttyACM1\n")
            << QStringList { "/dev/ttyACM0", "/dev/ttyACM1", "/dev/ttyS2" };
        QTest::newRow("blank first line")
            << true << QByteArray("\r\n/dev/ttyUSB1\r\n")
            << QStringList { "/dev/ttyS0", "/dev/ttyUSB1", "/dev/ttyS2" };
        QTest::newRow("blanks around a name")
            << true << QByteArray("  /dev/ttyUSB0 \t\r\n")
            << QStringList { "/dev/ttyUSB0", "/dev/ttyS1", "/dev/ttyS2" };
        QTest::newRow("bare device name")
            << true << QByteArray("ttyUSB0\r\n")
            << QStringList { "/dev/ttyUSB0", "/dev/ttyS1", "/dev/ttyS2" };
        QTest::newRow("binary garbage")
            << true << QByteArray("\x00\xff\x01\x02\r\n\xfe\xfd", 8) << defaults;
        QTest::newRow("words are no device")
            << true << QByteArray("my port\r\nrelative/path\r\n") << defaults;
        QTest::newRow("third line") << true << QByteArray("\r\n\r\n/dev/ttyUSB2\r\n")
                                    << QStringList { "/dev/ttyS0", "/dev/ttyS1", "/dev/ttyUSB2" };
    }
    void load()
    {
        QFETCH(bool, fileExists);
        QFETCH(QByteArray, content);
        QFETCH(QStringList, devices);
        QTemporaryDir dir;
        QVERIFY(dir.isValid());
        if (fileExists)
            writeFile(dir.filePath(PortMap::fileName()), content);
        PortMap map;
        // Bindings from an earlier load must not survive into this one.
        map.setDevice(1, QStringLiteral("/dev/leftover"));
        map.load(dir.path());
        QCOMPARE(QStringList({ map.device(1), map.device(2), map.device(3) }), devices);
    }

    void saveWritesOneLinePerPort()
    {
        QTemporaryDir dir;
        QVERIFY(dir.isValid());
        PortMap map;
        map.setDevice(2, QStringLiteral("/dev/ttyUSB0"));
        QVERIFY(map.save(dir.path()));
        QCOMPARE(readFile(dir.filePath(QStringLiteral("Ports.dat"))),
            QByteArray("/dev/ttyS0\r\n/dev/ttyUSB0\r\n"));
    }

    void roundTrip_data()
    {
        QTest::addColumn<int>("number");
        QTest::addColumn<QString>("device");
        QTest::newRow("COM 1 on a USB adapter") << 1 << "/dev/ttyUSB0";
        QTest::newRow("COM 2 on a long path") << 2 << "/dev/serial/by-id/usb-Adapter_A1-if00-port0";
        QTest::newRow("COM 3 added") << 3 << "/dev/ttyACM0";
    }
    void roundTrip()
    {
        QFETCH(int, number);
        QFETCH(QString, device);
        QTemporaryDir dir;
        QVERIFY(dir.isValid());
        PortMap written;
        written.setDevice(number, device);
        QVERIFY(written.save(dir.path()));
        PortMap read;
        read.load(dir.path());
        for (int n = 1; n <= 3; ++n)
            QCOMPARE(read.device(n), written.device(n));
        QCOMPARE(read.device(number), device);
    }

    void overrideIsForThisRunOnly()
    {
        QTemporaryDir dir;
        QVERIFY(dir.isValid());
        PortMap map;
        map.setDevice(1, QStringLiteral("/dev/ttyUSB0"));
        map.setRunOverride(1, QStringLiteral("/dev/pts/7"));
        QCOMPARE(map.device(1), QStringLiteral("/dev/pts/7"));
        QCOMPARE(map.storedDevice(1), QStringLiteral("/dev/ttyUSB0"));
        QVERIFY(map.save(dir.path()));
        QCOMPARE(readFile(dir.filePath(PortMap::fileName())),
            QByteArray("/dev/ttyUSB0\r\n/dev/ttyS1\r\n"));

        // Loading the file again keeps the run's override in force.
        map.load(dir.path());
        QCOMPARE(map.device(1), QStringLiteral("/dev/pts/7"));
        QCOMPARE(map.device(2), QStringLiteral("/dev/ttyS1"));

        PortMap nextRun;
        nextRun.load(dir.path());
        QCOMPARE(nextRun.device(1), QStringLiteral("/dev/ttyUSB0"));
    }

    void bindingReplacesOverride()
    {
        PortMap map;
        map.setRunOverride(2, QStringLiteral("/dev/pts/3"));
        QVERIFY(map.hasRunOverride(2));
        map.setDevice(2, QStringLiteral("/dev/ttyUSB1"));
        QVERIFY(!map.hasRunOverride(2));
        QCOMPARE(map.device(2), QStringLiteral("/dev/ttyUSB1"));
        // An empty binding goes back to the default.
        map.setDevice(2, QString());
        QCOMPARE(map.device(2), QStringLiteral("/dev/ttyS1"));
    }
};

TALAVEX_TEST(TestPortMap)
#include "TestPortMap.moc"
