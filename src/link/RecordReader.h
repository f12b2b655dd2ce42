#pragma once

#include <QString>
#include <optional>

// A finished record from the instrument: the characters between two BELs.
struct Record {
    QString text;
    // A vertical tab was seen in it: an instrument parameter block.
    bool parameterBlock = false;
};

// Assembles the characters from the instrument into records. A BEL ends the record; a vertical
// tab anywhere marks it as a parameter block, inside which CR and LF are kept (before it, and in
// any other record, each becomes a blank). A second vertical tab in one record begins the block
// anew: the text before it is dropped. No widgets and no state but the record on hand.
class RecordReader {
public:
    // Characters beyond this in one record are dropped until the next BEL: a line that never
    // ends cannot take all memory. Real records are under 200 characters.
    static constexpr int MaxRecordLength = 64 * 1024;

    // One character; the finished record when it was a BEL.
    std::optional<Record> feed(char c);
    // The next record counts as a parameter block from its first character on, as when the
    // record before it never finished.
    void continueParameterBlock() { current_.parameterBlock = true; }
    // The record being assembled.
    const QString& pending() const { return current_.text; }
    void clear()
    {
        current_ = {};
        blockBegun_ = false;
    }

private:
    Record current_;
    // A vertical tab has been received in the record on hand.
    bool blockBegun_ = false;
};

// The blank-line guard: the first empty record outside download mode arms it, each further empty
// record counts, and any record with text disarms it. Five counted halt the acquisition.
class BlankLineGuard {
public:
    // A finished record; true when the acquisition must halt for blank lines. The count is not
    // reset by the halt: until a record with text arrives every empty one halts again.
    bool halts(bool emptyRecord, bool downloadMode);
    void clear() { *this = {}; }

private:
    bool armed_ = false;
    int count_ = 0;
};
