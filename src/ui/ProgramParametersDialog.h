#pragma once

#include <QDialog>
#include <memory>

class ModelBinder;
class ProgramParametersController;
class ProgramParametersModel;
namespace Ui {
class frmProgramParameters;
}

// The program parameters dialog: the serial port and its device, and facts about this PC.
// Every opening runs the load handler, so exec(), open() and show() all start from fresh facts.
class ProgramParametersDialog : public QDialog {
    Q_OBJECT
public:
    ProgramParametersDialog(ProgramParametersModel& model, ProgramParametersController& controller,
        QWidget* parent = nullptr);
    ~ProgramParametersDialog() override;

    void accept() override;

protected:
    void showEvent(QShowEvent* event) override;

private:
    void render();
    void commitDevice();

    std::unique_ptr<Ui::frmProgramParameters> ui_;
    ProgramParametersModel& model_;
    ProgramParametersController& controller_;
    ModelBinder* binder_;
};
