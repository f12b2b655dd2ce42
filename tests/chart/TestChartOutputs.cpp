#include "support/AppRig.h"
#include "support/SettingsLines.h"
#include "support/TestFiles.h"
#include "support/TestRegistry.h"

#include "Rows.h"

#include "chart/ChartAppearance.h"
#include "chart/ChartExport.h"
#include "chart/ChartSummary.h"

#include <QDir>
#include <QTest>

namespace {
using Scheme = ChartAppearance::Scheme;

// The checked scheme, "S", "O" or "P"; the chart must show it, in screen colours.
QString shownScheme(const ChartSurface& chart, const MainWindowModel& m)
{
    const QString checked = QString(m.mnuStandardChart.checked() ? "S" : "")
        + (m.mnuScopeChart.checked() ? "O" : "") + (m.mnuPlainChart.checked() ? "P" : "");
    const auto& stored = ChartAppearance::storedValues(checked == "O" ? Scheme::Scope
            : checked == "P"                                          ? Scheme::Plain
                                                                      : Scheme::Standard);
    for (int i = 0; i < ChartSurface::ColorCount; ++i) {
        if (chart.color(ChartSurface::Color(i)) != Colors::fromBgr(stored[size_t(i)]))
            return checked + QStringLiteral(" not shown");
    }
    return checked;
}

class FakeImageWriter : public ChartImageWriter {
public:
    bool writeImage(const QString& path, Format format, QString* why) override
    {
        writes << QDir(base).relativeFilePath(path) + QStringLiteral(" %1").arg(int(format));
        if (!failWith.isEmpty())
            *why = failWith;
        return failWith.isEmpty();
    }
    QString base;
    QStringList writes;
    QString failWith;
};
} // namespace

// What the chart looks like and what leaves it: the colour schemes, the exported picture and the
// summary of its readings.
class TestChartOutputs : public QObject {
    Q_OBJECT
private slots:
    // "S", "O", "P" the menu items, "=x" settings entry 18 applied | the scheme | redraws.
    void appearance_data()
    {
        rows::add({ "at the start |  | S 0", "standard while checked | S | S 0", "scope | O | O 1",
            "plain | P | P 1", "scope twice falls back | O O | S 2",
            "plain twice falls back | P P | S 2", "scope then plain | O P | P 2",
            "plain then scope | P O | O 2", "scope, standard twice | O S S | S 2",
            "entry 0 standard | P =0 | S 2", "entry 1 plain | P =1 | P 2",
            "entry 2 scope | P =2 | O 2", "entry 3 leaves it | P =3 | P 1",
            "an empty entry leaves it | P = | P 1", "a word leaves it | P =SCOPE | P 1" });
    }
    void appearance()
    {
        const QStringList f = rows::fields();
        InMemoryChartSurface chart;
        MainWindowModel main;
        ChartAppearance look(chart, main);
        const int before = chart.redrawCount();
        for (const QString& step : f[0].split(QLatin1Char(' '), Qt::SkipEmptyParts)) {
            step == "S"       ? look.mnuStandardChart_Click()
                : step == "O" ? look.mnuScopeChart_Click()
                : step == "P" ? look.mnuPlainChart_Click()
                              : look.ApplySettingsEntry(step.mid(1));
        }
        QCOMPARE(
            shownScheme(chart, main) + ' ' + QString::number(chart.redrawCount() - before), f[1]);
        QCOMPARE(chart.batchDepth(), 0);
    }

    // The settings file's entry 18 reaches the colours when the program starts.
    void appearanceFromTheSettingsFile()
    {
        AppRig rig;
        QStringList lines = settingslines::factory();
        lines[18] = QStringLiteral("2");
        settingslines::write(rig.dir.filePath("Settings.dat"), lines);
        rig.app().controller.Form_Load();
        QCOMPARE(shownScheme(rig.chart, rig.app().main), QStringLiteral("O"));
    }

