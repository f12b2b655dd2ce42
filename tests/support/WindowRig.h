#pragma once

#include "FakeDesktop.h"

#include "ui/ChartPlot.h"
#include "ui/MainWindow.h"
#include "ui/QCustomPlotSurface.h"

#include <QAction>
#include <QMenu>
#include <QMenuBar>
#include <QMouseEvent>
#include <QPaintEvent>
#include <QTest>
#include <QWindow>
#include <algorithm>

// The real main window on the application drawing on the real chart widget, loaded, shown and
// active, on the fakes of the desktop and the line.
struct WindowRig : FakeDesktop {
    QCustomPlot* plot = new ChartPlot;
    QCustomPlotSurface surface { *plot };
    Application app { platform(port, surface) };
    MainWindow window { app, plot };

    WindowRig()
    {
        app.state.ProgramDirectory = dir.path();
        app.controller.Form_Load();
        window.resize(1000, 700);
        window.show();
        // Keys go to the active window: under a real X server showing alone does not make it so.
        window.activateWindow();
        if (!QTest::qWaitForWindowActive(&window))
            qWarning("the main window did not become active");
    }
    template <typename T = QAction> T* find(const char* name, QWidget* root = nullptr)
    {
        return (root ? root : &window)->findChild<T*>(QString::fromLatin1(name));
    }
    // A menu command of the main window, or of another window given as root.
    void trigger(const char* name, QWidget* root = nullptr)
    {
        QAction* a = find(name, root);
        QVERIFY2(a, name);
        a->trigger();
        QCoreApplication::processEvents();
    }
    // Chooses a menu command with the keyboard alone, as an operator does: Alt and the access
    // key of its menu on the bar, Down to it (Right into a submenu on the way), Enter. The keys go
    // to the main window's native window, which hands them to the open menu as on a desktop.
    void chooseByKeyboard(QAction* command)
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
    void feed(const QByteArray& bytes)
    {
        port.receive(bytes);
        QCoreApplication::processEvents();
    }
    // The instrument's parameter block: degrees F, one reading a second, alarms at 200 and 50.
    static QByteArray parameters()
    {
        return "\x0b  DEG F\r\nINT (SECS)      1\r\nEMISSIVITY      0.95\r\nHI ALARM        200\r\n"
               "LO ALARM        50\r\nMAX TEMP        152\r\nAMB TEMP        72\r\n"
               "MIN TEMP        70\r\nAVG TEMP        101\r\nSTORED PTS      120\r\n"
               "  1234   DEG F\r\n\x07";
    }

    // Readings (x, y) on the chart, X from 0 to 60 and Y from 0 to yMax, drawn.
    void plotReadings(const QList<QPointF>& readings, double yMax)
    {
        using Axis = ChartSurface::Axis;
        surface.setPointCount(1, int(readings.size()) + 1);
        for (int i = 0; i < readings.size(); ++i) {
            surface.setX(1, i + 1, readings[i].x());
            surface.setY(1, i + 1, readings[i].y());
        }
        surface.setAxisMin(Axis::X, 0);
        surface.setAxisMax(Axis::X, 60);
        surface.setAxisMin(Axis::Y, 0);
        surface.setAxisMax(Axis::Y, yMax);
        plot->replot(QCustomPlot::rpImmediateRefresh);
    }
    // The pixel of a point of the plot area given as fractions of it from its top left.
    QPointF at(double fx, double fy) const
    {
        const QRect area = plot->axisRect()->rect();
        return QPointF(area.left() + fx * area.width(), area.top() + fy * area.height());
    }
    // The pixel of data X, halfway up the plot area.
    QPointF atX(double x) const
    {
        return QPointF(plot->xAxis->coordToPixel(x), plot->axisRect()->center().y());
    }
    void mouse(QEvent::Type type, QPointF pos, Qt::MouseButtons buttons,
        Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QMouseEvent event(type, pos, plot->mapToGlobal(pos),
            type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton, buttons, modifiers);
        QCoreApplication::sendEvent(plot, &event);
        QCoreApplication::processEvents();
    }
    // A left-button gesture from one point of the plot to another; a click when they are one.
    void drag(QPointF a, QPointF b, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        mouse(QEvent::MouseButtonPress, a, Qt::LeftButton, modifiers);
        if (a != b) {
            mouse(QEvent::MouseMove, (a + b) / 2, Qt::LeftButton, modifiers);
            mouse(QEvent::MouseMove, b, Qt::LeftButton, modifiers);
        }
        mouse(QEvent::MouseButtonRelease, b, Qt::NoButton, modifiers);
    }
    void hover(QPointF pos) { mouse(QEvent::MouseMove, pos, Qt::NoButton); }
    void click(QPointF pos) { drag(pos, pos); }
};

// The number of pixels of each paint a widget is asked for.
struct PaintLog : QObject {
    QList<qint64> areas;
    bool eventFilter(QObject*, QEvent* event) override
    {
        if (event->type() == QEvent::Paint) {
            areas << 0;
            for (const QRect& r : static_cast<QPaintEvent*>(event)->region())
                areas.last() += qint64(r.width()) * r.height();
        }
        return false;
    }
};
