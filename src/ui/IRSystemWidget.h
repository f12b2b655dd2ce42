#pragma once

#include "link/IRSystem.h"

#include <QHash>
#include <QPixmap>
#include <QPointer>
#include <QTransform>
#include <QWidget>

class QPainter;

// Paints the link status: the computer on the left, the hand-held instrument on the right, the
// row of line segments between them and the caption underneath. Everything scales with the
// widget; it repaints whenever the model changes.
class IRSystemWidget : public QWidget {
    Q_OBJECT
public:
    explicit IRSystemWidget(QWidget* parent = nullptr);

    void setModel(IRSystem* model);
    IRSystem* model() const { return model_; }

    QSize sizeHint() const override { return { 460, 240 }; }
    QSize minimumSizeHint() const override { return { 200, 110 }; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    struct Layout {
        QRectF captionBand;
        // Maps the fixed scene the figures are drawn on into the widget.
        QTransform toScene;
        bool sceneShown = false;
        // The parts the animations change, in widget pixels.
        QRect rowArea;
        QRect screenArea;
    };
    // What the still picture depends on besides the size.
    struct StillKey {
        QString caption;
        bool active = false;
        bool sending = false;
        bool operator==(const StillKey& other) const
        {
            return caption == other.caption && active == other.active && sending == other.sending;
        }
    };
    Layout layout() const;
    StillKey stillKey() const;
    void onChanged();
    // The row or the screen as the model shows them now, drawn once and then reused.
    QPixmap frame(const Layout& l, bool screen);
    void drawStill(QPainter& p, const Layout& l, const StillKey& key) const;
    void drawComputer(QPainter& p, bool active) const;
    void drawScreen(QPainter& p) const;
    void drawInstrument(QPainter& p, bool active, bool sending) const;
    void drawTrack(QPainter& p) const;
    void drawRow(QPainter& p) const;
    void drawCaption(QPainter& p, const QRectF& band, const QString& text, bool idle) const;

    QPointer<IRSystem> model_;
    QMetaObject::Connection changedConnection_;
    QPixmap background_;
    StillKey paintedKey_;
    QHash<quint64, QPixmap> frames_;
};
