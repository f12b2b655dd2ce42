// The receive path on arbitrary bytes: RecordReader assembles records, ParseRecord says what each
// is. Byte 0 holds the mode (bit 0 sensing, bit 1 downloading) and bit 2 "stretch": each byte
// after byte 1 is then fed 1 + 64 * byte 1 times, so that records beyond the length bound are
// within reach of small inputs.
#include "FuzzCheck.h"
#include "link/RecordParser.h"
#include "link/RecordReader.h"

#include <cmath>
#include <cstdint>

namespace {
constexpr char Bel = 7;
constexpr char Vt = 11;

// Checks one finished record; true when the next record continues its parameter block, as the
// receive handler has it after a refused block.
bool check(const Record& record, bool blockExpected, AcquisitionMode mode)
{
    const QString& text = record.text;
    FUZZ_CHECK(text.size() <= RecordReader::MaxRecordLength);
    FUZZ_CHECK(text.count(QChar(Vt)) <= 1);
    FUZZ_CHECK(record.parameterBlock == blockExpected);
    if (!record.parameterBlock)
        FUZZ_CHECK(!text.contains(QLatin1Char('\r')) && !text.contains(QLatin1Char('\n')));

    const ParsedRecord parsed = ParseRecord(record, mode);
    FUZZ_CHECK((parsed.kind == RecordKind::Blank) == text.isEmpty());
    FUZZ_CHECK((parsed.kind == RecordKind::StoredPoint) == text.contains(QLatin1Char('#')));
    if (mode.realTime && parsed.modeError == ModeError::None) {
        // A reading handed on is the value the text reads, finite and rounded into 16 bits.
        const RealTimeReading reading = ParseRealTimeReading(text);
        FUZZ_CHECK(parsed.temperature.has_value() == (parsed.fault == ReadingFault::None));
        FUZZ_CHECK(reading.valid == (parsed.fault != ReadingFault::NotNumeric));
        const double rounded = std::nearbyint(reading.value);
        const bool fits = std::isfinite(rounded) && rounded >= -32768 && rounded <= 32767;
        if (parsed.temperature)
            FUZZ_CHECK(fits && rounded == double(*parsed.temperature));
        if (parsed.fault == ReadingFault::OutOfRange)
            FUZZ_CHECK(!fits);
    } else {
        FUZZ_CHECK(!parsed.temperature);
    }
    if (parsed.kind == RecordKind::StoredPoint) {
        const QString stored = FormatStoredRecord(text);
        FUZZ_CHECK(!stored.endsWith(QLatin1Char('\t')) && !stored.contains(QLatin1String("  ")));
    }
    if (record.parameterBlock) {
        if (const auto fields = ParameterBlockFields(text)) {
            for (const QString& field : *fields)
                FUZZ_CHECK(field.size() >= 5 && !field.contains(QLatin1Char('\n')));
        }
    }
    return parsed.modeError != ModeError::None && record.parameterBlock;
}
} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    if (size < 2)
        return 0;
    const AcquisitionMode mode { (data[0] & 1) != 0, (data[0] & 2) != 0 };
    const int repeat = (data[0] & 4) ? 1 + 64 * data[1] : 1;
    RecordReader reader;
    bool vtSeen = false;
    bool continued = false;
    // A stretched input ends a little past the bound: more would only be slower.
    long budget = repeat > 1 ? RecordReader::MaxRecordLength + 4096 : long(size);
    for (size_t i = 2; i < size; ++i) {
        const char c = char(data[i]);
        for (int r = 0; r < repeat && budget-- > 0; ++r) {
            vtSeen = vtSeen || c == Vt;
            if (std::optional<Record> record = reader.feed(c)) {
                FUZZ_CHECK(c == Bel);
                continued = check(*record, vtSeen || continued, mode);
                if (continued)
                    reader.continueParameterBlock();
                vtSeen = false;
            }
            FUZZ_CHECK(reader.pending().size() <= RecordReader::MaxRecordLength);
        }
    }
    return 0;
}
