#pragma once

#include <QMainWindow>
#include <memory>

class ModelBinder;
class TempBar;
class TempBarWidget;
class TempBarWindowController;
class TempBarWindowModel;
namespace Ui {
class frmTempBar;
}

// The "TEMP BAR" window: hosts the bar (TempBar1) and the "&CONFIGURE" menu command.
class TempBarWindow : public QMainWindow {
    Q_OBJECT
public:
    TempBarWindow(TempBar& bar, TempBarWindowModel& model, TempBarWindowController& controller,
        QWidget* parent = nullptr);
    ~TempBarWindow() override;

    TempBarWidget* barWidget() const;

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    std::unique_ptr<Ui::frmTempBar> ui_;
    TempBarWindowController& controller_;
    ModelBinder* binder_;
};
