#include "support/TestRegistry.h"

#include "link/IRSystem.h"

#include <QTest>
#include <functional>
#include <map>

// The link status display: a script of commands and timer ticks, then the state and what is
// shown, in words.
class TestIRSystem : public QObject {
    Q_OBJECT
private slots:
    void display_data()
    {
        QTest::addColumn<QString>("script");
        // state/old state, "!" when the change is recorded; caption: figures, running timers
        QTest::addColumn<QString>("shown");
        auto row = [](const char* script, const char* shown) {
            QTest::newRow(script) << QString(script) << QString(shown);
        };
        row("scan", "2/0 scan: scan 0 +ir +comp");
        row("sense scan", "2/1! scan: scan 0 +ir +comp");
        row("download sense", "1/3! sense: sensing 0 +ir +comp");
        row("sense download", "3/1! data: data ic@0 +ir +comp");
        row("scan reset", "0/0 idle: +ir +comp");
        row("sense scan reset", "1/1 sense: sensing 0 +ir +comp");
        row("sense scan idle comp download", "3/1 data: data ic@0 +ir +comp");
        row("sense scan ir comp init", "0/0 idle:");
        // The figures move on each tick of their timer.
        row("sense ir ir ir ir ir ir ir ir", "1/0 sense: sensing 0 +ir +comp");
        row("sense comp comp", "1/0 sense: sensing 0 data c@1 +ir +comp");
        row("scan ir ir ir ir ir ir ir ir", "2/0 scan: scan 4 +ir +comp");
        row("download comp comp comp", "3/0 data: data ic@3 +comp");
        row("download ir", "3/0 data: data ic@0 +comp");
        // Idle: the figures go on the next tick of either timer; each stops on its own next tick.
        row("sense ir ir comp idle comp", "0/0 idle: +ir");
        row("sense ir ir comp idle ir", "0/0 idle: +comp");
    }
    void display()
    {
        QFETCH(QString, script);
        IRSystem s;
        const std::map<QString, std::function<void()>> steps { { "scan",
                                                                   [&] { s.ScanForIrSystem(); } },
            { "sense", [&] { s.SenseTemperature(); } }, { "download", [&] { s.DownloadIRData(); } },
            { "idle", [&] { s.SetToIdle(); } }, { "reset", [&] { s.ResetOldState(); } },
            { "init", [&] { s.reset(); } }, { "ir", [&] { s.tmrIRGraphics_Timer(); } },
            { "comp", [&] { s.tmrCompGraphics_Timer(); } } };
        for (const QString& step : script.split(' '))
            steps.at(step)();
        const QStringList captions { IRSystem::idleCaption(), IRSystem::sensingCaption(),
            IRSystem::dataCaption(), IRSystem::scanningCaption() };
        QString shown = QStringLiteral("%1/%2%3 %4:")
                            .arg(s.GetCurrentState())
                            .arg(s.OldState)
                            .arg(s.StateChanged ? "!" : "")
                            .arg(QStringList { "idle", "sense", "data", "scan" }.value(
                                captions.indexOf(s.caption())));
        if (s.sensingShown() || s.sensingSegments() != 0)
            shown += QStringLiteral(" sensing %1").arg(s.sensingSegments());
        if (s.scanningShown())
            shown += QStringLiteral(" scan %1").arg(s.scanSegment());
        if (s.dataShown())
            shown += QStringLiteral(" data %1%2@%3")
                         .arg(s.dataInstrumentSide() ? "i" : "", s.dataComputerSide() ? "c" : "")
                         .arg(s.dataPhase());
        if (s.tmrIRGraphics().isActive())
            shown += " +ir";
        if (s.tmrCompGraphics().isActive())
            shown += " +comp";
        QTEST(shown, "shown");
    }

    // The timers drive the figures by themselves, and stop once idle.
    void timersRunTheFigures()
    {
        IRSystem s;
        s.SenseTemperature();
        QTRY_VERIFY_WITH_TIMEOUT(s.sensingSegments() >= 2 && s.dataPhase() >= 2, 10000);
        s.SetToIdle();
        QTRY_VERIFY_WITH_TIMEOUT(
            !s.tmrIRGraphics().isActive() && !s.tmrCompGraphics().isActive(), 10000);
        QVERIFY(!s.sensingShown() && !s.dataShown());
    }
};

TALAVEX_TEST(TestIRSystem)
#include "TestIRSystem.moc"
