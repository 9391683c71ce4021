#include "TextPrinter.h"

#include <QtCore/QDateTime>

#include <utility>

namespace ZYN::Stdf {

namespace {

constexpr uint noSoftBin = 65535;
constexpr uint unknownCount = 4294967295U;

QString Time(uint seconds)
{
    return seconds == 0 ? QStringLiteral("-")
                        : QDateTime::fromSecsSinceEpoch(seconds, Qt::UTC).toString(Qt::ISODate);
}

QString Verdict(uint partFlags)
{
    if (partFlags & 1U << 2)
        return QStringLiteral("ABORTED");
    if (partFlags & 1U << 4)
        return QStringLiteral("-");
    return partFlags & 1U << 3 ? QStringLiteral("FAIL") : QStringLiteral("PASS");
}

QString Count(uint count)
{
    return count == unknownCount ? QStringLiteral("?") : QString::number(count);
}

QString LimitText(const std::optional<float>& limit)
{
    return limit ? QString::number(static_cast<double>(*limit), 'g', 6) : QStringLiteral("-");
}

/// Columns of fixed width: negative widths are filled on the left.
QString Row(std::initializer_list<std::pair<QString, int>> cells)
{
    QString line;
    for (const auto& [text, width] : cells) {
        line += width < 0 ? text.rightJustified(-width) : text.leftJustified(width);
        line += QStringLiteral("  ");
    }
    while (line.endsWith(u' '))
        line.chop(1);
    return line;
}

QString BinLine(const Record& bin, const QString& kind, const char* number, const char* count,
                const char* verdict, const char* name)
{
    return QStringLiteral("%1 bin %2: %3 parts %4 %5")
        .arg(kind, QString::number(bin.Number(number)), QString::number(bin.Number(count)), bin.Text(verdict),
             bin.Text(name))
        .trimmed();
}

} // namespace

TextPrinter::TextPrinter(std::function<void(const QString&)> output, bool onlyFailed)
    : print(std::move(output))
    , failedOnly(onlyFailed)
{
}

void TextPrinter::Take(const RawRecord& raw, const Record& record)
{
    if (!record.type) {
        ++records[QStringLiteral("(%1,%2)").arg(QString::number(raw.type), QString::number(raw.subType))];
        return;
    }
    ++records[QLatin1StringView(record.type->name)];
    if (record.Is("FAR"))
        defaults.Clear();
    else if (record.Is("MIR"))
        PrintHeader(record);
    else if (record.Is("PTR") || record.Is("MPR") || record.Is("FTR"))
        TakeTest(record);
    else if (record.Is("PRR"))
        PrintPart(record);
    else if (record.Is("HBR"))
        closing += BinLine(record, QStringLiteral("Hard"), "HBIN_NUM", "HBIN_CNT", "HBIN_PF", "HBIN_NAM");
    else if (record.Is("SBR"))
        closing += BinLine(record, QStringLiteral("Soft"), "SBIN_NUM", "SBIN_CNT", "SBIN_PF", "SBIN_NAM");
    else if (record.Is("PCR"))
        closing +=
            QStringLiteral("Counted: %1 parts, %2 good")
                .arg(Count(record.Number("PART_CNT")),
                     Count(record.Value("GOOD_CNT").isValid() ? record.Number("GOOD_CNT") : unknownCount));
    else if (record.Is("MRR"))
        closing += QStringLiteral("Finished: ") + Time(record.Number("FINISH_T"));
}

void TextPrinter::PrintHeader(const Record& mir)
{
    static constexpr std::pair<const char*, const char*> rows[] = {
        {"Lot", "LOT_ID"},       {"Sublot", "SBLOT_ID"},   {"Product", "PART_TYP"},
        {"Machine", "NODE_NAM"}, {"Tester", "TSTR_TYP"},   {"Program", "JOB_NAM"},
        {"Revision", "JOB_REV"}, {"Operator", "OPER_NAM"}, {"Facility", "FACIL_ID"}};
    if (partsBegun)
        print({});
    partsBegun = false;
    for (const auto& [title, field] : rows) {
        if (const QString text = mir.Text(field); !text.isEmpty())
            print(Row({{QLatin1StringView(title), 10}, {text, 0}}));
    }
    print(Row({{QStringLiteral("Started"), 10}, {Time(mir.Number("START_T")), 0}}));
}

void TextPrinter::PrintPart(const Record& prr)
{
    ++parts;
    if (failedOnly && !prr.HasFailed())
        return;
    if (!std::exchange(partsBegun, true)) {
        print({});
        print(Row({{QStringLiteral("Part"), -6},
                   {QStringLiteral("Site"), -6},
                   {QStringLiteral("Verdict"), 7},
                   {QStringLiteral("Hard bin"), -8},
                   {QStringLiteral("Soft bin"), -8},
                   {QStringLiteral("Tests"), -6},
                   {QStringLiteral("Time [s]"), -10},
                   {QStringLiteral("Ident"), 0}}));
    }
    const uint softBin = prr.Value("SOFT_BIN").isValid() ? prr.Number("SOFT_BIN") : noSoftBin;
    const QString site = QStringLiteral("%1/%2").arg(prr.Number("HEAD_NUM")).arg(prr.Number("SITE_NUM"));
    print(Row({{QString::number(parts), -6},
               {site, -6},
               {Verdict(prr.Number("PART_FLG")), 7},
               {QString::number(prr.Number("HARD_BIN")), -8},
               {softBin == noSoftBin ? QStringLiteral("-") : QString::number(softBin), -8},
               {QString::number(prr.Number("NUM_TEST")), -6},
               {QString::number(prr.Number("TEST_T") / 1000.0, 'f', 3), -10},
               {prr.Text("PART_ID"), 0}}));
}

void TextPrinter::TakeTest(const Record& test)
{
    const TestSettings settings = defaults.Complete(test);
    Test& entry = tests[{test.Number("TEST_NUM"), settings.text}];
    entry.settings = settings;
    ++entry.runs;
    entry.failed += test.HasFailed();
}

void TextPrinter::PrintTests()
{
    if (tests.isEmpty())
        return;
    print({});
    print(Row({{QStringLiteral("Test"), -6},
               {QStringLiteral("Runs"), -6},
               {QStringLiteral("Failed"), -6},
               {QStringLiteral("Low limit"), -13},
               {QStringLiteral("High limit"), -13},
               {QStringLiteral("Unit"), 6},
               {QStringLiteral("Scale"), -5},
               {QStringLiteral("Name"), 0}}));
    for (auto test = tests.constBegin(); test != tests.constEnd(); ++test) {
        if (failedOnly && test->failed == 0)
            continue;
        print(Row({{QString::number(test.key().first), -6},
                   {QString::number(test->runs), -6},
                   {QString::number(test->failed), -6},
                   {LimitText(test->settings.lowLimit), -13},
                   {LimitText(test->settings.highLimit), -13},
                   {test->settings.unit, 6},
                   {QString::number(test->settings.resultScale), -5},
                   {test->settings.text, 0}}));
    }
}

void TextPrinter::Finish(const Reader& reader)
{
    PrintTests();
    print({});
    for (const QString& line : std::as_const(closing))
        print(line);
    QStringList counts;
    for (auto record = records.constBegin(); record != records.constEnd(); ++record)
        counts += QStringLiteral("%1 %2").arg(QString::number(*record), record.key());
    print(QStringLiteral("STDF V4, %1%2; records: %3")
              .arg(reader.IsBigEndian() ? QStringLiteral("big-endian") : QStringLiteral("little-endian"),
                   reader.IsCompressed() ? QStringLiteral(", gzip") : QString(),
                   counts.isEmpty() ? QStringLiteral("none") : counts.join(QStringLiteral(", "))));
    if (const auto& fault = reader.GetFault())
        print(QStringLiteral("Damaged at offset %1: %2").arg(QString::number(fault->offset), fault->text));
}

} // namespace ZYN::Stdf
