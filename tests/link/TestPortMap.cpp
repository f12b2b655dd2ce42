#include "support/TestFiles.h"
#include "support/TestRegistry.h"

#include "link/PortMap.h"

#include <QTemporaryDir>
#include <QTest>

class TestPortMap : public QObject {
    Q_OBJECT
private slots:
    // Ports.dat read leniently over bindings of an earlier load: COM 1 to COM 3 afterwards.
    void load_data()
    {
        QTest::addColumn<QByteArray>("content"); // "<none>": no file
        QTest::addColumn<QString>("devices");
        const QString defaults = "/dev/ttyS0 /dev/ttyS1 /dev/ttyS2";
        QTest::newRow("no file") << QByteArray("<none>") << defaults;
        QTest::newRow("no final line end, bare line feeds")
            << QByteArray("/dev/ttyS4\n/dev/ttyS5") << "/dev/ttyS4 /dev/ttyS5 /dev/ttyS2";
        QTest::newRow("blank first line, a third line") << QByteArray(
            "\r\n/dev/ttyUSB1\r\n/dev/ttyUSB2\r\n") << "/dev/ttyS0 /dev/ttyUSB1 /dev/ttyUSB2";
        QTest::newRow("blanks around a bare name")
            << QByteArray("  ttyUSB0 \t\r\n") << "/dev/ttyUSB0 /dev/ttyS1 /dev/ttyS2";
        QTest::newRow("binary garbage")
            << QByteArray("\x00\xff\x01\x02\r\n\xfe\xfd", 8) << defaults;
        QTest::newRow("words are no device") << QByteArray("my port\r\nrel/path") << defaults;
    }
    void load()
    {
        QFETCH(QByteArray, content);
        QTemporaryDir dir;
        if (content != "<none>")
            testfiles::writeAll(dir.filePath(PortMap::fileName()), content);
        PortMap map;
        map.setDevice(1, QStringLiteral("/dev/leftover"));
        map.load(dir.path());
        QTEST(QStringList({ map.device(1), map.device(2), map.device(3) }).join(' '), "devices");
        QCOMPARE(map.device(0), QString());
    }

    // Bindings are saved, a run's override is not, and the latest choice wins.
    void bindingsAndOverrides()
    {
        QTemporaryDir dir;
        PortMap map;
        map.setDevice(1, QStringLiteral("/dev/ttyUSB0"));
        map.setRunOverride(1, QStringLiteral("/dev/pts/7"));
        QCOMPARE(map.device(1) + ' ' + map.storedDevice(1), "/dev/pts/7 /dev/ttyUSB0");
        QVERIFY(map.save(dir.path()));
        QCOMPARE(testfiles::readAll(dir.filePath(PortMap::fileName())),
            QByteArray("/dev/ttyUSB0\r\n/dev/ttyS1\r\n"));
        map.load(dir.path());
        QCOMPARE(map.device(1), QStringLiteral("/dev/pts/7"));

        PortMap nextRun;
        nextRun.load(dir.path());
        QCOMPARE(nextRun.device(1) + ' ' + nextRun.device(4), "/dev/ttyUSB0 /dev/ttyS3");

        map.setDevice(1, QStringLiteral("/dev/ttyUSB1"));
        QVERIFY(!map.hasRunOverride(1) && map.device(1) == "/dev/ttyUSB1");
        map.setDevice(1, QString());
        QCOMPARE(map.device(1), QStringLiteral("/dev/ttyS0"));
    }
};

TALAVEX_TEST(TestPortMap)
#include "TestPortMap.moc"
