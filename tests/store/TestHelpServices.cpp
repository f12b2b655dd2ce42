#include "support/FakeLauncher.h"
#include "support/FakePrompter.h"
#include "support/TestRegistry.h"

#include "base/AppState.h"
#include "store/HelpServices.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

namespace {
void touch(const QString& path,
    QFileDevice::Permissions permissions
    = QFileDevice::ReadOwner | QFileDevice::WriteOwner | QFileDevice::ExeOwner)
{
    QDir().mkpath(QFileInfo(path).absolutePath());
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("#!/bin/sh\n");
    file.close();
    QVERIFY(file.setPermissions(permissions));
}

struct HelpRig {
    QTemporaryDir dir;
    AppState state;
    FakeLauncher launcher;
    FakePrompter prompter;
    HelpServices help { state, launcher, prompter };
    HelpRig() { state.ProgramDirectory = dir.path(); }
    QString manual() const { return dir.filePath(QStringLiteral("Web Manual/Index.html")); }
};
} // namespace

class TestHelpServices : public QObject {
    Q_OBJECT
private slots:
    void errorTexts_data()
    {
        QTest::addColumn<int>("code");
        QTest::addColumn<QString>("text");
        QTest::newRow("0") << 0 << "Unknown error";
        QTest::newRow("1") << 1 << "Unknown error";
        QTest::newRow("2") << 2 << "File not found";
        QTest::newRow("3") << 3 << "Path not found";
        QTest::newRow("4") << 4 << "Unknown error";
        QTest::newRow("5") << 5 << "Access denied";
        QTest::newRow("8") << 8 << "Out of memory";
        QTest::newRow("11") << 11 << "Invalid EXE file or error in EXE image";
        QTest::newRow("26") << 26 << "A sharing violation occurred";
        QTest::newRow("27") << 27 << "Incomplete or invalid file association";
        QTest::newRow("28") << 28 << "DDE Time out";
        QTest::newRow("29") << 29 << "DDE transaction failed";
        QTest::newRow("30") << 30 << "DDE busy";
        QTest::newRow("31") << 31 << "No association for file extension";
        QTest::newRow("32") << 32 << "DLL not found";
        QTest::newRow("negative") << -1 << "Unknown error";
        QTest::newRow("33 opened") << 33 << "";
        QTest::newRow("42 opened") << 42 << "";
    }
    void errorTexts()
    {
        QFETCH(int, code);
        QFETCH(QString, text);
        QCOMPARE(HelpServices::ShellErrorText(code), text);
    }

    void openOnlineManual_data()
    {
        QTest::addColumn<QString>("layout"); // what the program directory holds
        QTest::addColumn<bool>("viewerOpens");
        QTest::addColumn<QString>("message"); // empty: the manual opened, nothing shown
        QTest::newRow("manual there") << "manual" << true << "";
        QTest::newRow("no viewer") << "manual" << false << "No association for file extension";
        QTest::newRow("folder without index") << "folder" << true << "File not found";
        QTest::newRow("no folder") << "none" << true << "Path not found";
        QTest::newRow("unreadable") << "unreadable" << true << "Access denied";
    }
    void openOnlineManual()
    {
        QFETCH(QString, layout);
        QFETCH(bool, viewerOpens);
        QFETCH(QString, message);
        HelpRig rig;
        rig.launcher.openResult = viewerOpens;
        if (layout == QLatin1String("manual"))
            touch(rig.manual());
        else if (layout == QLatin1String("folder"))
            QVERIFY(QDir(rig.dir.path()).mkpath(QStringLiteral("Web Manual")));
        else if (layout == QLatin1String("unreadable"))
            touch(rig.manual(), QFileDevice::WriteOwner);
        if (layout == QLatin1String("unreadable") && QFileInfo(rig.manual()).isReadable())
            QSKIP("running with rights that read any file");

        rig.help.OpenOnlineManual();
        if (message.isEmpty()) {
            QCOMPARE(rig.launcher.documents, QStringList { rig.manual() });
            QVERIFY(rig.prompter.shown.empty());
            return;
        }
        QCOMPARE(rig.prompter.titles(), QStringList { "TALAVEX" });
        QCOMPARE(rig.prompter.messages().front().text, message);
        QCOMPARE(rig.prompter.messages().front().buttons, Prompter::Buttons::Ok);
    }

    void installedManualServesAnEmptyProgramDirectory()
    {
        HelpRig rig;
        QTemporaryDir install;
        const QString installed = install.filePath(QStringLiteral("Web Manual/Index.html"));
        touch(installed);
        rig.help.setInstalledManual(installed);
        rig.help.OpenOnlineManual();
        QCOMPARE(rig.launcher.documents, QStringList { installed });
        // A manual in the program directory comes first.
        touch(rig.manual());
        rig.help.OpenOnlineManual();
        QCOMPARE(rig.launcher.documents.last(), rig.manual());
        QVERIFY(rig.prompter.shown.empty());
    }

    void systemInformation_data()
    {
        QTest::addColumn<QStringList>("installed");
        QTest::addColumn<QString>("started"); // empty: none, the box says so
        QTest::newRow("none") << QStringList() << "";
        QTest::newRow("one") << QStringList { "gnome-system-monitor" } << "gnome-system-monitor";
        QTest::newRow("best first") << QStringList { "kinfocenter", "hardinfo" } << "hardinfo";
        QTest::newRow("unknown program") << QStringList { "sysinfo-tool" } << "";
    }
    void systemInformation()
    {
        QFETCH(QStringList, installed);
        QFETCH(QString, started);
        HelpRig rig;
        QTemporaryDir bin;
        for (const QString& name : installed)
            touch(bin.filePath(name));
        rig.help.setSearchPath({ bin.path() });
        rig.help.StartSysInfo();
        if (started.isEmpty()) {
            QVERIFY(rig.launcher.starts.empty());
            QCOMPARE(rig.prompter.titles(), QStringList { "TALAVEX" });
            QCOMPARE(rig.prompter.messages().front().text,
                QStringLiteral("System Information Is Unavailable At This Time"));
            return;
        }
        QCOMPARE(rig.launcher.starts.size(), size_t(1));
        QCOMPARE(rig.launcher.starts.front().program, bin.filePath(started));
        QVERIFY(rig.launcher.starts.front().arguments.isEmpty());
        QVERIFY(rig.prompter.shown.empty());
    }
};

TALAVEX_TEST(TestHelpServices)
#include "TestHelpServices.moc"