    // The name chosen ("-": cancelled) | the answer to the replace question ("-": no file there) |
    // the writer's failure ("none": no writer) | what is written, with its format | the boxes.
    void exportChart_data()
    {
        rows::add({ "cancelled | - | - | - | - | -", "png | a.png | - | - | a.png 0 | -",
            "pdf | a.pdf | - | - | a.pdf 1 | -", "svg | a.svg | - | - | a.svg 2 | -",
            "capitals | RUN 7.SVG | - | - | RUN 7.SVG 2 | -",
            "no extension: a picture | chart | - | - | chart.png 0 | -",
            "dot in the folder only | my.dir/chart | - | - | my.dir/chart.png 0 | -",
            "another format | a.jpg | - | - | - | EXPORT CHART",
            "existing file replaced | old.pdf | Y | - | old.pdf 1 | DUPLICATE FILE FOUND",
            "existing file kept | old.pdf | N | - | - | DUPLICATE FILE FOUND",
            "writer fails | a.png | - | Permission denied | a.png 0 | UNABLE TO EXPORT CHART",
            "no chart to draw | a.svg | - | none | - | UNABLE TO EXPORT CHART" });
    }
    void exportChart()
    {
        QStringList f = rows::fields();
        for (QString& field : f) {
            if (field == QLatin1String("-"))
                field.clear();
        }
        AppRig rig;
        QDir(rig.dir.path()).mkdir(QStringLiteral("my.dir"));
        FakeImageWriter writer;
        writer.base = rig.dir.path();
        writer.failWith = f[2];
        rig.app().chartExport.setWriter(f[2] == QLatin1String("none") ? nullptr : &writer);
        const QString path = f[0].isEmpty() ? QString() : rig.dir.filePath(f[0]);
        rig.prompter.files.push_back(path);
        if (!f[1].isEmpty()) {
            testfiles::writeAll(path, "old");
            rig.prompter.answers.push_back(
                f[1] == "Y" ? Prompter::Answer::Yes : Prompter::Answer::No);
        }
        rig.app().chartExport.mnuExportChart_Click();
        QCOMPARE(writer.writes.join(QLatin1Char(';')), f[3]);
        QCOMPARE(rig.prompter.titles().join(QLatin1Char(';')), f[4]);
        if (!f[1].isEmpty())
            QCOMPARE(rig.prompter.messages()[0].defaultButton, Prompter::Answer::No);
        if (f[4] == QLatin1String("UNABLE TO EXPORT CHART")) {
            const QString why = f[2] == "none" ? "The chart cannot be drawn here." : f[2];
            QCOMPARE(rig.prompter.messages()[0].text,
                "THE CHART COULD NOT BE WRITTEN TO\r\n" + path + "\r\n" + why);
        }
    }

    // The readings as X Y pairs, "e" an empty value | the X axis title | the summary's lines.
    void summary_data()
    {
        rows::add({ "only the empty slot | e e | SECONDS | NO READINGS ON THE CHART.",
            "seconds | 2 70, 4 95, 6 61, e e | SECONDS | READINGS ON THE CHART: 3;FIRST READING "
            "AT: "
            "2 SECONDS;LAST READING AT: 6 SECONDS;LOWEST: 61 AT 6 SECONDS;HIGHEST: 95 AT 4 "
            "SECONDS;AVERAGE: 75.3",
            "fractions, no unit | 0.0167 10, 0.0333 11 |  | READINGS ON THE CHART: 2;FIRST READING "
            "AT: 0.017;LAST READING AT: 0.033;LOWEST: 10 AT 0.017;HIGHEST: 11 AT 0.033;AVERAGE: "
            "10.5",
            "one reading | 1 72, e e |  | READINGS ON THE CHART: 1;FIRST READING AT: 1;LAST "
            "READING "
            "AT: 1;LOWEST: 72 AT 1;HIGHEST: 72 AT 1;AVERAGE: 72.0",
            "ties keep the first | 1 5, 2 9, 3 5, 4 9 |  | READINGS ON THE CHART: 4;FIRST READING "
            "AT: "
            "1;LAST READING AT: 4;LOWEST: 5 AT 1;HIGHEST: 9 AT 2;AVERAGE: 7.0",
            "below zero | 0.5 -20, 1 -5, 1.5 -40 |  | READINGS ON THE CHART: 3;FIRST READING AT: "
            "0.5;LAST READING AT: 1.5;LOWEST: -40 AT 1.5;HIGHEST: -5 AT 1;AVERAGE: -21.7",
            "emptied points skipped | 1 10, e 500, 3 e, 4 30, e e |  | READINGS ON THE CHART: "
            "2;FIRST READING AT: 1;LAST READING AT: 4;LOWEST: 10 AT 1;HIGHEST: 30 AT 4;AVERAGE: "
            "20.0" });
    }
    void summary()
    {
        const QStringList f = rows::fields();
        const QList<double> xy = rows::numbers(
            QString(f[0]).replace('e', QString::number(GraphingFunctions::EmptyPoint, 'f', 0)));
        InMemoryChartSurface chart;
        chart.setPointCount(1, int(xy.size()) / 2);
        for (int k = 0; k < xy.size() / 2; ++k) {
            chart.setX(1, k + 1, xy[2 * k]);
            chart.setY(1, k + 1, xy[2 * k + 1]);
        }
        QCOMPARE(ChartSummary::of(chart, 1).text(f[1]).replace(QStringLiteral("\r\n"), ";"), f[2]);
    }
};
TALAVEX_TEST(TestChartOutputs)
#include "TestChartOutputs.moc"
