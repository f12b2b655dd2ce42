#pragma once

#include "tempbar/TempBar.h"
#include "ui/TempBarWidget.h"

#include <QColor>
#include <QCoreApplication>
#include <QImage>
#include <cstdlib>

// Reading what the temperature bar painted.
namespace barpaint {

// The middle of the bar's column, in twips.
constexpr double Column = TempBar::IndicatorLeft + TempBar::IndicatorWidth / 2.0;

// The colour painted at a point given in the bar's twips, once pending changes are shown.
inline QColor paintedAt(TempBarWidget& widget, double x, double y)
{
    QCoreApplication::processEvents();
    const QImage image = widget.grab().toImage();
    const QPointF p = widget.toPixels(QPointF(x, y)) * image.devicePixelRatio();
    return image.pixelColor(p.toPoint());
}

// Close enough to tell green, red, yellow and cyan apart through antialiasing and gradients.
inline bool near(const QColor& a, const QColor& b)
{
    return std::abs(a.red() - b.red()) < 60 && std::abs(a.green() - b.green()) < 60
        && std::abs(a.blue() - b.blue()) < 60;
}

// Whether the column shows `colour` at height y.
inline bool shows(TempBarWidget& widget, double y, Qt::GlobalColor colour)
{
    return near(paintedAt(widget, Column, y), QColor(colour));
}

} // namespace barpaint
