#include "StdfReader.h"

#include "StartText.h"
#include "StdfKinds.h"
#include "StdfTexts.h"

#include <chrono>
#include <cstdio>

namespace ZYN {

namespace {

constexpr int noCoordinate = -32768;
constexpr int noBin = 65535;
constexpr std::size_t mostBins = 200'000;
constexpr std::size_t mostNames = 200'000;

/// Seconds since 1970 as a date and time.
std::string TimeText(std::uint32_t seconds)
{
    using namespace std::chrono;
    if (seconds == 0)
        return {};
    const sys_seconds time{std::chrono::seconds(seconds)};
    const year_month_day date(floor<days>(time));
    const hh_mm_ss clock(time - floor<days>(time));
    char text[64];
    std::snprintf(text, sizeof text, "%04d-%02u-%02uT%02d:%02d:%02d", int(date.year()),
                  unsigned(date.month()), unsigned(date.day()), int(clock.hours().count()),
                  int(clock.minutes().count()), int(clock.seconds().count()));
    return text;
}

} // namespace

StdfReader::StdfReader(RunBuilder& builder, OpenBytes open, std::string source, const StdfRuns::Take& take)
    : m_builder(builder)
    , m_open(std::move(open))
    , m_source(std::move(source))
    , m_take(take)
    , m_tests(StdfTests::Outlook{.nameOf = [this](std::uint32_t number) { return NameOfTest(number); },
                                 .mayExceed = [this](const std::string& text) { return MayExceedLow(text); }})
{
}

std::optional<RunFault> StdfReader::Read()
{
    ByteSource bytes;
    m_open(bytes);
    StdfRecords records(bytes);
    StdfRecord record;
    StdfRecords::Answer answer = StdfRecords::Answer::Record;
    while (!m_isEnded && !m_refused && (answer = records.Next(&record)) == StdfRecords::Answer::Record) {
        m_isBigEndian = records.IsBigEndian();
        Take(record);
    }
    if (m_isEnded)
        return std::nullopt;
    if (answer == StdfRecords::Answer::NoStdf && bytes.Error().empty())
        m_refused = RunFault{0, 0, ReportTexts::Filled(StdfTexts::noStdf)};
    if (answer == StdfRecords::Answer::Torn || !bytes.Error().empty())
        Note(Torn, records.Offset());
    EndStream();
    if (!m_hasMrr)
        Note(NoMrr, records.Offset());
    return Result(bytes);
}

void StdfReader::Note(Fault fault, std::int64_t offset)
{
    if (m_found[fault].count++ == 0)
        m_found[fault].offset = offset;
}

std::optional<RunFault> StdfReader::Result(const ByteSource& bytes) const
{
    if (m_refused)
        return m_refused;
    static constexpr const ReportTexts::Pattern* patterns[faultCount] = {&StdfTexts::torn,
                                                                         &StdfTexts::tornRecords,
                                                                         &StdfTexts::noMir,
                                                                         &StdfTexts::testsWithoutPart,
                                                                         &StdfTexts::partsWithoutBegin,
                                                                         &StdfTexts::partsWithoutEnd,
                                                                         &StdfTexts::noEnd,
                                                                         &StdfTexts::tooMuch};
    RunFault fault;
    for (int kind = 0; kind < faultCount; ++kind) {
        const Found& found = m_found[kind];
        const bool isTold = kind != NoMrr || m_found[Torn].count == 0; // which says it as well
        if (found.count == 0 || !isTold)
            continue;
        std::string text = kind == Torn && !bytes.Error().empty() ? bytes.Error()
                           : kind == TornRecord
                               ? ReportTexts::Filled(*patterns[kind], std::to_string(found.count), m_tornName)
                           : kind == StrayTest || kind == NoBegin || kind == NoEnd
                               ? ReportTexts::Filled(*patterns[kind], std::to_string(found.count))
                               : ReportTexts::Filled(*patterns[kind]);
        fault.text += (fault.text.empty() ? "" : "; ") + text;
        fault.offset = fault.offset < 0 ? found.offset : std::min(fault.offset, found.offset);
    }
    return fault.text.empty() ? std::nullopt : std::optional(fault);
}

void StdfReader::Take(const StdfRecord& record)
{
    const StdfFields fields(record.body, m_isBigEndian);
    switch (record.kind) {
    case StdfKinds::Ptr:
    case StdfKinds::Mpr:
    case StdfKinds::Ftr:
        return TakeTest(record, fields);
    case StdfKinds::Pir:
        return BeginPart(record, fields);
    case StdfKinds::Prr:
        return EndPart(record, fields);
    case StdfKinds::Far:
        EndStream();
        if (!TakeFar(record))
            m_refused = m_refused ? m_refused : RunFault{0, 0, ReportTexts::Filled(StdfTexts::noStdf)};
        return;
    case StdfKinds::Mir:
        return TakeMir(fields);
    case StdfKinds::Mrr:
        m_hasMrr = true;
        return;
    case StdfKinds::Pmr:
        return TakePin(fields);
    case StdfKinds::Sdr:
        return TakeSites(fields);
    case StdfKinds::Wir:
    case StdfKinds::Wrr:
        return TakeWafer(fields, record.kind == StdfKinds::Wir);
    case StdfKinds::Hbr:
    case StdfKinds::Sbr:
        return TakeBin(fields, record.kind == StdfKinds::Sbr);
    default:
        return; // also what later versions of the standard added
    }
}

/// \return whether what follows can be read
bool StdfReader::TakeFar(const StdfRecord& record)
{
    constexpr int vax = 0;
    StdfFields fields(record.body, m_isBigEndian);
    const int processor = fields.U1();
    const int version = fields.U1();
    m_tests.Begin(false);
    m_places.Clear();
    m_hasMir = m_hasMrr = false;
    m_lot = Run();
    m_lot.source = m_source;
    m_program.clear();
    m_version.clear();
    if (version != 4)
        m_refused = RunFault{0, 0, ReportTexts::Filled(StdfTexts::wrongVersion, std::to_string(version)),
                             record.offset};
    else if (processor == vax)
        m_refused = RunFault{0, 0, ReportTexts::Filled(StdfTexts::vaxNumbers), record.offset};
    return !m_refused;
}

void StdfReader::TakeMir(StdfFields fields)
{
    const std::uint32_t setup = fields.U4();
    const std::uint32_t start = fields.U4();
    const int station = fields.U1();
    const std::string_view codes = fields.Bytes(3);
    const int burnIn = fields.U2();
    const std::string_view command = fields.Bytes(1);
    m_lot.lot = StdfText(fields.Cn());
    m_lot.product = StdfText(fields.Cn());
    m_lot.station = StdfText(fields.Cn());
    const std::string_view tester = fields.Cn();
    m_program = StdfText(fields.Cn());
    m_version = StdfText(fields.Cn());
    const std::string_view sublot = fields.Cn();
    const bool hasOperator = !fields.AtEnd();
    m_lot.operatorName = StdfText(fields.Cn());
    // What this project writes.
    const bool isOwn = setup == start && station == 1 && codes == "P  " && burnIn == noBin &&
                       command == " " && tester.empty() && sublot.empty() && hasOperator && fields.AtEnd() &&
                       !m_isBigEndian;
    m_lot.startText = TimeText(start);
    if (isOwn && start != 0)
        m_lot.startText += 'Z';
    if (const std::optional<StartTime> time = ReadStartTime(m_lot.startText)) {
        m_lot.start = time->ms;
        m_lot.utcOffset = time->utcOffset;
    }
    m_tests.Begin(isOwn);
    m_hasMir = true;
}

/// What people call the pin, else the tester's channel.
void StdfReader::TakePin(StdfFields fields)
{
    const int index = fields.U2();
    fields.U2(); // CHAN_TYP
    const std::string channel = StdfText(fields.Cn());
    const std::string physical = StdfText(fields.Cn());
    const std::string logical = StdfText(fields.Cn());
    m_tests.SetPin(index, !logical.empty() ? logical : !physical.empty() ? physical : channel);
}

void StdfReader::TakeSites(StdfFields fields)
{
    const int head = fields.U1();
    const int group = fields.U1();
    for (int count = fields.U1(); count > 0 && !fields.AtEnd(); --count)
        m_places.SetGroup(head, group, fields.U1());
}

void StdfReader::TakeWafer(StdfFields fields, bool isBegin)
{
    const int head = fields.U1();
    const int group = fields.U1(255);
    if (!isBegin)
        return m_places.EndWafer(head, group);
    fields.U4(); // START_T
    m_places.BeginWafer(head, group, StdfText(fields.Cn()));
}

void StdfReader::TakeBin(StdfFields fields, bool isSoft)
{
    if (m_tests.IsOwn()) // which has none
        return;
    fields.U2(); // HEAD_NUM, SITE_NUM
    LotBin bin;
    bin.product = m_lot.product;
    bin.lot = m_lot.lot;
    bin.program = m_program;
    bin.isSoft = isSoft;
    bin.number = fields.U2();
    fields.U4(); // count, which is counted here
    const std::string_view verdict = fields.Bytes(1);
    bin.verdict = verdict.empty() ? ' ' : verdict.front();
    bin.name = StdfText(fields.Cn());
    if (m_bins.size() + m_earlierBins.size() >= mostBins)
        return;
    LotBin& known = m_bins.try_emplace({isSoft, bin.number}, bin).first->second;
    if (known.name.empty())
        known = std::move(bin);
}

void StdfReader::EndBins()
{
    for (auto& [key, bin] : m_bins)
        m_earlierBins.push_back(std::move(bin));
    m_bins.clear();
}

std::vector<LotBin> StdfReader::TakeBins()
{
    EndBins();
    return std::exchange(m_earlierBins, {});
}

void StdfReader::BeginPart(const StdfRecord& record, StdfFields fields)
{
    const int head = fields.U1();
    StdfPart& part = PartAt(head, fields.U1());
    if (part.isOpen)
        Note(NoEnd, part.offset);
    m_valuesOpen -= part.values.size();
    part.Begin(record.offset);
}

void StdfReader::EndPart(const StdfRecord& record, StdfFields fields)
{
    constexpr int supersedesPlace = 1 << 1, abnormalEnd = 1 << 2, isFailed = 1 << 3, noVerdict = 1 << 4;
    const int head = fields.U1();
    const int site = fields.U1();
    const int flags = fields.U1();
    fields.U2(); // NUM_TEST
    const int hardBin = fields.U2(noBin);
    const int softBin = fields.U2(noBin);
    const int x = fields.I2(noCoordinate);
    const int y = fields.I2(noCoordinate);
    const std::uint32_t milliseconds = fields.U4();
    const std::string ident = StdfText(fields.Cn());
    const std::string text = StdfText(fields.Cn());
    if (fields.IsTorn() && m_found[TornRecord].count == 0)
        m_tornName = "PRR";
    if (fields.IsTorn())
        Note(TornRecord, record.offset);
    if (!m_hasMir)
        Note(NoMir, record.offset);

    StdfPart& part = PartAt(head, site);
    if (!part.isOpen)
        Note(NoBegin, record.offset);
    Run run = m_lot;
    m_builder.Begin(m_program, StdfTests::NoIdent, m_version);
    part.Build(m_tests, m_builder);
    m_builder.Finish(&run);
    m_valuesOpen -= part.values.size();
    part.Begin(0);
    part.isOpen = false;

    run.code = flags & abnormalEnd ? StdfCodes::Aborted
               : flags & noVerdict ? StdfCodes::NotTested
               : flags & isFailed  ? StdfCodes::Failed
                                   : StdfCodes::Passed;
    run.ident = ident;
    run.serial = ident;
    run.wafer = m_places.WaferOf(head, site);
    run.runIndex = m_ordinal++;
    run.site = site;
    if (milliseconds > 0)
        run.duration = milliseconds / 1000.0;
    if (x != noCoordinate)
        run.x = x;
    if (y != noCoordinate)
        run.y = y;
    if (run.x && run.y) {
        if (run.serial.empty())
            run.serial = std::to_string(x) + ',' + std::to_string(y);
        const std::string first = m_places.FirstAt(head, site, x, y, run.serial);
        if (flags & supersedesPlace)
            run.serial = first;
    }
    if (!m_tests.IsOwn()) { // which writes the product there, and no bins
        run.comment = text;
        if (hardBin != noBin)
            run.hardBin = hardBin;
        if (softBin != noBin)
            run.softBin = softBin;
    }
    m_isEnded = !m_take(std::move(run));
}

void StdfReader::EndStream()
{
    for (auto& [place, part] : m_parts)
        if (part.isOpen)
            Note(NoEnd, part.offset);
    m_parts.clear();
    m_valuesOpen = 0;
    EndBins();
}

/// Reads the file once more, from its beginning.
void StdfReader::ForEachRecord(const std::function<void(const StdfRecord&, StdfFields)>& take) const
{
    ByteSource bytes;
    m_open(bytes);
    StdfRecords records(bytes);
    for (StdfRecord record; records.Next(&record) == StdfRecords::Answer::Record;)
        take(record, StdfFields(record.body, records.IsBigEndian()));
}

/// Testers write these behind the parts, so they are looked for when the first test without a text comes.
std::string StdfReader::NameOfTest(std::uint32_t number)
{
    if (!m_testNames) {
        m_testNames.emplace();
        ForEachRecord([&](const StdfRecord& record, StdfFields fields) {
            if (record.kind != StdfKinds::Tsr || m_testNames->size() >= mostNames)
                return;
            fields.Bytes(3); // HEAD_NUM, SITE_NUM, TEST_TYP
            const std::uint32_t of = fields.U4();
            fields.Bytes(12); // counts
            const std::string name = StdfText(fields.Cn());
            fields.Cn(); // SEQ_NAME
            const std::string label = StdfText(fields.Cn());
            if (!name.empty() || !label.empty())
                m_testNames->try_emplace(of, name.empty() ? label : name);
        });
    }
    const auto known = m_testNames->find(number);
    return known == m_testNames->end() ? std::string() : known->second;
}

/// The record of a test says which of its limits it keeps, but not whether it may be above its only one.
bool StdfReader::MayExceedLow(const std::string& text)
{
    if (!m_exceeding) {
        m_exceeding.emplace();
        ForEachRecord([&](const StdfRecord& record, StdfFields fields) {
            constexpr int belowLow = 1 << 4, noHigh = 1 << 7;
            if (record.kind != StdfKinds::Ptr || m_exceeding->size() >= mostNames)
                return;
            fields.Bytes(7); // TEST_NUM, HEAD_NUM, SITE_NUM, TEST_FLG
            const int parameterFlags = fields.U1();
            const float value = fields.R4();
            const std::string_view of = fields.Cn();
            fields.Cn(); // ALARM_ID
            const bool hasHigh = !(fields.U1() & noHigh);
            fields.Bytes(3); // scales
            if (!hasHigh && !(parameterFlags & belowLow) && value > fields.R4() && !m_exceeding->contains(of))
                m_exceeding->emplace(of);
        });
    }
    return m_exceeding->contains(text);
}

} // namespace ZYN
