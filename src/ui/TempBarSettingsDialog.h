#pragma once

#include <QDialog>
#include <memory>

class ModelBinder;
class TempBarSettingsController;
class TempBarSettingsModel;
namespace Ui {
class frmTempBarSettings;
}

// The modal "TEMPERATURE BAR SETTINGS" dialog. Enter in a box is that box's key handler, not
// a default button; every way of closing writes the bar's values back to the settings.
class TempBarSettingsDialog : public QDialog {
    Q_OBJECT
public:
    TempBarSettingsDialog(TempBarSettingsModel& model, TempBarSettingsController& controller,
        QWidget* parent = nullptr);
    ~TempBarSettingsDialog() override;

    void reject() override;

protected:
    void showEvent(QShowEvent* event) override;

private:
    void render();

    std::unique_ptr<Ui::frmTempBarSettings> ui_;
    TempBarSettingsModel& model_;
    TempBarSettingsController& controller_;
    ModelBinder* binder_;
    int focusRequestsShown_ = -1;
};
