#include "support/TestRegistry.h"

#include "link/IRSystem.h"

#include <QSignalSpy>
#include <QTest>

namespace {
const QString Idle = QStringLiteral("IR SYSTEM IDLE...");
const QString Sensing = QStringLiteral("IR SYSTEM ACTIVE - SENSING TEMPERATURE...");
const QString Receiving = QStringLiteral("IR SYSTEM ACTIVE - RECEIVING DATA...");
const QString Scanning = QStringLiteral("SCANNING COMMPORT FOR IR TRANSMISSION...");

// Runs a comma-separated list of commands and timer ticks on the display.
void run(IRSystem& system, const QString& script)
{
    const QStringList steps = script.split(QLatin1Char(','), Qt::SkipEmptyParts);
    for (const QString& step : steps) {
        if (step == QLatin1String("scan"))
            system.ScanForIrSystem();
        else if (step == QLatin1String("sense"))
            system.SenseTemperature();
        else if (step == QLatin1String("download"))
            system.DownloadIRData();
        else if (step == QLatin1String("idle"))
            system.SetToIdle();
        else if (step == QLatin1String("reset"))
            system.ResetOldState();
        else if (step == QLatin1String("ir"))
            system.tmrIRGraphics_Timer();
        else if (step == QLatin1String("comp"))
            system.tmrCompGraphics_Timer();
        else
            QFAIL(qPrintable(QStringLiteral("unknown step ") + step));
    }
}
} // namespace

class TestIRSystem : public QObject {
    Q_OBJECT
private slots:
    void startsIdle()
    {
        IRSystem system;
        QCOMPARE(system.GetCurrentState(), qint16(0));
        QCOMPARE(system.caption(), Idle);
        QVERIFY(!system.StateChanged);
        QCOMPARE(system.tmrCompGraphics().interval(), 30);
        QCOMPARE(system.tmrIRGraphics().interval(), 300);
    }

    void transitions_data()
    {
        QTest::addColumn<QString>("script");
        QTest::addColumn<int>("state");
        QTest::addColumn<int>("oldState");
        QTest::addColumn<bool>("stateChanged");
        QTest::addColumn<QString>("caption");
        QTest::newRow("scan from idle") << "scan" << 2 << 0 << false << Scanning;
        QTest::newRow("sense from idle") << "sense" << 1 << 0 << false << Sensing;
        QTest::newRow("download from idle") << "download" << 3 << 0 << false << Receiving;
        QTest::newRow("idle from sensing") << "sense,idle" << 0 << 0 << false << Idle;
        QTest::newRow("scan from sensing") << "sense,scan" << 2 << 1 << true << Scanning;
        QTest::newRow("scan from receiving") << "download,scan" << 2 << 3 << true << Scanning;
        QTest::newRow("sense from scanning") << "scan,sense" << 1 << 2 << true << Sensing;
        QTest::newRow("sense from receiving") << "download,sense" << 1 << 3 << true << Sensing;
        QTest::newRow("download from sensing") << "sense,download" << 3 << 1 << true << Receiving;
        QTest::newRow("download from scanning") << "scan,download" << 3 << 2 << true << Receiving;
        QTest::newRow("idle clears the change flag")
            << "sense,scan,idle" << 0 << 1 << false << Idle;
        QTest::newRow("reset right after a change from idle returns to idle")
            << "scan,reset" << 0 << 0 << false << Idle;
        QTest::newRow("reset after sensing from idle") << "sense,reset" << 0 << 0 << false << Idle;
        QTest::newRow("reset returns to sensing")
            << "sense,scan,reset" << 1 << 1 << false << Sensing;
        QTest::newRow("reset returns to receiving")
            << "download,sense,reset" << 3 << 3 << false << Receiving;
        QTest::newRow("reset returns to scanning")
            << "scan,download,reset" << 2 << 2 << false << Scanning;
        QTest::newRow("a change from idle leaves the kept state")
            << "sense,scan,idle,download" << 3 << 1 << false << Receiving;
        QTest::newRow("the last change away from an active state counts")
            << "sense,scan,download" << 3 << 2 << true << Receiving;
    }
    void transitions()
    {
        QFETCH(QString, script);
        QFETCH(int, state);
        QFETCH(int, oldState);
        QFETCH(bool, stateChanged);
        QFETCH(QString, caption);
        IRSystem system;
        run(system, script);
        QCOMPARE(int(system.GetCurrentState()), state);
        QCOMPARE(int(system.CurrentState), state);
        QCOMPARE(int(system.OldState), oldState);
        QCOMPARE(system.StateChanged, stateChanged);
        QCOMPARE(system.caption(), caption);
    }

