#include "ChartExport.h"

#include "base/AppState.h"
#include "base/Prompter.h"

#include <QFileInfo>

namespace {
const QString Crlf = QStringLiteral("\r\n");
}

ChartExport::ChartExport(AppState& state, Prompter& prompter)
    : state_(state)
    , prompter_(prompter)
{
}

std::optional<ChartImageWriter::Format> ChartExport::formatOf(const QString& path)
{
    const QString suffix = QFileInfo(path).suffix().toLower();
    if (suffix == QLatin1String("png"))
        return ChartImageWriter::Format::Png;
    if (suffix == QLatin1String("pdf"))
        return ChartImageWriter::Format::Pdf;
    if (suffix == QLatin1String("svg"))
        return ChartImageWriter::Format::Svg;
    return std::nullopt;
}

void ChartExport::mnuExportChart_Click()
{
    Prompter::FileChoice choice;
    choice.title = dialogTitle();
    choice.filter = filters();
    choice.defaultExtension = QStringLiteral("png");
    choice.directory = state_.ProgramDirectory;
    choice.fileName = QStringLiteral("Chart");
    QString path = prompter_.saveFileName(choice);
    if (path.isEmpty())
        return;
    if (QFileInfo(path).suffix().isEmpty())
        path += QStringLiteral(".png");
    if (!formatOf(path)) {
        prompter_.message(dialogTitle(),
            QStringLiteral("THE CHART CAN ONLY BE EXPORTED AS A .PNG, .PDF OR .SVG FILE.") + Crlf
                + path,
            Prompter::Buttons::Ok, Prompter::Icon::Exclamation);
        return;
    }
    if (QFileInfo::exists(path)) {
        const auto answer = prompter_.message(QStringLiteral("DUPLICATE FILE FOUND"),
            QStringLiteral("THIS FILE ALREADY EXISTS, DO YOU WISH TO REPLACE IT?") + Crlf + path,
            Prompter::Buttons::YesNo, Prompter::Icon::Question, Prompter::Answer::No);
        if (answer != Prompter::Answer::Yes)
            return;
    }
    ExportChart(path);
}

bool ChartExport::ExportChart(const QString& path)
{
    const auto format = formatOf(path);
    QString why = QStringLiteral("The chart cannot be drawn here.");
    if (format && writer_ && writer_->writeImage(path, *format, &why))
        return true;
    if (!format)
        why = QStringLiteral("Only .png, .pdf and .svg files are written.");
    prompter_.message(QStringLiteral("UNABLE TO EXPORT CHART"),
        QStringLiteral("THE CHART COULD NOT BE WRITTEN TO") + Crlf + path + Crlf + why,
        Prompter::Buttons::Ok, Prompter::Icon::Exclamation);
    return false;
}
