#pragma once

#include "AppRig.h"

#include "ui/MainWindow.h"

#include <QAction>
#include <QCoreApplication>
#include <QTest>

// The real main window on the rig's application, shown with the settings loaded; the rig's
// window host is replaced by the window.
struct WindowRig {
    AppRig rig;
    MainWindow window { rig.app(), nullptr };

    WindowRig()
    {
        rig.app().controller.Form_Load();
        window.show();
        // Keys go to the active window: under a real X server showing alone does not make it so.
        window.activateWindow();
        if (!QTest::qWaitForWindowActive(&window))
            qWarning("the main window did not become active");
    }
    Application& app() { return rig.app(); }
    // A menu command of the main window, or of another window given as root.
    QAction* action(const char* name, QWidget* root = nullptr)
    {
        return (root ? root : &window)->findChild<QAction*>(QString::fromLatin1(name));
    }
    void trigger(const char* name, QWidget* root = nullptr)
    {
        QAction* a = action(name, root);
        QVERIFY2(a, name);
        a->trigger();
        QCoreApplication::processEvents();
    }
};
