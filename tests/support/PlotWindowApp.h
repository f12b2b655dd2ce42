#pragma once

#include "FakeBeeper.h"
#include "FakeClock.h"
#include "FakeLauncher.h"
#include "FakePrompter.h"
#include "FakeSerialPort.h"
#include "FakeSystemInfo.h"

#include "app/Application.h"
#include "link/PortMap.h"
#include "ui/ChartPlot.h"
#include "ui/MainWindow.h"
#include "ui/QCustomPlotSurface.h"

#include <QCoreApplication>
#include <QMouseEvent>
#include <QTemporaryDir>
#include <qcustomplot.h>

// The application on the real chart widget inside the real main window, loaded and shown, with
// work files in a temporary program directory.
struct PlotWindowApp {
    using Axis = ChartSurface::Axis;

    QTemporaryDir dir;
    FakePrompter prompter;
    FakeClock clock;
    FakeBeeper beeper;
    FakeLauncher launcher;
    FakeSystemInfo systemInfo;
    FakeSerialPort port;
    PortMap portMap;
    QCustomPlot* plot = new ChartPlot;
    QCustomPlotSurface surface { *plot };
    Application app { Platform {
        prompter, clock, beeper, launcher, systemInfo, port, surface, portMap } };
    MainWindow window { app, plot };

    PlotWindowApp()
    {
        app.state.ProgramDirectory = dir.path();
        app.controller.Form_Load();
        window.resize(1000, 700);
        window.show();
    }

    // A point of the plot area, as fractions of its width and height from its top left.
    QPointF at(QPointF fraction) const
    {
        const QRect area = plot->axisRect()->rect();
        return QPointF(
            area.left() + fraction.x() * area.width(), area.top() + fraction.y() * area.height());
    }
    // The pixel of data X, halfway up the plot area.
    QPointF atX(double x) const
    {
        return QPointF(plot->xAxis->coordToPixel(x), plot->axisRect()->center().y());
    }
    void mouse(QEvent::Type type, QPointF pos, Qt::MouseButton button, Qt::MouseButtons buttons,
        Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QMouseEvent event(type, pos, plot->mapToGlobal(pos), button, buttons, modifiers);
        QCoreApplication::sendEvent(plot, &event);
    }
    // The mouse over the plot at pos, no button held.
    void hover(QPointF pos)
    {
        mouse(QEvent::MouseMove, pos, Qt::NoButton, Qt::NoButton);
        QCoreApplication::processEvents();
    }
    // A left-button press and release at pos, without moving.
    void click(QPointF pos)
    {
        mouse(QEvent::MouseButtonPress, pos, Qt::LeftButton, Qt::LeftButton);
        mouse(QEvent::MouseButtonRelease, pos, Qt::LeftButton, Qt::NoButton);
        QCoreApplication::processEvents();
    }
    // A left-button gesture from one point of the plot area to another, as fractions of it.
    void drag(QPointF from, QPointF to, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        const QPointF a = at(from);
        const QPointF b = at(to);
        mouse(QEvent::MouseButtonPress, a, Qt::LeftButton, Qt::LeftButton, modifiers);
        mouse(QEvent::MouseMove, (a + b) / 2, Qt::LeftButton, Qt::LeftButton, modifiers);
        mouse(QEvent::MouseMove, b, Qt::LeftButton, Qt::LeftButton, modifiers);
        mouse(QEvent::MouseButtonRelease, b, Qt::LeftButton, Qt::NoButton, modifiers);
        QCoreApplication::processEvents();
    }
};
