#pragma once

#include <QString>
#include <optional>

struct AppState;
class Prompter;

// Draws the chart as it stands into an image file.
class ChartImageWriter {
public:
    enum class Format { Png, Pdf, Svg };
    virtual ~ChartImageWriter() = default;
    // Writes the whole file or leaves none (an existing file stays as it was); false with the
    // reason when it cannot.
    virtual bool writeImage(const QString& path, Format format, QString* why) = 0;
};

// EXPORT CHART... in the CHART menu, beside the clipboard copy: the chart saved as a PNG
// picture, a PDF page or an SVG drawing. The format follows the file name's extension (the save
// dialog's filter puts it there); a name without one becomes a PNG picture.
class ChartExport {
public:
    ChartExport(AppState& state, Prompter& prompter);

    void setWriter(ChartImageWriter* writer) { writer_ = writer; }

    void mnuExportChart_Click();
    // Writes the chart to path in the format its extension names; tells the operator when it
    // cannot.
    bool ExportChart(const QString& path);

    static QString dialogTitle() { return QStringLiteral("EXPORT CHART"); }
    static QString filters()
    {
        return QStringLiteral("PNG image (*.png);;PDF document (*.pdf);;SVG drawing (*.svg)");
    }
    // The format an extension names, case aside; none for any other.
    static std::optional<ChartImageWriter::Format> formatOf(const QString& path);

private:
    AppState& state_;
    Prompter& prompter_;
    ChartImageWriter* writer_ = nullptr;
};
