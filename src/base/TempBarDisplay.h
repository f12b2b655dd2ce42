#pragma once

#include <QtGlobal>

// What the acquisition code tells the temperature bar while its window is shown.
class TempBarDisplay {
public:
    virtual ~TempBarDisplay() = default;
    virtual void SetTemp(qint16 temperature) = 0;
    virtual void ClearTemp() = 0;
    virtual void SetUnitsDegF() = 0;
    virtual void SetUnitsDegC() = 0;
};
