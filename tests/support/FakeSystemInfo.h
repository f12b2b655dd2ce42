#pragma once

#include "base/Services.h"

// Memory and processor facts set by the test. The defaults are those of a well-equipped machine.
class FakeSystemInfo : public SystemInfo {
public:
    quint64 totalPhysicalMemory() const override { return totalMemory; }
    quint64 availablePhysicalMemory() const override { return availableMemory; }
    int processorType() const override { return processor; }

    quint64 totalMemory = 8ull * 1024 * 1024 * 1024;
    quint64 availableMemory = 4ull * 1024 * 1024 * 1024;
    int processor = 586;
};
