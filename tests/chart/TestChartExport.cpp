#include "support/AppRig.h"
#include "support/FakePrompter.h"
#include "support/TestRegistry.h"

#include "base/AppState.h"
#include "chart/ChartExport.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

namespace {
using Format = ChartImageWriter::Format;

class FakeImageWriter : public ChartImageWriter {
public:
    bool writeImage(const QString& path, Format format, QString* why) override
    {
        writes.push_back({ path, int(format) });
        if (!failWith.isEmpty())
            *why = failWith;
        return failWith.isEmpty();
    }
    std::vector<std::pair<QString, int>> writes;
    QString failWith;
};

struct ExportRig {
    QTemporaryDir dir;
    AppState state;
    FakePrompter prompter;
    FakeImageWriter writer;
    ChartExport chartExport { state, prompter };
    ExportRig()
    {
        state.ProgramDirectory = dir.path();
        chartExport.setWriter(&writer);
    }
    QString path(const QString& name) const { return QDir(dir.path()).filePath(name); }
};
} // namespace

class TestChartExport : public QObject {
    Q_OBJECT
private slots:
    void dialogOffersTheThreeFormats()
    {
        ExportRig r;
        r.chartExport.mnuExportChart_Click();
        QCOMPARE(int(r.prompter.shown.size()), 1);
        const Prompter::FileChoice& choice = r.prompter.shown[0].choice;
        QCOMPARE(r.prompter.shown[0].kind, QStringLiteral("save"));
        QCOMPARE(choice.title, QStringLiteral("EXPORT CHART"));
        QCOMPARE(choice.filter,
            QStringLiteral("PNG image (*.png);;PDF document (*.pdf);;SVG drawing (*.svg)"));
        QCOMPARE(choice.defaultExtension, QStringLiteral("png"));
        QCOMPARE(choice.directory, r.dir.path());
        // Cancelled: nothing written, nothing said.
        QVERIFY(r.writer.writes.empty());
        QVERIFY(r.prompter.messages().empty());
    }

    void formatFollowsTheName_data()
    {
        QTest::addColumn<QString>("chosen");
        QTest::addColumn<QString>("written"); // empty: nothing written
        QTest::addColumn<int>("format");
        QTest::newRow("png") << "a.png"
                             << "a.png" << int(Format::Png);
        QTest::newRow("pdf") << "a.pdf"
                             << "a.pdf" << int(Format::Pdf);
        QTest::newRow("svg") << "a.svg"
                             << "a.svg" << int(Format::Svg);
        QTest::newRow("capitals") << "RUN 7.SVG"
                                  << "RUN 7.SVG" << int(Format::Svg);
        QTest::newRow("no extension: a picture") << "chart"
                                                 << "chart.png" << int(Format::Png);
        QTest::newRow("dot in the folder only") << "my.dir/chart"
                                                << "my.dir/chart.png" << int(Format::Png);
        QTest::newRow("another format") << "a.jpg"
                                        << "" << -1;
    }
    void formatFollowsTheName()
    {
        QFETCH(QString, chosen);
        QFETCH(QString, written);
        QFETCH(int, format);
        ExportRig r;
        QDir(r.dir.path()).mkdir(QStringLiteral("my.dir"));
        r.prompter.files.push_back(r.path(chosen));
        r.chartExport.mnuExportChart_Click();
        if (written.isEmpty()) {
            QVERIFY(r.writer.writes.empty());
            QCOMPARE(r.prompter.titles(), QStringList { "EXPORT CHART" });
            QVERIFY(r.prompter.messages()[0].text.startsWith(
                QStringLiteral("THE CHART CAN ONLY BE EXPORTED AS A .PNG, .PDF OR .SVG FILE.")));
            return;
        }
        QCOMPARE(int(r.writer.writes.size()), 1);
        QCOMPARE(r.writer.writes[0].first, r.path(written));
        QCOMPARE(r.writer.writes[0].second, format);
        QVERIFY(r.prompter.messages().empty());
    }

    void existingFileIsReplacedOnlyWhenAsked_data()
    {
        QTest::addColumn<int>("answer");
        QTest::addColumn<int>("writes");
        QTest::newRow("yes") << int(Prompter::Answer::Yes) << 1;
        QTest::newRow("no") << int(Prompter::Answer::No) << 0;
    }
    void existingFileIsReplacedOnlyWhenAsked()
    {
        QFETCH(int, answer);
        QFETCH(int, writes);
        ExportRig r;
        QFile old(r.path(QStringLiteral("old.pdf")));
        QVERIFY(old.open(QIODevice::WriteOnly));
        old.close();
        r.prompter.files.push_back(old.fileName());
        r.prompter.answers.push_back(Prompter::Answer(answer));
        r.chartExport.mnuExportChart_Click();
        QCOMPARE(r.prompter.titles(), QStringList { "DUPLICATE FILE FOUND" });
        QCOMPARE(r.prompter.messages()[0].defaultButton, Prompter::Answer::No);
        QCOMPARE(int(r.writer.writes.size()), writes);
    }

    void failureIsTold_data()
    {
        QTest::addColumn<bool>("withWriter");
        QTest::addColumn<QString>("why");
        QTest::newRow("writer fails") << true << "Permission denied";
        QTest::newRow("no chart to draw") << false << "The chart cannot be drawn here.";
    }
    void failureIsTold()
    {
        QFETCH(bool, withWriter);
        QFETCH(QString, why);
        ExportRig r;
        r.writer.failWith = why;
        if (!withWriter)
            r.chartExport.setWriter(nullptr);
        const QString path = r.path(QStringLiteral("a.png"));
        QVERIFY(!r.chartExport.ExportChart(path));
        QCOMPARE(r.prompter.titles(), QStringList { "UNABLE TO EXPORT CHART" });
        const Prompter::Message m = r.prompter.messages()[0];
        QCOMPARE(m.text,
            QStringLiteral("THE CHART COULD NOT BE WRITTEN TO\r\n") + path + QStringLiteral("\r\n")
                + why);
        QCOMPARE(m.icon, Prompter::Icon::Exclamation);
    }

    void exportWiredInTheApplication()
    {
        AppRig rig;
        FakeImageWriter writer;
        rig.app().chartExport.setWriter(&writer);
        rig.prompter.files.push_back(rig.dir.filePath(QStringLiteral("x.svg")));
        rig.app().chartExport.mnuExportChart_Click();
        QCOMPARE(int(writer.writes.size()), 1);
        QCOMPARE(writer.writes[0].second, int(Format::Svg));
    }
};
TALAVEX_TEST(TestChartExport)
#include "TestChartExport.moc"
