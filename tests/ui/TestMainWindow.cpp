#include "support/TestRegistry.h"
#include "support/WindowRig.h"

#include "ui/StoredPointsWindow.h"
#include "ui/SystemStatusWindow.h"

#include <QAction>
#include <QApplication>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTest>
#include <QWindow>
#include <algorithm>

namespace {
// Chooses a menu command with the keyboard alone, as an operator does: Alt and the access key of
// its menu on the bar, Down to it (Right into a submenu on the way), Enter. The keys go to the
// main window's native window, which hands them to the open menu as it does on a desktop.
void chooseByKeyboard(QMainWindow& window, QAction* command)
{
    QList<QMenu*> path; // from the menu bar down to the command's menu
    for (QAction* a = command; !path.size() || path.front()->parent() != window.menuBar();) {
        const QObjectList owners = a->associatedObjects();
        auto menu = std::find_if(owners.begin(), owners.end(), [](QObject* o) {
            return qobject_cast<QMenu*>(o) && !static_cast<QMenu*>(o)->title().isEmpty();
        });
        QVERIFY(menu != owners.end());
        path.prepend(static_cast<QMenu*>(*menu));
        a = path.front()->menuAction();
    }
    QWindow* w = window.windowHandle();
    const QString title = path.front()->title();
    QTest::keyClick(w, Qt::Key(title.at(title.indexOf('&') + 1).unicode()), Qt::AltModifier);
    for (int i = 0; i < path.size(); ++i) {
        QAction* next = i + 1 < path.size() ? path[i + 1]->menuAction() : command;
        for (int n = 0; path[i]->activeAction() != next && n < 20; ++n)
            QTest::keyClick(w, Qt::Key_Down);
        QCOMPARE(path[i]->activeAction(), next);
        QTest::keyClick(w, i + 1 < path.size() ? Qt::Key_Right : Qt::Key_Return);
    }
    QCoreApplication::processEvents();
}
} // namespace

class TestMainWindow : public QObject {
    Q_OBJECT

private slots:
    void resetChartStartsHidden()
    {
        WindowRig f;
        QVERIFY(f.window.findChild<QPushButton*>("cmdResetChart")->isHidden());
    }

    void checkableCommandsByKeyboard_data()
    {
        QTest::addColumn<QString>("name");
        WindowRig f;
        for (QAction* a : f.window.findChildren<QAction*>())
            if (a->isCheckable())
                QTest::newRow(qPrintable(a->objectName())) << a->objectName();
    }
    // A command chosen by keyboard leaves the check mark a click leaves, and the menu shows it.
    void checkableCommandsByKeyboard()
    {
        QFETCH(QString, name);
        const QByteArray command = name.toLatin1();
        bool checked;
        {
            WindowRig f;
            QCoreApplication::processEvents();
            chooseByKeyboard(f.window, f.action(command));
            checked = f.action(command)->isChecked();
            QCOMPARE(checked, f.app().main.control(name)->checked());
        }
        WindowRig f;
        f.trigger(command);
        QCOMPARE(checked, f.action(command)->isChecked());
    }

    // AUTO SCALE Y AXIS and APPEARANCE SELECT share the access key A: the first press selects
    // the one, the second opens the other.
    void sharedAccessKeyReachesBoth()
    {
        WindowRig f;
        QWindow* w = f.window.windowHandle();
        QTest::keyClick(w, Qt::Key_C, Qt::AltModifier);
        QTest::keyClick(w, Qt::Key_A);
        QCOMPARE(f.window.findChild<QMenu*>("mnuCharting")->activeAction(),
            f.action("mnuAutoScaleYAxis"));
        QTest::keyClick(w, Qt::Key_A);
        QCOMPARE(
            QApplication::activePopupWidget(), f.window.findChild<QMenu*>("mnuChartAppSelect"));
        QVERIFY(f.action("mnuAutoScaleYAxis")->isChecked());
    }

    void sensingFromTheMenu()
    {
        WindowRig f;
        f.trigger("mnuSenseTemperature");
        QVERIFY(f.action("mnuSenseTemperature")->isChecked());
        QVERIFY(!f.window.findChild<QMenu*>("mnuFile")->menuAction()->isEnabled());
        QVERIFY(!f.action("mnuSystemSetup")->isEnabled());
        f.rig.feed(AppRig::parameterBlock("  DEG F", "1", "72") + "  90\x07");
        QCoreApplication::processEvents();
        auto* reading = f.window.findChild<QLabel*>("lblCurrentTemp");
        QTRY_COMPARE(reading->text(), QStringLiteral("90"));
        QCOMPARE(reading->palette().color(QPalette::WindowText), QColor(Qt::red));
        QCOMPARE(f.window.findChild<QLabel*>("lblSystParameters_2")->text(), QStringLiteral("1"));
        // The same command again stops: the check mark goes, the menus come back.
        f.trigger("mnuSenseTemperature");
        QVERIFY(!f.action("mnuSenseTemperature")->isChecked());
        QVERIFY(f.window.findChild<QMenu*>("mnuFile")->menuAction()->isEnabled());
        QVERIFY(reading->text().isEmpty());
    }

    void downloadWindow()
    {
        WindowRig f;
        f.trigger("mnuDownloadData");
        StoredPointsWindow* window = f.window.storedPointsWindow();
        QVERIFY(window && window->isVisible());
        window->findChild<QPushButton*>("cmdStartDownload")->click();
        QCoreApplication::processEvents();
        QCOMPARE(window->findChild<QPushButton*>("cmdStartDownload")->text(),
            QStringLiteral("STOP RECEIVING"));
        f.rig.feed("#001   75   DEG F\x07\x07");
        QCoreApplication::processEvents();
        const QString text
            = window->findChild<QPlainTextEdit*>("txtDataPointsDisplay")->toPlainText();
        QVERIFY(text.contains(QStringLiteral("\t#001\t75\tDEG F")));
        QVERIFY(text.contains(QStringLiteral("EMPTY LOCATION - NO DATA.")));
        // Closing the window ends the download mode.
        window->close();
        QCoreApplication::processEvents();
        QVERIFY(!f.action("mnuDownloadData")->isChecked());
        QVERIFY(!f.rig.port.isOpen());
        QVERIFY(f.action("mnuSenseTemperature")->isEnabled());
    }

    void systemStatusWindow()
    {
        WindowRig f;
        f.trigger("mnuViewSystemStatus");
        QVERIFY(f.window.systemStatusWindow()->isVisible());
        QVERIFY(f.rig.app().state.SystemStatusVisible);
        QVERIFY(f.action("mnuViewSystemStatus")->isChecked());
        // Sensing scans for the instrument; the first character closes the window.
        f.trigger("mnuSenseTemperature");
        QCOMPARE(f.rig.app().irSystem.GetCurrentState(), qint16(2));
        f.rig.feed(" ");
        QCoreApplication::processEvents();
        QVERIFY(!f.window.systemStatusWindow()->isVisible());
        QVERIFY(!f.rig.app().state.SystemStatusVisible);
        QVERIFY(!f.action("mnuViewSystemStatus")->isChecked());
    }
};
TALAVEX_TEST(TestMainWindow)
#include "TestMainWindow.moc"
