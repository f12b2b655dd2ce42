#pragma once

#include "base/Services.h"

#include <functional>

// Counts the beeps; `onBeep` lets a test look at the program's state at the moment of a beep.
class FakeBeeper : public Beeper {
public:
    void beep() override
    {
        ++count;
        if (onBeep)
            onBeep();
    }

    int count = 0;
    std::function<void()> onBeep;
};
