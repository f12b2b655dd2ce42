#pragma once

// The windows the demo controls bring up, as the user interface provides them.
class DemoWindows {
public:
    virtual ~DemoWindows() = default;

    // Opens the link status window when it is not open (it marks itself SystemStatusVisible).
    virtual void showSystemStatusWindow() = 0;
    // Runs the control tester modally; returns when the operator closes it.
    virtual void showControlTester() = 0;
    // Shows the splash again; opened from the menu it stays until the operator dismisses it.
    virtual void showSplash() = 0;
};
