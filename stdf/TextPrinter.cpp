#include "TextPrinter.h"

#include "Texts.h"

#include <QtCore/QDateTime>

#include <cmath>
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

/// Whole numbers of a hexadecimal or binary unit by their digits.
QString LimitText(const std::optional<float>& limit, const QString& unit)
{
    constexpr float mostDigits = 4294967296.0F;
    if (!limit)
        return QStringLiteral("-");
    const int base = unit == QLatin1String("hex") ? 16 : unit == QLatin1String("bin") ? 2 : 10;
    if (base != 10 && *limit >= 0 && *limit < mostDigits && std::floor(*limit) == *limit)
        return QString::number(static_cast<qint64>(*limit), base);
    return QString::number(static_cast<double>(*limit), 'g', 6);
}

/// A column of a table, at least as wide as its title. Negative widths are filled on the left.
struct Column {
    QString title;
    int width;
};

QString Row(const QList<Column>& columns, const QStringList& cells)
{
    QString line;
    for (qsizetype i = 0; i < columns.size(); ++i) {
        const auto& [title, width] = columns.at(i);
        const int least = qMax(qAbs(width), int(title.size()));
        line += width < 0 ? cells.at(i).rightJustified(least) : cells.at(i).leftJustified(least);
        line += QStringLiteral("  ");
    }
    while (line.endsWith(u' '))
        line.chop(1);
    return line;
}

QString Titles(const QList<Column>& columns)
{
    QStringList titles;
    for (const Column& column : columns)
        titles += column.title;
    return Row(columns, titles);
}

QList<Column> PartColumns()
{
    return {{Texts::tr("Part"), -6},      {Texts::tr("Site"), -6},     {Texts::tr("Verdict"), 7},
            {Texts::tr("Hard bin"), -8},  {Texts::tr("Soft bin"), -8}, {Texts::tr("Tests"), -6},
            {Texts::tr("Time [s]"), -10}, {Texts::tr("Ident"), 0}};
}

QList<Column> TestColumns()
{
    return {{Texts::tr("Test"), -6},       {Texts::tr("Runs"), -6},        {Texts::tr("Failed"), -6},
            {Texts::tr("Low limit"), -13}, {Texts::tr("High limit"), -13}, {Texts::tr("Unit"), 6},
            {Texts::tr("Scale"), -5},      {Texts::tr("Name"), 0}};
}

QString BinLine(const Record& bin, const QString& kind, const char* number, const char* count,
                const char* verdict, const char* name)
{
    constexpr uint allHeads = 255;
    const QString place =
        bin.Number("HEAD_NUM") == allHeads
            ? QString()
            : QStringLiteral(" (%1/%2)").arg(bin.Number("HEAD_NUM")).arg(bin.Number("SITE_NUM"));
    return QStringLiteral("%1 %2%3: %4 %5 %6")
        .arg(kind, QString::number(bin.Number(number)), place,
             Texts::tr("%n parts", nullptr, int(bin.Number(count))), bin.Text(verdict), bin.Text(name))
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
    if (const auto found = record.Damage(); found && !damage)
        damage = found;
    if (record.Is("FAR"))
        defaults.Clear();
    else if (record.Is("MIR"))
        PrintHeader(record);
    else if (record.Is("PIR"))
        testsSeen.remove({record.Number("HEAD_NUM"), record.Number("SITE_NUM")});
    else if (record.Is("PTR") || record.Is("MPR") || record.Is("FTR"))
        TakeTest(record);
    else if (record.Is("PRR"))
        PrintPart(record);
    else if (record.Is("HBR"))
        Close(BinLine(record, Texts::tr("Hard bin"), "HBIN_NUM", "HBIN_CNT", "HBIN_PF", "HBIN_NAM"));
    else if (record.Is("SBR"))
        Close(BinLine(record, Texts::tr("Soft bin"), "SBIN_NUM", "SBIN_CNT", "SBIN_PF", "SBIN_NAM"));
    else if (record.Is("PCR"))
        Close(Texts::tr("Counted: %1 parts, %2 good")
                  .arg(Count(record.Number("PART_CNT")),
                       Count(record.Value("GOOD_CNT").isValid() ? record.Number("GOOD_CNT") : unknownCount)));
    else if (record.Is("MRR"))
        Close(Texts::tr("Finished: %1").arg(Time(record.Number("FINISH_T"))));
}

