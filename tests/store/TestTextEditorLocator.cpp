#include "store/TextEditorLocator.h"
#include "support/TestRegistry.h"
#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

// The editor search on a desktop of its own: configuration folder "config", data folders
// "local" then "share", PATH "bin", desktop "xfce".
class TestTextEditorLocator : public QObject {
    Q_OBJECT
private slots:
    void findEditor_data()
    {
        QTest::addColumn<QStringList>("files"); // "path": a program; "path=text": a plain file
        QTest::addColumn<QString>("remembered");
        QTest::addColumn<QString>("found"); // "" when none
        QTest::addColumn<QStringList>("arguments");
        auto entry = [](const char* id, const char* body, const char* data = "share") {
            return QStringLiteral("%1/applications/%2=[Desktop Entry]\nType=Application\n%3")
                .arg(data, id, body);
        };
        auto list = [](const char* path, const char* ids) {
            return QStringLiteral("%1=[Added Associations]\nimage/png=viewer.desktop\n"
                                  "[Default Applications]\ntext/html=web.desktop\ntext/plain=%2")
                .arg(path, ids);
        };
        const QString mine = list("config/mimeapps.list", "my.desktop;");
        auto row = [](const char* name, const QStringList& files, const char* remembered,
                       const char* found, const QStringList& arguments = {}) {
            QTest::newRow(name) << files << remembered << found << arguments;
        };
        row("the registered editor before a common one",
            { "bin/myedit", "bin/gedit", "bin/other", entry("other.desktop", "Exec=other"),
                entry("my.desktop", "Exec=myedit --tab %F"),
                "config/mimeapps.list=text/plain=other.desktop\n[Added Associations]\n"
                "text/plain=other.desktop\n[Default Applications]\ntext/plain=my.desktop" },
            "", "bin/myedit", { "--tab" });
        row("the desktop's own list",
            { "bin/myedit", entry("my.desktop", "Exec=myedit %f"),
                list("config/xfce-mimeapps.list", "my.desktop") },
            "", "bin/myedit");
        row("the applications list",
            { "bin/myedit", entry("my.desktop", "Exec=myedit %f"),
                list("local/applications/mimeapps.list", "my.desktop") },
            "", "bin/myedit");
        row("an added association",
            { "bin/myedit", entry("my.desktop", "Exec=myedit"),
                "config/mimeapps.list=[Added Associations]\ntext/plain=my.desktop" },
            "", "bin/myedit");
        row("the first usable of the cache",
            { "bin/second", entry("vim.desktop", "Exec=vim %F\nTerminal=true"),
                entry("second.desktop", "Exec=second %F"),
                "share/applications/mimeinfo.cache=[MIME Cache]\n"
                "text/plain=vim.desktop;second.desktop;" },
            "", "bin/second");
        row("env, field codes and forwarding markers left out",
            { "bin/myedit", entry("my.desktop", "Exec=env A=1 B=x myedit -n @@u %U @@"), mine }, "",
            "bin/myedit", { "-n" });
        row("a quoted program with blanks and an escaped quote",
            { "bin/my \"ed\"", entry("my.desktop", "Exec=\"$D/bin/my \\\"ed\\\"\" --new %f"),
                mine },
            "", "bin/my \"ed\"", { "--new" });
        for (const char* unusable : { "Exec=myedit %f\nTerminal=true", "Exec=myedit\nHidden=true",
                 "Exec=nothere %f", "Name=Editor", "Exec=", "Exec=env A=1" }) {
            row(unusable, { "bin/myedit", "bin/mousepad", entry("my.desktop", unusable), mine }, "",
                "bin/mousepad");
        }
        row("the first entry of a name hides the rest",
            { "bin/myedit", "bin/mousepad",
                entry("my.desktop", "Exec=myedit\nHidden=true", "local"),
                entry("my.desktop", "Exec=myedit"), mine },
            "", "bin/mousepad");
        row("the remembered program first", { "bin/chosen", "bin/gedit" }, "bin/chosen",
            "bin/chosen");
        row("a remembered file that is no program", { "bin/gedit", "notes.txt=text" }, "notes.txt",
            "bin/gedit");
        row("common editors in their order", { "bin/geany", "bin/kate" }, "", "bin/kate");
        row("none", { "bin/gedit=not executable" }, "/nonexistent/NOTEPAD.EXE", "");
    }
    void findEditor()
    {
        QFETCH(QStringList, files);
        QFETCH(QString, remembered);
        QFETCH(QString, found);
        QTemporaryDir dir;
        QDir().mkpath(dir.filePath("bin"));
        for (const QString& file : files) {
            const QString path = dir.filePath(file.section(QLatin1Char('='), 0, 0));
            QDir().mkpath(QFileInfo(path).path());
            QFile f(path);
            QVERIFY(f.open(QIODevice::WriteOnly));
            f.write(file.section(QLatin1Char('='), 1).replace("$D", dir.path()).toUtf8() + "\n");
            f.close();
            if (!file.contains(QLatin1Char('=')))
                f.setPermissions(f.permissions() | QFileDevice::ExeOwner);
        }
        EditorSearch search;
        search.configDirs = { dir.filePath("config") };
        search.dataDirs = { dir.filePath("local"), dir.filePath("share") };
        search.pathDirs = { dir.filePath("bin") };
        search.desktops = { "xfce" };
        TextEditorLocator locator(search);
        QString path = remembered.isEmpty() || remembered.startsWith(QLatin1Char('/'))
            ? remembered
            : dir.filePath(remembered);
        QCOMPARE(locator.FindNotepad(path), !found.isEmpty());
        QCOMPARE(path, found.isEmpty() ? QString() : dir.filePath(found));
        QTEST(locator.argumentsFor(path), "arguments");
        QVERIFY(locator.argumentsFor(QStringLiteral("/usr/bin/other")).isEmpty());
    }
};
TALAVEX_TEST(TestTextEditorLocator)
#include "TestTextEditorLocator.moc"