    // What the display shows, in words: "sensing N" (lit segments), "scanning", and "data" with
    // the sides of the link that are drawn.
    void figures_data()
    {
        QTest::addColumn<QString>("script");
        QTest::addColumn<QString>("shown");
        auto row = [](const char* name, const char* script, const char* shown) {
            QTest::newRow(name) << QString(script) << QString(shown);
        };
        row("sensing counts one segment a step", "sense,ir,ir,ir", "sensing 3");
        row("sensing reaches seven", "sense,ir,ir,ir,ir,ir,ir,ir", "sensing 7");
        row("sensing starts over after seven", "sense,ir,ir,ir,ir,ir,ir,ir,ir", "sensing 0");
        row("computer side runs while sensing", "sense,comp", "sensing 0, data computer");
        row("computer side runs while scanning", "scan,comp,ir", "scanning, data computer");
        row("both sides while receiving", "download,comp", "data instrument computer");
        row("receiving shows both sides at once", "download", "data instrument computer");
        row("scanning goes when sensing starts", "scan,ir,sense", "sensing 0");
        row("sensing and data go when scanning starts", "sense,ir,comp,scan", "scanning");
        row("sensing and data go when receiving starts", "sense,ir,comp,download",
            "data instrument computer");
        row("data goes when scanning starts from receiving", "download,comp,scan", "scanning");
        row("receiving ignores the sensing timer", "download,ir", "data instrument computer");
        row("reset to sensing drops the scan", "sense,scan,ir,reset", "sensing 0");
    }
    void figures()
    {
        QFETCH(QString, script);
        IRSystem system;
        run(system, script);
        QStringList shown;
        if (system.sensingShown())
            shown << QStringLiteral("sensing %1").arg(system.sensingSegments());
        else if (system.sensingSegments() != 0)
            shown << QStringLiteral("segments %1").arg(system.sensingSegments());
        if (system.scanningShown())
            shown << QStringLiteral("scanning");
        if (system.dataShown() || system.dataInstrumentSide() || system.dataComputerSide())
            shown << QStringLiteral("data") + (system.dataInstrumentSide() ? " instrument" : "")
                    + (system.dataComputerSide() ? " computer" : "")
                    + (system.dataShown() ? "" : " hidden");
        QTEST(shown.join(QStringLiteral(", ")), "shown");
    }

    void animationsMove()
    {
        IRSystem system;
        system.ScanForIrSystem();
        QList<int> lit;
        for (int i = 0; i < IRSystem::ScanPositions + 1; ++i) {
            lit << system.scanSegment();
            system.tmrIRGraphics_Timer();
        }
        // Out along the row and back, then round again.
        QCOMPARE(lit, QList<int>({ 0, 1, 2, 3, 4, 5, 6, 5, 4, 3, 2, 1, 0 }));

        system.DownloadIRData();
        const int first = system.dataPhase();
        system.tmrCompGraphics_Timer();
        QCOMPARE(system.dataPhase(), (first + 1) % IRSystem::DataPhases);
    }

    void idleStopsBothTimersOnTheirNextTick_data()
    {
        QTest::addColumn<QString>("activity");
        QTest::addColumn<bool>("compFirst");
        QTest::newRow("sensing, figure timer first") << "sense,ir,ir,comp" << true;
        QTest::newRow("sensing, sensing timer first") << "sense,ir,ir,comp" << false;
        QTest::newRow("scanning") << "scan,ir,comp" << true;
        QTest::newRow("receiving") << "download,comp,comp" << false;
    }
    void idleStopsBothTimersOnTheirNextTick()
    {
        QFETCH(QString, activity);
        QFETCH(bool, compFirst);
        IRSystem system;
        run(system, activity);
        QVERIFY(system.tmrCompGraphics().isActive());
        const bool anyShown = system.sensingShown() || system.scanningShown() || system.dataShown();
        QVERIFY(anyShown);

        system.SetToIdle();
        QCOMPARE(system.caption(), Idle);
        // The figures stay until a timer comes round.
        QCOMPARE(system.sensingShown() || system.scanningShown() || system.dataShown(), anyShown);

        if (compFirst) {
            system.tmrCompGraphics_Timer();
            QVERIFY(!system.tmrCompGraphics().isActive());
        } else {
            system.tmrIRGraphics_Timer();
            QVERIFY(!system.tmrIRGraphics().isActive());
        }
        QVERIFY(!system.sensingShown());
        QVERIFY(!system.scanningShown());
        QVERIFY(!system.dataShown());
        system.tmrCompGraphics_Timer();
        system.tmrIRGraphics_Timer();
        QVERIFY(!system.tmrCompGraphics().isActive());
        QVERIFY(!system.tmrIRGraphics().isActive());
        QCOMPARE(system.caption(), Idle);
        QCOMPARE(system.sensingSegments(), 0);
    }

    void timersRunOnTheirOwnAndStopWhenIdle()
    {
        IRSystem system;
        QSignalSpy changed(&system, &IRSystem::changed);
        system.SenseTemperature();
        QVERIFY(system.tmrIRGraphics().isActive());
        QVERIFY(system.tmrCompGraphics().isActive());
        QTRY_VERIFY_WITH_TIMEOUT(system.sensingSegments() >= 2, 5000);
        QVERIFY(system.dataShown() && system.dataComputerSide());
        QVERIFY(changed.count() >= 3);

        system.SetToIdle();
        QTRY_VERIFY_WITH_TIMEOUT(
            !system.tmrIRGraphics().isActive() && !system.tmrCompGraphics().isActive(), 5000);
        QVERIFY(!system.sensingShown());
        QVERIFY(!system.dataShown());
    }

    void resetStartsAfresh()
    {
        IRSystem system;
        run(system, "sense,ir,scan,comp");
        system.reset();
        QCOMPARE(int(system.GetCurrentState()), 0);
        QCOMPARE(int(system.OldState), 0);
        QVERIFY(!system.StateChanged);
        QVERIFY(!system.tmrIRGraphics().isActive());
        QVERIFY(!system.tmrCompGraphics().isActive());
        QVERIFY(!system.scanningShown() && !system.dataShown() && !system.sensingShown());
        QCOMPARE(system.caption(), Idle);
    }
};

TALAVEX_TEST(TestIRSystem)
#include "TestIRSystem.moc"
