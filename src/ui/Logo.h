#pragma once

#include <QIcon>
#include <QPixmap>

// The program's logo, drawn from its scalable picture at any size.
namespace Logo {
QPixmap pixmap(int size, qreal devicePixelRatio = 1.0);
QIcon icon();
}
