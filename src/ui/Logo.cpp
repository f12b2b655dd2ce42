#include "Logo.h"

#include <QPainter>
#include <QSvgRenderer>

// The picture is compiled into the widgets library, whose resources are registered by hand.
static void registerLogo() { Q_INIT_RESOURCE(ui); }

namespace Logo {

QPixmap pixmap(int size, qreal devicePixelRatio)
{
    registerLogo();
    const int pixels = qRound(size * devicePixelRatio);
    QPixmap picture(pixels, pixels);
    picture.fill(Qt::transparent);
    QSvgRenderer renderer(QStringLiteral(":/talavex/talavex.svg"));
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    renderer.render(&painter);
    painter.end();
    picture.setDevicePixelRatio(devicePixelRatio);
    return picture;
}

QIcon icon()
{
    QIcon result;
    for (int size : { 16, 24, 32, 48, 64, 128, 256 })
        result.addPixmap(pixmap(size));
    return result;
}

} // namespace Logo
