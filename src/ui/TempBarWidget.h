#pragma once

#include <QPointer>
#include <QWidget>

#include "tempbar/TempBar.h"

// Paints the temperature bar model: the component's twip geometry scaled uniformly to the
// widget and centred, so the thermometer keeps its proportions at any size.
class TempBarWidget : public QWidget {
    Q_OBJECT
public:
    explicit TempBarWidget(QWidget* parent = nullptr);

    void setModel(TempBar* model);
    TempBar* model() const { return model_; }

    // The part of the component that is drawn, in twips.
    static QRectF twipArea();
    // Where a point given in twips lands in the widget, in pixels.
    QPointF toPixels(const QPointF& twips) const;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QTransform twipsToPixels() const;

    QPointer<TempBar> model_;
};
