#pragma once

#include "base/WholeFile.h"

#include <QString>
#include <vector>

// A saved plot: the readings of the chart with its axes, titles, time unit and the instrument's
// units and interval captions. The file is text with CR LF line ends:
//
//   TALAVEX PLOT 1
//   TIMEUNIT <index>
//   XAXIS <min> <max>
//   YAXIS <min> <max>
//   POINTS <count>
//   <x> <y>                 count lines, numbers in their shortest exact form
//   END
//                           then the trailer: an empty line, the X title, an empty line,
//   <X title>               the Y title, the units caption and the interval caption
//
//   <Y title>
//   <units caption>
//   <interval caption>
struct PlotData {
    std::vector<double> x;
    std::vector<double> y;
    double xMin = 0.0;
    double xMax = 0.0;
    double yMin = 0.0;
    double yMax = 0.0;
    qint16 timeUnit = 0;
    QString xTitle;
    QString yTitle;
    QString unitsCaption;
    QString intervalCaption;

    bool operator==(const PlotData& other) const;
};

namespace PlotFile {
// A week of readings at one a second is 604,800 lines of some 28 bytes each (an X of up to 18
// characters in minutes or hours, a reading of up to 6): 17 MB. A file four times that is no
// plot the program wrote, and reading it whole would hold the window for seconds.
constexpr qint64 MaxFileBytes = 64 * 1024 * 1024;

// Writes the whole file or nothing.
WholeFile::Result Write(const QString& path, const PlotData& plot);
// Reads a plot; false with *error saying what is wrong when the file cannot be read, is larger
// than MaxFileBytes (nothing of it is read then) or is not a whole plot file. *plot is only
// changed on success.
bool Read(const QString& path, PlotData* plot, QString* error = nullptr);
// The same rules on text already read.
bool Parse(const QByteArray& text, PlotData* plot, QString* error = nullptr);
QByteArray Render(const PlotData& plot);
} // namespace PlotFile
