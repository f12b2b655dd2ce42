#pragma once

#include "base/ViewModel.h"

#include <QPointF>
#include <initializer_list>
#include <optional>

// The CURSOR DATA window: the time and the temperature under the chart's cursor and, once a point
// is pinned, the measurement from the pinned point to the cursor (hidden until then).
class MarkerDataModel : public ViewModel {
    Q_OBJECT
public:
    explicit MarkerDataModel(QObject* parent = nullptr)
        : ViewModel(parent)
    {
        showMeasure(false);
    }

    Control frmMarkerData { this, "frmMarkerData" };
    Control lblTimeCaption { this, "lblTimeCaption" };
    Control lblTempCaption { this, "lblTempCaption" };
    Control lblTime { this, "lblTime" };
    Control lblTemp { this, "lblTemp" };

    // The two-point measurement.
    Control lblPinned { this, "lblPinned" };
    Control lblDeltaTimeCaption { this, "lblDeltaTimeCaption" };
    Control lblDeltaTempCaption { this, "lblDeltaTempCaption" };
    Control lblRateCaption { this, "lblRateCaption" };
    Control lblDeltaTime { this, "lblDeltaTime" };
    Control lblDeltaTemp { this, "lblDeltaTemp" };
    Control lblRate { this, "lblRate" };

    bool measureShown() const { return lblDeltaTemp.visible(); }
    void showMeasure(bool shown)
    {
        for (Control* c : { &lblPinned, &lblDeltaTimeCaption, &lblDeltaTempCaption, &lblRateCaption,
                 &lblDeltaTime, &lblDeltaTemp, &lblRate })
            c->setVisible(shown);
    }
};

// Opens and closes the CURSOR DATA window, for the cursor's commands.
class MarkerDataWindows {
public:
    virtual ~MarkerDataWindows() = default;
    // Shows the window modeless, owned by the main window.
    virtual void showMarkerData() = 0;
    // Closes it without asking the cursor again.
    virtual void unloadMarkerData() = 0;
};

// Draws the pinned point of the two-point measurement on the chart.
class PinnedPointView {
public:
    virtual ~PinnedPointView() = default;
    // The pinned point, and the point under the cursor while it stands over data.
    virtual void showPinnedPoint(const QPointF& pinned, const std::optional<QPointF>& current) = 0;
    virtual void hidePinnedPoint() = 0;
};
