#pragma once

#include <qcustomplot.h>

// The strip chart's plot widget: a QCustomPlot that paints every pixel of its one paint buffer,
// the chart's background included, so a repaint is a plain copy of that buffer to the screen
// instead of a background fill and a blend. At dozens of readings a second that copy is most of
// what a redraw costs.
//
// The background is drawn by a layer of its own ("fill") under all the others, with the plot's
// background brush. A brush that is not a plain opaque colour falls back to the usual painting.
//
// All of this works on QCustomPlot's internals, and so does redrawArea(); ChartPlot.cpp alone
// holds that code, and the build takes it only with the QCustomPlot version it was written for.
// With any other the plot paints and replots as a plain QCustomPlot (drawsInPart() is false).
class ChartPlot : public QCustomPlot {
    Q_OBJECT
public:
    explicit ChartPlot(QWidget* parent = nullptr);

    // True when this build can draw the picture in part.
    static bool drawsInPart();
    // True while repaints copy the buffer as it is.
    bool paintsOpaque() const;

    // Draws the part of the picture inside `area` again from the plot as it stands, every layer
    // in order with each element clipped to the area, and shows that part. When nothing but the
    // content of that area has changed since the last replot, it gives the pixels a replot would
    // for a fraction of the cost: no layout, no clearing of the whole buffer, a small copy to the
    // screen. False, with nothing done, when the buffer cannot be drawn in part: it is painted
    // the usual way, out of date, or a replot is already on its way.
    bool redrawArea(const QRect& area);

signals:
    // A part of the picture was drawn again by redrawArea().
    void areaRedrawn(const QRect& area);

protected:
    void paintEvent(QPaintEvent* event) override;
    void updateLayout() override;

private:
    friend class ViewportFill;
};
