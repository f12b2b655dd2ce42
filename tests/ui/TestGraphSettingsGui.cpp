#include "support/AppRig.h"
#include "support/TestRegistry.h"

#include "ui/GraphSettingsDialog.h"
#include "ui/MainWindow.h"

#include <QAction>
#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

// The graph settings panel on the real main window: opened from the chart menu, typed into, and
// read back from the chart's axes.
class TestGraphSettingsGui : public QObject {
    Q_OBJECT

    using Axis = ChartSurface::Axis;

    struct Fixture {
        AppRig rig;
        MainWindow window { rig.app(), nullptr };
        GraphSettingsDialog* panel = nullptr;
        Fixture()
        {
            rig.app().controller.Form_Load();
            window.show();
            rig.chart.setAxisMin(Axis::X, 0);
            rig.chart.setAxisMax(Axis::X, 60);
            rig.chart.setAxisMin(Axis::Y, 0);
            rig.chart.setAxisMax(Axis::Y, 100);
            window.findChild<QAction*>(QStringLiteral("mnuChartParameters"))->trigger();
            QCoreApplication::processEvents();
            panel = window.graphSettingsWindow();
        }
        QLineEdit* box(const char* name)
        {
            return panel->findChild<QLineEdit*>(QString::fromLatin1(name));
        }
        void typeAndEnter(const char* name, const QString& text)
        {
            QLineEdit* edit = box(name);
            edit->selectAll();
            QTest::keyClicks(edit, text);
            QTest::keyClick(edit, Qt::Key_Return);
            QCoreApplication::processEvents();
        }
    };

private slots:
    void opensFromTheChartMenuShowingTheAxes()
    {
        Fixture f;
        QVERIFY(f.panel);
        QVERIFY(f.panel->isVisible());
        QVERIFY(f.rig.app().state.GraphSettingsOpen);
        QCOMPARE(f.box("txtMaxX")->text(), QStringLiteral("60"));
        QCOMPARE(f.box("txtMaxY")->text(), QStringLiteral("100"));
        auto* units = f.panel->findChild<QComboBox*>(QStringLiteral("comTimeUnits"));
        QCOMPARE(units->count(), 4);
        QCOMPARE(units->itemText(3), QStringLiteral("DAYS"));
    }

    void enterAndAcceptReachTheChart()
    {
        Fixture f;
        f.typeAndEnter("txtMaxY", QStringLiteral("250"));
        QCOMPARE(f.rig.chart.axisMax(Axis::Y), 250.0);

        f.typeAndEnter("txtMinX", QStringLiteral("abc"));
        QCOMPARE(f.rig.prompter.messages().back().text,
            QStringLiteral("Please Enter A Numeric Value For X Min."));
        QCOMPARE(f.panel->focusWidget(), f.box("txtMinX"));
        QCOMPARE(f.rig.chart.axisMin(Axis::X), 0.0);

        f.box("txtMinX")->selectAll();
        QTest::keyClicks(f.box("txtMinX"), QStringLiteral("5"));
        f.box("txtMaxX")->selectAll();
        QTest::keyClicks(f.box("txtMaxX"), QStringLiteral("45.5"));
        QTest::mouseClick(
            f.panel->findChild<QPushButton*>(QStringLiteral("cmdAccept")), Qt::LeftButton);
        QCOMPARE(f.rig.chart.axisMin(Axis::X), 5.0);
        QCOMPARE(f.rig.chart.axisMax(Axis::X), 45.5);
        QCOMPARE(f.rig.app().state.SettingsValues.xAxisMax.text, QStringLiteral("45.5"));

        QTest::mouseClick(
            f.panel->findChild<QPushButton*>(QStringLiteral("cmdClose")), Qt::LeftButton);
        QVERIFY(!f.panel->isVisible());
        QVERIFY(!f.rig.app().state.GraphSettingsOpen);
    }
};

TALAVEX_TEST(TestGraphSettingsGui)
#include "TestGraphSettingsGui.moc"
