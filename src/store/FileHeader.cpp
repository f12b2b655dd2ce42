#include "FileHeader.h"

#include "base/AppState.h"
#include "base/Clock.h"
#include "base/MainWindowModel.h"

QString BuildFileHeader(const AppState& state, const MainWindowModel& main, const Clock& clock)
{
    const QString crlf = QStringLiteral("\r\n");
    QString header
        = QStringLiteral("\tBRANDOK ENGINEERING Infrared Thermometer Data Logging") + crlf;
    header += QStringLiteral("\tDate: (mm/dd/yy) ") + clock.dateText() + QStringLiteral("  Time: ")
        + clock.timeText() + crlf;
    if (!main.lblSystParameters(1).caption().isEmpty()) {
        for (const QString& line : state.SystemParameterText)
            header += QStringLiteral("\t\t") + line + crlf;
        header += crlf;
    }
    return header;
}
