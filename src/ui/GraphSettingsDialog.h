#pragma once

#include <QDialog>
#include <memory>

class ModelBinder;
class GraphSettingsController;
class GraphSettingsModel;
namespace Ui {
class frmGraphSettings;
}

// The "GRAPH SETTINGS" panel: a modeless window beside the chart. Enter in a box is that box's
// own handler, never a default button; every way of closing unloads the panel.
class GraphSettingsDialog : public QDialog {
    Q_OBJECT
public:
    GraphSettingsDialog(
        GraphSettingsModel& model, GraphSettingsController& controller, QWidget* parent = nullptr);
    ~GraphSettingsDialog() override;

    void reject() override;

protected:
    void showEvent(QShowEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void render();

    std::unique_ptr<Ui::frmGraphSettings> ui_;
    GraphSettingsModel& model_;
    GraphSettingsController& controller_;
    ModelBinder* binder_;
    int focusRequestsShown_ = -1;
};
