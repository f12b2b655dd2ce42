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

    void figures_data()
    {
        QTest::addColumn<QString>("script");
        QTest::addColumn<bool>("sensing");
        QTest::addColumn<int>("segments");
        QTest::addColumn<bool>("scanning");
        QTest::addColumn<bool>("data");
        QTest::addColumn<bool>("instrumentSide");
        QTest::addColumn<bool>("computerSide");
        QTest::addColumn<QString>("caption");
        QTest::newRow("sensing counts one segment a step")
            << "sense,ir,ir,ir" << true << 3 << false << false << false << false << Sensing;
        QTest::newRow("sensing reaches seven") << "sense,ir,ir,ir,ir,ir,ir,ir" << true << 7 << false
                                               << false << false << false << Sensing;
        QTest::newRow("sensing starts over after seven")
            << "sense,ir,ir,ir,ir,ir,ir,ir,ir" << true << 0 << false << false << false << false
            << Sensing;
        QTest::newRow("computer side runs while sensing")
            << "sense,comp" << true << 0 << false << true << false << true << Sensing;
        QTest::newRow("computer side runs while scanning")
            << "scan,comp,ir" << false << 0 << true << true << false << true << Scanning;
        QTest::newRow("both sides while receiving")
            << "download,comp" << false << 0 << false << true << true << true << Receiving;
        QTest::newRow("receiving shows both sides at once")
            << "download" << false << 0 << false << true << true << true << Receiving;
        QTest::newRow("scanning goes when sensing starts")
            << "scan,ir,sense" << true << 0 << false << false << false << false << Sensing;
        QTest::newRow("sensing and data go when scanning starts")
            << "sense,ir,comp,scan" << false << 0 << true << false << false << false << Scanning;
        QTest::newRow("sensing and data go when receiving starts")
            << "sense,ir,comp,download" << false << 0 << false << true << true << true << Receiving;
        QTest::newRow("data goes when scanning starts from receiving")
            << "download,comp,scan" << false << 0 << true << false << false << false << Scanning;
        QTest::newRow("receiving ignores the sensing timer")
            << "download,ir" << false << 0 << false << true << true << true << Receiving;
        QTest::newRow("reset to sensing drops the scan")
            << "sense,scan,ir,reset" << true << 0 << false << false << false << false << Sensing;
    }
    void figures()
    {
        QFETCH(QString, script);
        QFETCH(bool, sensing);
        QFETCH(int, segments);
        QFETCH(bool, scanning);
        QFETCH(bool, data);
        QFETCH(bool, instrumentSide);
        QFETCH(bool, computerSide);
        QFETCH(QString, caption);
        IRSystem system;
        run(system, script);
        QCOMPARE(system.sensingShown(), sensing);
        QCOMPARE(system.sensingSegments(), segments);
        QCOMPARE(system.scanningShown(), scanning);
        QCOMPARE(system.dataShown(), data);
        QCOMPARE(system.dataInstrumentSide(), instrumentSide);
        QCOMPARE(system.dataComputerSide(), computerSide);
        QCOMPARE(system.caption(), caption);
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
        system.SetProjectPath(QStringLiteral("/tmp/work"));
        QCOMPARE(system.ProjectPath, QStringLiteral("/tmp/work"));
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
