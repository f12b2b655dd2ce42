#pragma once

#include <qcustomplot.h>

// The strip chart's plot widget: a QCustomPlot that paints every pixel of its one paint buffer,
// the chart's background included, so a repaint is a plain copy of that buffer to the screen
// instead of a background fill and a blend. At dozens of readings a second that copy is most of
// what a redraw costs.
//
// The background is drawn by a layer of its own ("fill") under all the others, with the plot's
// background brush. A brush that is not a plain opaque colour falls back to the usual painting.
class ChartPlot : public QCustomPlot {
    Q_OBJECT
public:
    explicit ChartPlot(QWidget* parent = nullptr);

    // True while repaints copy the buffer as it is.
    bool paintsOpaque() const;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    friend class ViewportFill;
    const QBrush& backgroundBrush() const { return mBackgroundBrush; }
};
