#include "support/TestRegistry.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QSet>
#include <QTest>

// The manual shipped with the program: every page reachable from the contents, every link and
// picture present, and the logo the program's own.
class TestManual : public QObject {
    Q_OBJECT
    QString source() const { return qEnvironmentVariable("TALAVEX_SOURCE_DIR"); }
    QDir manual() const { return QDir(source() + QStringLiteral("/docs/manual")); }
    static QString read(const QString& path)
    {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
    }

private slots:
    void initTestCase()
    {
        if (source().isEmpty())
            QSKIP("TALAVEX_SOURCE_DIR is not set");
        QVERIFY(manual().exists(QStringLiteral("Index.html")));
    }

    void linksAndPicturesExist()
    {
        const QRegularExpression reference(QStringLiteral("(?:href|src)=\"([^\"#]+)[^\"]*\""));
        const QStringList pages = manual().entryList({ QStringLiteral("*.html") }, QDir::Files);
        QVERIFY(pages.size() >= 6);
        QSet<QString> linked;
        int pictures = 0;
        for (const QString& page : pages) {
            const QString html = read(manual().filePath(page));
            QVERIFY2(html.contains(QStringLiteral("<title>TALAVEX manual")), qPrintable(page));
            auto it = reference.globalMatch(html);
            while (it.hasNext()) {
                const QString target = it.next().captured(1);
                if (target.contains(QStringLiteral("://"))
                    || target.startsWith(QLatin1String("mailto:")))
                    continue;
                const QString path = QDir::cleanPath(manual().filePath(target));
                QVERIFY2(
                    QFileInfo::exists(path), qPrintable(page + QStringLiteral(" -> ") + target));
                if (target.endsWith(QLatin1String(".html")))
                    linked << QFileInfo(path).fileName();
                if (target.endsWith(QLatin1String(".png")))
                    ++pictures;
            }
        }
        // No page is an orphan, and the manual shows the program.
        for (const QString& page : pages)
            QVERIFY2(linked.contains(page), qPrintable(page + QStringLiteral(" is not linked")));
        QVERIFY(pictures >= 4);
    }

    void logoIsTheProgramsOwn()
    {
        QFile manualLogo(manual().filePath(QStringLiteral("logo.svg")));
        QFile programLogo(source() + QStringLiteral("/resources/talavex.svg"));
        QVERIFY(manualLogo.open(QIODevice::ReadOnly) && programLogo.open(QIODevice::ReadOnly));
        QCOMPARE(manualLogo.readAll(), programLogo.readAll());
    }
};

TALAVEX_TEST(TestManual)
#include "TestManual.moc"
