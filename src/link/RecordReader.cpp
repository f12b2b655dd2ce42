#include "RecordReader.h"

#include "base/StringUtils.h"

using namespace StringUtils;

std::optional<Record> RecordReader::feed(char c)
{
    const QChar ch = QLatin1Char(c);
    if (ch == Vt) {
        // A block begun again (the instrument restarted in the middle of one) drops what came
        // before: its lines would otherwise take the new block's field numbers.
        if (blockBegun_)
            current_.text.clear();
        blockBegun_ = true;
        current_.parameterBlock = true;
    }
    if (ch == Bel) {
        Record record = std::move(current_);
        clear();
        return record;
    }
    if (current_.text.size() >= MaxRecordLength)
        return std::nullopt;
    if (!current_.parameterBlock && (ch == Cr || ch == Lf))
        current_.text += QLatin1Char(' ');
    else
        current_.text += ch;
    return std::nullopt;
}

bool BlankLineGuard::halts(bool emptyRecord, bool downloadMode)
{
    if (armed_) {
        if (!emptyRecord) {
            armed_ = false;
            count_ = 0;
        } else if (count_ < 32767) {
            ++count_;
        }
    }
    if (emptyRecord && !downloadMode)
        armed_ = true;
    return count_ >= 5;
}
