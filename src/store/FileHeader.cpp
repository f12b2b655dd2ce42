#include "FileHeader.h"

#include "base/AppState.h"
#include "base/Clock.h"

QString BuildFileHeader(const AppState& state, const Clock& clock)
{
    const QString crlf = QStringLiteral("\r\n");
    QString header
        = QStringLiteral("\tBRANDOK ENGINEERING Infrared Thermometer Data Logging") + crlf;
    header += QStringLiteral("\tDate: (mm/dd/yy) ") + clock.dateText() + QStringLiteral("  Time: ")
        + clock.timeText() + crlf;
    if (!state.Instrument.units.isEmpty()) {
        for (const QString& line : state.Instrument.SystemParameterText)
            header += QStringLiteral("\t\t") + line + crlf;
        header += crlf;
    }
    return header;
}
