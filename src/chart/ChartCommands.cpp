#include "ChartCommands.h"

#include "ChartPanel.h"
#include "GraphingFunctions.h"
#include "base/AppState.h"
#include "base/MainWindowModel.h"
#include "base/Prompter.h"

#include <QFile>
#include <QFileInfo>
#include <algorithm>

namespace {
using Axis = ChartSurface::Axis;
const QString Crlf = QStringLiteral("\r\n");
} // namespace

ChartCommands::ChartCommands(
    GraphingFunctions& engine, AppState& state, MainWindowModel& main, Prompter& prompter)
    : engine_(engine)
    , state_(state)
    , main_(main)
    , prompter_(prompter)
{
}

void ChartCommands::mnuShowAllPts_Click()
{
    if (!engine_.ChartHasPoints()) {
        prompter_.message(QStringLiteral("TALAVEX"), QStringLiteral("YOU HAVE NO DATA TO CHART"));
        return;
    }
    busy(true);
    engine_.HoldView();
    engine_.ShowAllPoints();
    main_.cmdResetChart.setVisible(true);
    busy(false);
}

void ChartCommands::mnuDispLimits_Click()
{
    const bool show = !main_.mnuDispLimits.checked();
    main_.mnuDispLimits.setChecked(show);
    if (state_.GraphSettingsOpen && engine_.panel())
        engine_.panel()->SetDisplayLimitsChecked(show);
    state_.SettingsValues.limitLinesShown.set(show);
    if (show)
        engine_.ShowLimitMarkers();
    else
        engine_.HideLimitMarkers();
}

void ChartCommands::cmdResetChart_Click()
{
    if (!engine_.ChartHasPoints()) {
        // As CLEAR CHART.
        ChartBatch batch(engine_.chart());
        engine_.InitializeChart();
        engine_.ResetChartSeries();
        return;
    }
    busy(true);
    ResetPlotView();
    main_.cmdResetChart.setVisible(false);
    busy(false);
}

void ChartCommands::ResetPlotView() { engine_.ReleaseView(); }

ChartCommands::Limits ChartCommands::currentLimits() const
{
    const ChartSurface& chart = engine_.chart();
    return { chart.axisMin(Axis::X), chart.axisMax(Axis::X), chart.axisMin(Axis::Y),
        chart.axisMax(Axis::Y) };
}

void ChartCommands::SaveAxisLimits() { snapshot_ = currentLimits(); }

bool ChartCommands::AxisLimitsChanged() const
{
    const Limits now = currentLimits();
    for (std::size_t i = 0; i < now.size(); ++i) {
        if (now[i] != snapshot_[i])
            return true;
    }
    return false;
}

void ChartCommands::TempChart_InteractionStart()
{
    heldBefore_ = engine_.ViewHeld();
    engine_.HoldView();
    SaveAxisLimits();
}

void ChartCommands::TempChart_InteractionMove() { engine_.UpdateLimitLines(); }

void ChartCommands::TempChart_InteractionEnd()
{
    if (!AxisLimitsChanged()) {
        if (!heldBefore_)
            engine_.ReleaseView();
        return;
    }
    main_.cmdResetChart.setVisible(true);
    engine_.CommonAxisUpdate();
}

PlotData ChartCommands::TakePlot() const
{
    const ChartSurface& chart = engine_.chart();
    PlotData plot;
    const int n = chart.pointCount(GraphingFunctions::ReadingSeries);
    if (engine_.ChartHasPoints() && n > 1) {
        plot.x.reserve(std::size_t(n - 1));
        plot.y.reserve(std::size_t(n - 1));
        for (int i = 1; i < n; ++i) {
            plot.x.push_back(chart.x(GraphingFunctions::ReadingSeries, i));
            plot.y.push_back(chart.y(GraphingFunctions::ReadingSeries, i));
        }
    }
    const Limits limits = currentLimits();
    plot.xMin = limits[0];
    plot.xMax = limits[1];
    plot.yMin = limits[2];
    plot.yMax = limits[3];
    plot.timeUnit = state_.TimeUnitIndex;
    plot.xTitle = chart.axisTitle(Axis::X);
    plot.yTitle = chart.axisTitle(Axis::Y);
    plot.unitsCaption = state_.Instrument.units;
    plot.intervalCaption = state_.Instrument.interval.text();
    return plot;
}

