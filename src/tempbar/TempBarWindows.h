#pragma once

// The windows of the temperature bar, as the user interface provides them.
class TempBarWindows {
public:
    virtual ~TempBarWindows() = default;

    // Brings the bar window up, or puts it away (hidden, its state kept in the models).
    virtual void showTempBarWindow() = 0;
    virtual void unloadTempBarWindow() = 0;
    // Runs the bar settings dialog modally, owned by the bar window.
    virtual void showTempBarSettings() = 0;
};
