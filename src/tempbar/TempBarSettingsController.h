#pragma once

#include <QObject>
#include <functional>

struct AppState;
class Control;
class Prompter;
struct SettingsNumber;
class TempBar;
class TempBarSettingsModel;

// The bar settings dialog's handlers. The dialog holds nothing between openings: it is filled
// from the bar and the settings on every load and writes the bar's values back on every close.
class TempBarSettingsController : public QObject {
    Q_OBJECT
public:
    static constexpr int KeyEnter = 13;

    TempBarSettingsController(AppState& state, TempBar& bar, TempBarSettingsModel& model,
        Prompter& prompter, std::function<void()> updateLimitLines, QObject* parent = nullptr);

    void Form_Load();
    // Both boxes act at once, with the state the operator gave them (the model's check mark).
    void chkEnableAlarms_Click();
    void chkAudibleAlarms_Click();
    // Validates the four boxes; on success writes the bar and the limits and closes.
    void cmdAccept_Click();
    void cmdCancel_Click();
    // Enter stores the bar's current value of that field, then accepts as OK does.
    void txtMaxTemp_KeyPress(int keyAscii);
    void txtMinTemp_KeyPress(int keyAscii);
    void txtHighLimit_KeyPress(int keyAscii);
    void txtLowLimit_KeyPress(int keyAscii);
    // Whichever way the dialog closes: entries 11 to 15 from the bar.
    void Form_Unload();

    bool loaded() const { return loaded_; }

signals:
    // The dialog should close now; Form_Unload has already run.
    void closeRequested();

private:
    bool fail(const QString& title, const QString& text, Control& focus);
    bool validate();
    void keyPress(int keyAscii, SettingsNumber& entry, qint16 barValue);
    void unload();

    AppState& state_;
    TempBar& bar_;
    TempBarSettingsModel& model_;
    Prompter& prompter_;
    std::function<void()> updateLimitLines_;
    bool loaded_ = false;
};
