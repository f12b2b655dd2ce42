#include "support/TestFiles.h"
#include "support/TestRegistry.h"
#include "support/WindowRig.h"

#include "chart/ChartAppearance.h"
#include "ui/ChartMouse.h"
#include "ui/GraphSettingsDialog.h"
#include "ui/MarkerDataWindow.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <cmath>

using Axis = ChartSurface::Axis;

// The chart in the main window: its mouse, cursor, settings panel, schemes and export.
class TestChartWindow : public QObject {
    Q_OBJECT
private slots:
    // A zoom holds the view and offers RESET CHART; a shift-drag moves the axes and limit lines.
    // The cursor reads the chart; a click pins and measures; a click, Escape or cursor off unpins.
    void chartMouseAndCursor()
    {
        WindowRig c;
        c.plotReadings({ { 0, 100 }, { 10, 200 } }, 250);
        auto* reset = c.find<QPushButton>("cmdResetChart");
        auto axes = [&] {
            return QList<double> { c.surface.axisMin(Axis::X), c.surface.axisMax(Axis::X),
                c.surface.axisMin(Axis::Y), c.surface.axisMax(Axis::Y) };
        };
        c.click(c.at(0.5, 0.5));
        QVERIFY(reset->isHidden());
        c.drag(c.at(0.25, 0.25), c.at(0.5, 0.75));
        QTRY_VERIFY(!reset->isHidden());
        QVERIFY(axes()[0] > 10 && axes()[1] < 35 && axes()[2] > 50 && axes()[3] < 200);
        reset->click();
        QVERIFY(reset->isHidden());
        QCOMPARE(axes(), QList<double>({ 0, 60, 0, 250 }));
        c.mouse(QEvent::MouseButtonPress, c.at(0.5, 0.5), Qt::LeftButton, Qt::ShiftModifier);
        c.mouse(QEvent::MouseMove, c.at(0.25, 0.5), Qt::LeftButton, Qt::ShiftModifier);
        QVERIFY(axes()[0] > 10 && c.surface.x(2, 2) >= axes()[1]);
        c.mouse(QEvent::MouseButtonRelease, c.at(0.25, 0.5), Qt::NoButton, Qt::ShiftModifier);
        QTRY_VERIFY(!reset->isHidden());
        QVERIFY(qAbs(axes()[1] - axes()[0] - 60) < 1e-6 && axes()[3] == 250);
        reset->click();
        auto* button = c.find<QPushButton>("cmdMarkers");
        QTest::mouseClick(button, Qt::LeftButton);
        auto* data = c.window.findChild<MarkerDataWindow*>();
        QVERIFY(data && data->isVisible());
        QCOMPARE(button->text(), QStringLiteral("CURSOR ON"));
        auto text = [&](const char* name) { return c.find<QLabel>(name, data)->text(); };
        auto* rate = c.find<QLabel>("lblRate", data);
        const int plainHeight = data->height();
        c.hover(c.atX(2.5));
        QCOMPARE(text("lblTemp") + ' ' + text("lblTime"), QStringLiteral("125.00 2.50"));
        QVERIFY(c.surface.marker()->visible() && !rate->isVisible());
        c.drag(c.atX(2.5), c.atX(7.5) + QPointF(0, 20)); // a drag over the data pins nothing
        QVERIFY(!c.app.cursor.pinned());
        reset->click();
        auto* mouse = c.window.findChild<CursorMouse*>();
        c.click(c.atX(2.5));
        QVERIFY(c.app.cursor.pinned() && mouse->pin()->visible());
        QTRY_VERIFY(rate->isVisible() && data->height() > plainHeight);
        QCOMPARE(text("lblPinned"), QStringLiteral("FROM 2.50 AT 125.00"));
        c.hover(c.atX(7.5)); // 50 degrees in 5 seconds: 600 a minute
        QCOMPARE(QStringList({ text("lblTemp"), text("lblDeltaTime"), text("lblDeltaTemp"),
                     text("lblRate") }),
            QStringList({ "175.00", "5.00", "50.00", "600.00" }));
        QVERIFY(mouse->span()->visible());
        c.hover(c.atX(30)); // beyond the newest reading: the span goes, the pin stays
        QVERIFY(!mouse->span()->visible() && mouse->pin()->visible());
        c.click(c.atX(5));
        QVERIFY(!c.app.cursor.pinned() && !mouse->pin()->visible());
        QTRY_COMPARE(data->height(), plainHeight);
        for (QWidget* target : { static_cast<QWidget*>(data), static_cast<QWidget*>(&c.window) }) {
            c.click(c.atX(2.5));
            QVERIFY(c.app.cursor.pinned());
            target->activateWindow();
            QVERIFY(QTest::qWaitForWindowActive(target));
            QTest::keyClick(target, Qt::Key_Escape);
            QVERIFY(!c.app.cursor.pinned() && !mouse->pin()->visible());
        }
        // The read-out's close box switches the cursor off as the button does.
        c.click(c.atX(2.5));
        data->close();
        QCoreApplication::processEvents();
        QCOMPARE(button->text(), QStringLiteral("CURSOR OFF"));
        QVERIFY(!c.app.cursor.pinned() && !mouse->pin()->visible());
        QVERIFY(!c.surface.marker()->visible() && !data->isVisible());
    }
    // The panel shows the axes as it appears; Enter, ACCEPT and the time unit reach the chart; a
    // refused number puts the focus back; AUTO RANGE is the chart menu's AUTO SCALE Y AXIS.
    void graphSettingsPanelReachesTheChart()
    {
        WindowRig c;
        c.plotReadings({}, 100);
        c.find("mnuChartParameters")->trigger();
        GraphSettingsDialog* panel = c.window.graphSettingsWindow();
        auto box = [&](const char* name) { return c.find<QLineEdit>(name, panel); };
        QVERIFY(panel->isVisible() && c.app.state.GraphSettingsOpen);
        QCOMPARE(box("txtMaxX")->text() + ' ' + box("txtMaxY")->text(), QStringLiteral("60 100"));
        auto type = [&](const char* name, const char* text, bool enter) {
            box(name)->selectAll();
            QTest::keyClicks(box(name), QString::fromLatin1(text));
            if (enter)
                QTest::keyClick(box(name), Qt::Key_Return);
            QCoreApplication::processEvents();
        };
        type("txtMaxY", "250", true);
        QCOMPARE(c.surface.axisMax(Axis::Y), 250.0);
        type("txtMinX", "abc", true);
        QCOMPARE(c.prompter.messages().back().text,
            QStringLiteral("Please Enter A Numeric Value For X Min."));
        QCOMPARE(panel->focusWidget(), box("txtMinX"));
        type("txtMinX", "5", false);
        type("txtMaxX", "45.5", false);
        QTest::mouseClick(c.find<QPushButton>("cmdAccept", panel), Qt::LeftButton);
        QCOMPARE(QList<double>({ c.surface.axisMin(Axis::X), c.surface.axisMax(Axis::X) }),
            QList<double>({ 5, 45.5 }));
        auto* units = c.find<QComboBox>("comTimeUnits", panel);
        QTest::keyClick(units, Qt::Key_End);
        QCOMPARE(c.surface.axisTitle(Axis::X), units->currentText());
        const bool autoScale = c.find("mnuAutoScaleYAxis")->isChecked();
        QTest::mouseClick(c.find<QCheckBox>("chkAutoRange", panel), Qt::LeftButton);
        QCoreApplication::processEvents();
        QCOMPARE(c.find("mnuAutoScaleYAxis")->isChecked(), !autoScale);
        QTest::mouseClick(c.find<QPushButton>("cmdClose", panel), Qt::LeftButton);
        QVERIFY(!panel->isVisible() && !c.app.state.GraphSettingsOpen);
    }
    void schemeReachesThePlot_data()
    {
        QTest::addColumn<QString>("commands");
        QTest::addColumn<int>("scheme");
        using S = ChartAppearance::Scheme;
        QTest::newRow("standard") << "" << int(S::Standard);
        QTest::newRow("scope") << "mnuScopeChart" << int(S::Scope);
        QTest::newRow("plain") << "mnuPlainChart" << int(S::Plain);
        QTest::newRow("plain, standard") << "mnuPlainChart mnuStandardChart" << int(S::Standard);
    }
    // The scheme chosen from the menu colours the plot, and the limit lines stand out on each:
    // a contrast ratio of their relative luminances of 3 at least.
    void schemeReachesThePlot()
    {
        QFETCH(QString, commands);
        QFETCH(int, scheme);
        WindowRig c;
        c.plotReadings({ { 1, 50 }, { 2, 60 } }, 100);
        for (const QString& command : commands.split(' ', Qt::SkipEmptyParts))
            c.trigger(command.toLatin1().constData());
        const auto& v = ChartAppearance::storedValues(ChartAppearance::Scheme(scheme));
        auto colour = [&](int i) { return QColor::fromRgb(QRgb(Colors::fromBgr(v[i]))); };
        QCOMPARE(c.plot->toPixmap(200, 150).toImage().pixelColor(1, 1), colour(0));
        QCOMPARE(c.plot->axisRect()->backgroundBrush().color(), colour(1));
        auto luminance = [](const QColor& c) {
            return 0.2126 * std::pow(c.redF(), 2.2) + 0.7152 * std::pow(c.greenF(), 2.2)
                + 0.0722 * std::pow(c.blueF(), 2.2) + 0.05;
        };
        const double back = luminance(colour(1));
        for (int limit : { 2, 3 }) {
            const double line = luminance(c.surface.graph(limit)->pen().color());
            QVERIFY(std::max(line, back) / std::min(line, back) >= 3);
        }
    }
    void exportWritesAWholeFile_data()
    {
        QTest::addColumn<QString>("name"); // empty: the chooser cancelled
        QTest::addColumn<QByteArray>("start");
        QTest::addColumn<QByteArray>("end");
        QTest::newRow("png") << "chart.png" << QByteArray("\x89PNG\r\n\x1a\n")
                             << QByteArray("IEND\xae\x42\x60\x82");
        QTest::newRow("pdf") << "chart.pdf" << QByteArray("%PDF-") << QByteArray("%%EOF");
        QTest::newRow("svg") << "chart.svg" << QByteArray("<?xml") << QByteArray("</svg>");
        QTest::newRow("cancelled") << "" << QByteArray() << QByteArray();
    }
    // EXPORT CHART writes the one file whole, or nothing when cancelled.
    void exportWritesAWholeFile()
    {
        QFETCH(QString, name);
        QFETCH(QByteArray, start);
        QFETCH(QByteArray, end);
        WindowRig c;
        c.plotReadings({ { 1, 23 }, { 10, 50 }, { 20, 80 } }, 100);
        c.prompter.files.push_back(name.isEmpty() ? QString() : c.dir.filePath(name));
        c.trigger("mnuExportChart");
        QCOMPARE(c.prompter.messages().size(), size_t(0));
        QCOMPARE(QDir(c.dir.path()).entryList(QDir::Files | QDir::Hidden),
            name.isEmpty() ? QStringList() : QStringList { name });
        const QByteArray bytes = testfiles::readAll(c.dir.filePath(name)).trimmed();
        QVERIFY(name.isEmpty() || (bytes.startsWith(start) && bytes.endsWith(end)));
    }
};
TALAVEX_TEST(TestChartWindow)
#include "TestChartWindow.moc"
