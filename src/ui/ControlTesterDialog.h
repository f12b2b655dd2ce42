#pragma once

#include <QDialog>
#include <memory>

class ControlTesterController;
class ControlTesterModel;
class ModelBinder;
namespace Ui {
class frmControlTester;
}

// The modal "CONTROL TESTER" window: a slider and switches for the temperature bar, buttons
// that step the link status display through its states. Every way of closing puts the bar and
// the display back as they were.
class ControlTesterDialog : public QDialog {
    Q_OBJECT
public:
    ControlTesterDialog(
        ControlTesterModel& model, ControlTesterController& controller, QWidget* parent = nullptr);
    ~ControlTesterDialog() override;

    void done(int result) override;

protected:
    void showEvent(QShowEvent* event) override;

private:
    void render();

    std::unique_ptr<Ui::frmControlTester> ui_;
    ControlTesterModel& model_;
    ControlTesterController& controller_;
    ModelBinder* binder_;
};
