#include "StdfKinds.h"
#include "StdfReader.h"
#include "StdfTexts.h"

#include <string>

/// \file
/// Records of tests as values of a part.

namespace ZYN {

namespace {

// TEST_FLG
constexpr int notExecuted = 1 << 4;
constexpr int isAborted = 1 << 5;
constexpr int noVerdict = 1 << 6;
constexpr int isFailed = 1 << 7;
/// Alarm, not valid, not reliable, time-out, not executed, aborted: the number says nothing.
constexpr int noNumber = 0x3f;
/// PARM_FLG: scale, drift and oscillation errors.
constexpr int noNumberEither = 0x07;

/// A tester has some thousand tests, and rarely more than some hundred sites.
constexpr std::size_t mostValues = 10'000'000;

int CodeOf(int flags)
{
    if (flags & isAborted)
        return StdfCodes::Aborted;
    if (flags & notExecuted)
        return StdfCodes::NotTested;
    if (flags & noVerdict)
        return StdfCodes::Done;
    return flags & isFailed ? StdfCodes::Failed : StdfCodes::Passed;
}

const char* NameOf(int kind)
{
    return kind == StdfKinds::Ptr ? "PTR" : kind == StdfKinds::Mpr ? "MPR" : "FTR";
}

bool IsOutside(const RunItemLimits& limits, double number)
{
    return number < limits.lower || number > limits.upper; // false where there is no limit
}

/// The state of a pin that is a failure by itself (RTN_STAT).
bool IsFailedState(std::string_view states, std::size_t pin)
{
    constexpr int failedLow = 5, failedByGlitch = 8;
    if (pin / 2 >= states.size())
        return false;
    const int state = static_cast<unsigned char>(states[pin / 2]) >> (pin % 2 * 4) & 0x0f;
    return state >= failedLow && state <= failedByGlitch;
}

} // namespace

void StdfReader::TakeTest(const StdfRecord& record, StdfFields fields)
{
    const std::uint32_t number = fields.U4();
    const int head = fields.U1();
    const int site = fields.U1();
    const int flags = fields.U1();
    StdfPart& part = PartAt(head, site);
    if (!part.isOpen)
        return Note(StrayTest, record.offset);
    const std::size_t before = part.values.size();
    if (record.kind == StdfKinds::Ptr)
        TakeParametric(part, number, flags, fields);
    else if (record.kind == StdfKinds::Mpr)
        TakePins(part, number, flags, fields);
    else
        TakeFunctional(part, number, flags, fields);
    m_valuesOpen += part.values.size() - before;
    if (fields.IsTorn()) {
        if (m_found[TornRecord].count == 0)
            m_tornName = NameOf(record.kind);
        Note(TornRecord, record.offset);
    }
    if (m_tests.IsFull() || m_valuesOpen > mostValues)
        m_refused = RunFault{0, 0, ReportTexts::Filled(StdfTexts::tooMuch), record.offset};
}

/// OPT_FLAG, scales and limits, which PTR and MPR have alike.
StdfSettings StdfReader::TakeSettings(StdfFields& fields) const
{
    StdfSettings settings;
    settings.hasFlags = !fields.AtEnd();
    settings.flags = fields.U1();
    if (!fields.AtEnd())
        settings.scale = fields.I1();
    fields.Bytes(2); // LLM_SCAL, HLM_SCAL
    if (!fields.AtEnd())
        settings.low = fields.R4();
    if (!fields.AtEnd())
        settings.high = fields.R4();
    return settings;
}

void StdfReader::TakeParametric(StdfPart& part, std::uint32_t number, int flags, StdfFields& fields)
{
    const int parameterFlags = fields.U1();
    std::optional<float> value;
    if (!fields.AtEnd())
        value = fields.R4();
    const std::string_view text = fields.Cn();
    const std::string_view alarm = fields.Cn();
    StdfSettings settings = TakeSettings(fields);
    settings.unit = fields.Cn();

    const std::uint32_t test = m_tests.Find(StdfKinds::Ptr, number, text, part.last);
    part.last = test;
    const StdfReading reading = m_tests.Read(test, settings, parameterFlags);
    if (flags & noNumber || parameterFlags & noNumberEither)
        value.reset();
    AddValue(part, reading, -1, CodeOf(flags), value);
    if (!alarm.empty())
        AddComment(part, StdfText(alarm));
}

void StdfReader::TakePins(StdfPart& part, std::uint32_t number, int flags, StdfFields& fields)
{
    const int parameterFlags = fields.U1();
    const auto pins = std::size_t(fields.U2());
    const auto count = std::size_t(fields.U2());
    const std::string_view states = fields.Bytes((pins + 1) / 2);
    const std::string_view numbers = fields.Bytes(count * sizeof(float));
    const std::string_view text = fields.Cn();
    const std::string_view alarm = fields.Cn();
    StdfSettings settings = TakeSettings(fields);
    fields.Bytes(2 * sizeof(float)); // START_IN, INCR_IN
    StdfFields indexes(fields.Bytes(pins * sizeof(std::uint16_t)), m_isBigEndian);
    settings.unit = fields.Cn();
    std::string native;
    while (!indexes.AtEnd()) {
        const auto index = std::uint16_t(indexes.U2());
        native.append(reinterpret_cast<const char*>(&index), sizeof index);
    }
    settings.pins = native;

    const std::uint32_t test = m_tests.Find(StdfKinds::Mpr, number, text, part.last);
    part.last = test;
    const StdfReading reading = m_tests.Read(test, settings, parameterFlags);
    const bool isValid = !(flags & noNumber || parameterFlags & noNumberEither);
    const int code = CodeOf(flags);
    const std::size_t first = part.values.size();
    const RunItemLimits& limits = reading.ownLimits ? reading.limits : m_tests.Test(reading.test).limits;
    bool isAnyFailed = false;
    StdfFields results(numbers, m_isBigEndian);
    for (std::size_t pin = 0; pin < count && !results.AtEnd(); ++pin) {
        const float result = results.R4();
        AddValue(part, reading, int(pin), code, isValid ? std::optional(result) : std::nullopt);
        const bool isBad =
            IsFailedState(states, pin) || (isValid && IsOutside(limits, part.values.back().number));
        isAnyFailed = isAnyFailed || isBad;
        if (code == StdfCodes::Failed && !isBad)
            part.values.back().code = StdfCodes::Passed;
    }
    if (count == 0)
        AddValue(part, reading, -1, code, std::nullopt);
    // Which pin it was is not told.
    if (code == StdfCodes::Failed && !isAnyFailed)
        for (std::size_t index = first; index < part.values.size(); ++index)
            part.values[index].code = StdfCodes::Failed;
    if (!alarm.empty())
        AddComment(part, StdfText(alarm));
}

void StdfReader::TakeFunctional(StdfPart& part, std::uint32_t number, int flags, StdfFields& fields)
{
    constexpr int noCycle = 1 << 0, noFailedPins = 1 << 3;
    const int options = fields.U1(0xff);
    const std::uint32_t cycle = fields.U4();
    fields.Bytes(8); // REL_VADR, REPT_CNT
    const std::uint32_t failedPins = fields.U4();
    fields.Bytes(10); // XFAIL_AD, YFAIL_AD, VECT_OFF
    const auto returned = std::size_t(fields.U2());
    const auto programmed = std::size_t(fields.U2());
    fields.Bytes(returned * 2 + (returned + 1) / 2 + programmed * 2 + (programmed + 1) / 2);
    const int bits = fields.U2();
    fields.Bytes(std::size_t(bits + 7) / 8); // FAIL_PIN
    const std::string_view vectorName = fields.Cn();
    fields.Cn(); // TIME_SET
    fields.Cn(); // OP_CODE
    const std::string_view text = fields.Cn();
    const std::string_view texts[] = {fields.Cn(), fields.Cn(), fields.Cn()}; // ALARM_ID, PROG_TXT, RSLT_TXT

    const std::uint32_t test = m_tests.Find(StdfKinds::Ftr, number, text, part.last);
    part.last = test;
    StdfReading reading;
    reading.test = test;
    const int code = CodeOf(flags);
    AddValue(part, reading, -1, code, std::nullopt);

    std::string comment;
    const auto add = [&](const std::string& piece) {
        comment += (comment.empty() || piece.empty() ? "" : "; ") + piece;
    };
    for (const std::string_view piece : texts)
        add(StdfText(piece));
    if (code < 0) {
        if (!vectorName.empty())
            add("vector " + StdfText(vectorName));
        if (!(options & noCycle))
            add("cycle " + std::to_string(cycle));
        if (!(options & noFailedPins))
            add("failed pins " + std::to_string(failedPins));
    }
    AddComment(part, comment);
}

void StdfReader::AddValue(StdfPart& part, const StdfReading& reading, int pin, int code,
                          std::optional<float> number)
{
    StdfValue& value = part.values.emplace_back();
    value.component = m_tests.ComponentOf(reading.test, pin);
    value.code = std::int16_t(code);
    value.hasNumber = number.has_value();
    if (number)
        value.number = m_tests.InBaseUnit(*number, reading.power);
    if (reading.ownLimits) {
        value.ownLimits = std::uint32_t(part.limits.size());
        part.limits.push_back(reading.limits);
    }
}

/// Of the value that came last.
void StdfReader::AddComment(StdfPart& part, const std::string& text)
{
    if (!text.empty() && !part.values.empty())
        part.comments.emplace_back(std::uint32_t(part.values.size() - 1), text);
}

} // namespace ZYN
