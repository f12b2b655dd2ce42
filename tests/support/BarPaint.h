#pragma once

#include "ui/TempBarWidget.h"

#include <QColor>
#include <QImage>
#include <cstdlib>

// Reading what the temperature bar painted.
namespace barpaint {

// The colour painted at a point given in the bar's twips.
inline QColor paintedAt(TempBarWidget& widget, double x, double y)
{
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

} // namespace barpaint
