#pragma once

#include "chart/ChartExport.h"

#include <QObject>

class QCustomPlot;

// The chart's plot drawn into a PNG picture, a one-page PDF or an SVG drawing, at the size it
// has on screen. Each is drawn in memory and written whole (WholeFile), so a failed export
// leaves no half file and an existing file stays as it was.
class ChartImageExport : public QObject, public ChartImageWriter {
public:
    explicit ChartImageExport(QCustomPlot& plot, QObject* parent = nullptr);

    bool writeImage(const QString& path, Format format, QString* why) override;

private:
    QCustomPlot& plot_;
};