void TextPrinter::PrintHeader(const Record& mir)
{
    const std::pair<QString, QString> rows[] = {
        {Texts::tr("Lot"), mir.Text("LOT_ID")},        {Texts::tr("Sublot"), mir.Text("SBLOT_ID")},
        {Texts::tr("Product"), mir.Text("PART_TYP")},  {Texts::tr("Machine"), mir.Text("NODE_NAM")},
        {Texts::tr("Tester"), mir.Text("TSTR_TYP")},   {Texts::tr("Program"), mir.Text("JOB_NAM")},
        {Texts::tr("Revision"), mir.Text("JOB_REV")},  {Texts::tr("Operator"), mir.Text("OPER_NAM")},
        {Texts::tr("Facility"), mir.Text("FACIL_ID")}, {Texts::tr("Started"), Time(mir.Number("START_T"))}};
    if (partsBegun)
        print({});
    partsBegun = false;
    for (const auto& [title, text] : rows) {
        if (!text.isEmpty())
            print(Row({{{}, 10}, {{}, 0}}, {title, text}));
    }
}

// NUM_TEST has 16 bits only; on the other hand a tester may leave tests out of the file.
uint TextPrinter::TestsOf(const Record& prr)
{
    return qMax(testsSeen.take({prr.Number("HEAD_NUM"), prr.Number("SITE_NUM")}), prr.Number("NUM_TEST"));
}

void TextPrinter::PrintPart(const Record& prr)
{
    ++parts;
    const uint testCount = TestsOf(prr);
    if (failedOnly && !prr.HasFailed())
        return;
    if (!std::exchange(partsBegun, true)) {
        print({});
        print(Titles(PartColumns()));
    }
    const uint softBin = prr.Value("SOFT_BIN").isValid() ? prr.Number("SOFT_BIN") : noSoftBin;
    const QString site = QStringLiteral("%1/%2").arg(prr.Number("HEAD_NUM")).arg(prr.Number("SITE_NUM"));
    print(Row(PartColumns(), {QString::number(parts), site, Verdict(prr.Number("PART_FLG")),
                              QString::number(prr.Number("HARD_BIN")),
                              softBin == noSoftBin ? QStringLiteral("-") : QString::number(softBin),
                              QString::number(testCount),
                              QString::number(prr.Number("TEST_T") / 1000.0, 'f', 3), prr.Text("PART_ID")}));
}

void TextPrinter::TakeTest(const Record& test)
{
    ++testsSeen[{test.Number("HEAD_NUM"), test.Number("SITE_NUM")}];
    const TestSettings settings = defaults.Complete(test);
    const std::pair key{test.Number("TEST_NUM"), settings.text};
    if (tests.size() >= MaximumTests && !tests.contains(key)) {
        ++moreTests;
        return;
    }
    Test& entry = tests[key];
    if (entry.runs == 0 || !entry.settings.isGiven)
        entry.settings = settings;
    ++entry.runs;
    entry.failed += test.HasFailed();
}

void TextPrinter::Close(const QString& line)
{
    if (closing.size() < MaximumClosing)
        closing += line;
    else
        ++moreClosing;
}

void TextPrinter::PrintTests()
{
    if (failedOnly)
        tests.removeIf([](const auto& test) { return test->failed == 0; });
    if (tests.isEmpty())
        return;
    print({});
    const QList<Column> columns = TestColumns();
    print(Titles(columns));
    for (auto test = tests.constBegin(); test != tests.constEnd(); ++test) {
        print(Row(columns,
                  {QString::number(test.key().first), QString::number(test->runs),
                   QString::number(test->failed), LimitText(test->settings.lowLimit, test->settings.unit),
                   LimitText(test->settings.highLimit, test->settings.unit), test->settings.unit,
                   QString::number(test->settings.resultScale), test->settings.text}));
    }
    if (moreTests > 0)
        print(Texts::tr("and %1 records of more tests").arg(moreTests));
}

void TextPrinter::Finish(const Reader& reader)
{
    PrintTests();
    print({});
    for (const QString& line : std::as_const(closing))
        print(line);
    if (moreClosing > 0)
        print(Texts::tr("and %1 more bins and counts").arg(moreClosing));
    QStringList counts;
    for (auto record = records.constBegin(); record != records.constEnd(); ++record)
        counts += QStringLiteral("%1 %2").arg(QString::number(*record), record.key());
    print(Texts::tr("STDF V4, %1%2; records: %3")
              .arg(reader.IsBigEndian() ? Texts::tr("big-endian") : Texts::tr("little-endian"),
                   reader.IsCompressed() ? QStringLiteral(", gzip") : QString(),
                   counts.isEmpty() ? Texts::tr("none") : counts.join(QStringLiteral(", "))));
    if (!damage)
        damage = reader.GetFault();
    if (damage)
        print(Texts::tr("Damaged at offset %1: %2").arg(QString::number(damage->offset), damage->text));
}

} // namespace ZYN::Stdf