void ChartCommands::RestorePlot(const PlotData& plot)
{
    ChartSurface& chart = engine_.chart();
    ChartBatch batch(chart);
    engine_.ResetChartSeries();
    const std::size_t count = std::min(plot.x.size(), plot.y.size());
    constexpr int series = GraphingFunctions::ReadingSeries;
    for (std::size_t i = 0; i < count; ++i) {
        const int k = int(i) + 1;
        chart.setX(series, k, plot.x[i]);
        chart.setY(series, k, plot.y[i]);
        chart.setPointCount(series, k + 1);
    }
    engine_.SeriesReplaced();
    chart.setAxisMin(Axis::X, plot.xMin);
    chart.setAxisMax(Axis::X, plot.xMax);
    chart.setAxisMin(Axis::Y, plot.yMin);
    chart.setAxisMax(Axis::Y, plot.yMax);
    chart.setAxisTitle(Axis::X, plot.xTitle);
    chart.setAxisTitle(Axis::Y, plot.yTitle);
    state_.TimeUnitIndex = plot.timeUnit;
    state_.SettingsValues.timeUnit.text = QString::number(plot.timeUnit);
    state_.Instrument.units = plot.unitsCaption;
    state_.Instrument.interval = SamplingInterval(plot.intervalCaption);
    state_.Instrument.show(main_);
    engine_.CommonAxisUpdate();
}

bool ChartCommands::SavePlot(const QString& path)
{
    busy(true);
    const WholeFile::Result saved = PlotFile::Write(path, TakePlot());
    busy(false);
    if (!saved) {
        prompter_.message(QStringLiteral("PLOT NOT SAVED"),
            QStringLiteral("THE PLOT COULD NOT BE WRITTEN TO") + Crlf + path + Crlf + saved.reason,
            Prompter::Buttons::Ok, Prompter::Icon::Exclamation);
        return false;
    }
    state_.PlotSaved = true;
    return true;
}

bool ChartCommands::LoadPlot(const QString& path)
{
    busy(true);
    PlotData plot;
    QString why;
    const bool read = PlotFile::Read(path, &plot, &why);
    if (read) {
        RestorePlot(plot);
        state_.PlotSaved = true;
    }
    busy(false);
    if (!read) {
        prompter_.message(QStringLiteral("UNABLE TO LOAD PLOT FILE"),
            path + Crlf + why + Crlf + QStringLiteral("THE CHART HAS NOT BEEN CHANGED."),
            Prompter::Buttons::Ok, Prompter::Icon::Exclamation);
    }
    return read;
}

void ChartCommands::saveWithDialog()
{
    Prompter::FileChoice choice;
    choice.title = QStringLiteral("SAVE PLOT DATA TO FILE");
    choice.filter = QStringLiteral("*.rec");
    choice.defaultExtension = QStringLiteral("rec");
    choice.directory = state_.ProgramDirectory;
    QString path = prompter_.saveFileName(choice);
    if (path.isEmpty())
        return;
    if (QFileInfo(path).suffix().isEmpty())
        path += QStringLiteral(".rec");
    if (QFile::exists(path)) {
        const auto answer = prompter_.message(QStringLiteral("DUPLICATE FILE FOUND"),
            QStringLiteral("THIS ALREADY EXISTS, DO YOU WISH TO OVERWRITE THE DATA?"),
            Prompter::Buttons::YesNo, Prompter::Icon::Question, Prompter::Answer::No);
        if (answer != Prompter::Answer::Yes)
            return;
    }
    SavePlot(path);
}

void ChartCommands::mnuSavePlotToFile_Click()
{
    if (!engine_.ChartHasPoints()) {
        prompter_.message(QStringLiteral("TALAVEX"), QStringLiteral("YOU HAVE NO DATA TO CHART"));
        return;
    }
    saveWithDialog();
}

void ChartCommands::OfferToSavePlot()
{
    if (!engine_.ChartHasPoints() || state_.PlotSaved)
        return;
    const auto answer = prompter_.message(QStringLiteral("SAVE PLOTTED DATA TO FILE?"),
        QStringLiteral("DO YOU WISH TO SAVE THIS PLOT DATA TO A FILE?"), Prompter::Buttons::YesNo,
        Prompter::Icon::Question, Prompter::Answer::Yes);
    if (answer == Prompter::Answer::Yes)
        saveWithDialog();
}

void ChartCommands::mnuLoadPlotFile_Click()
{
    Prompter::FileChoice choice;
    choice.title = QStringLiteral("LOAD PLOT FILE");
    choice.filter = QStringLiteral("*.rec");
    choice.defaultExtension = QStringLiteral("rec");
    choice.directory = state_.ProgramDirectory;
    const QString path = prompter_.openFileName(choice);
    if (!path.isEmpty())
        LoadPlot(path);
}
