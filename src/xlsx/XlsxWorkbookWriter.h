#pragma once

#include "store/Workbook.h"

// Writes real .xlsx workbooks with libxlsxwriter: the headings, the bold column titles and the
// table, and a line chart of the table beside it. The workbook is made in a temporary file and
// then replaces the target in one step.
class XlsxWorkbookWriter : public WorkbookWriter {
public:
    bool write(const QString& path, const WorkbookSheet& sheet, QString* why) override;

    // Rows past this are left out: a worksheet holds 1,048,576 rows.
    static constexpr int MaxRows = 1048576;
};
