#pragma once

#include <QWidget>
#include <memory>

class DataPointStore;
class ModelBinder;
class StoredPointsController;
class StoredPointsModel;
namespace Ui {
class frmAcquiredPoints;
}

// The stored points window: the transfer's start/stop button, the blinking label and the store.
class StoredPointsWindow : public QWidget {
    Q_OBJECT
public:
    StoredPointsWindow(StoredPointsModel& model, StoredPointsController& controller,
        DataPointStore& store, QWidget* parent = nullptr);
    ~StoredPointsWindow() override;

    // Shows the window, running its load handler when it was not open.
    void load();
    // Closes the window, running its unload handler.
    void unload();

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    std::unique_ptr<Ui::frmAcquiredPoints> ui_;
    StoredPointsController& controller_;
    DataPointStore& store_;
    ModelBinder* binder_;
    bool loaded_ = false;
};
