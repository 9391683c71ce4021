#include "ReportTree.h"

#include "ReportFile.h"
#include "ReportParts.h"
#include "Terminal.h"
#include "Texts.h"

#include <ZYNCommon/ProductType.h>
#include <ZYNCommon/ProductionLot.h>
#include <ZYNCommon/TestComponent.h>
#include <ZYNCommon/TestProgram.h>
#include <ZYNCommon/TestResult.h>
#include <ZYNCommon/TestResultSet.h>
#include <ZYNCommon/UUTTest.h>
#include <ZYNCommon/UnitUnderTest.h>
#include <ZYNCommon/ValidationInterface.h>
#include <ZYNCommon/ZYNSession.h>

#include <QtCore/QStringList>

#include <functional>

namespace ZYN::Tool {

namespace {

// One line of the tree.
struct Row {
    EN_ZYN_RESULT verdict;
    QString branches = {}; // what leads to the name: "│  ├─ "
    QString name = {};
    QString value = {};
    QString unit = {};
    QString limits = {};
    QString duration = {};
    QString comment = {};
    bool isUnit = false;
};

using RowSink = std::function<void(const Row&)>;

// Goes through a report in its order and hands out one row after the other. The tree is walked twice, for the
// widths of the columns and for printing, so that a report of any size is never held as text.
class Walker {
public:
    Walker(bool failedOnly, RowSink sink)
        : m_failedOnly(failedOnly)
        , m_sink(std::move(sink))
    {
    }

    void WalkPanel(const UUTTest* panel) const
    {
        EmitUnit(panel, QString());
        QList<const UUTTest*> items;
        for (const QSharedPointer<UUTTest>& item : panel->GetUUTTests())
            if (!m_failedOnly || item->GetResult() < 0)
                items.append(item.data());
        WalkRuns(panel, QString(), !items.isEmpty());
        for (qsizetype i = 0; i < items.size(); ++i) {
            const bool last = i + 1 == items.size();
            EmitUnit(items.at(i), Branch(last));
            WalkRuns(items.at(i), Stem(last), false);
        }
    }

private:
    static QString Branch(bool last) { return last ? QStringLiteral("└─ ") : QStringLiteral("├─ "); }
    static QString Stem(bool last) { return last ? QStringLiteral("   ") : QStringLiteral("│  "); }

    void EmitUnit(const UUTTest* test, const QString& branches) const
    {
        Row row{.verdict = test->GetResult(), .branches = branches, .isUnit = true};
        QStringList names;
        if (const auto unit = test->GetUnitUnderTest()) {
            if (unit->GetPanelIndex() > 0)
                names.append(QStringLiteral("%1:").arg(unit->GetPanelIndex()));
            names << unit->GetName() << unit->GetSerialNo();
            names.removeAll(QString());
            if (names.isEmpty())
                names.append(unit->GetIdentString());
        }
        row.name = Harmless(names.isEmpty() ? Texts::tr("unknown unit") : names.join(QLatin1Char(' ')));
        row.duration = test->GetDurationStringFormated();
        row.comment = Harmless(test->GetResultDescription());
        m_sink(row);
    }

    // The groups of the only run, or the runs with their groups.
    void WalkRuns(const UUTTest* test, const QString& stem, bool unitsFollow) const
    {
        const QList<TestResultSet*> runs = test->GetResultSets();
        for (qsizetype i = 0; i < runs.size(); ++i) {
            const TestResultSet* const run = runs.at(i);
            if (!run->GetTestProgram())
                continue;
            const Part program = PartOf(run, run->GetTestProgram().data());
            if (runs.size() == 1) {
                WalkChildren(run, program, stem, unitsFollow);
                continue;
            }
            const bool last = i + 1 == runs.size() && !unitsFollow;
            Emit(program, Texts::tr("Run %1").arg(run->GetTestIndex() > 0 ? run->GetTestIndex() : i + 1),
                 program, stem + Branch(last));
            WalkChildren(run, program, stem + Stem(last), false);
        }
    }

    void WalkChildren(const TestResultSet* run, const Part& parent, const QString& stem,
                      bool moreFollow) const
    {
        const QList<Part> children = ChildrenOf(run, parent, m_failedOnly);
        for (qsizetype i = 0; i < children.size(); ++i) {
            const bool last = i + 1 == children.size() && !moreFollow;
            const Part& child = children.at(i);
            const Part only = OnlyMeasurement(run, child);
            Emit(child, child.component->GetName(), only.component ? only : child, stem + Branch(last));
            if (!only.component)
                WalkChildren(run, child, stem + Stem(last), false);
        }
    }

    // \param measured where value and limits come from: the part itself or the measurement that stands for it
    void Emit(const Part& part, const QString& name, const Part& measured, const QString& branches) const
    {
        Row row{.verdict = part.Verdict(), .branches = branches, .name = Harmless(name)};
        if (measured.result) {
            row.value = Harmless(measured.HasValue() ? ValueText(measured.result) : QString());
            if (!row.value.isEmpty())
                row.unit = Harmless(UnitText(measured.result));
            else if (measured.Verdict() == ZYN_RESULT_FAILED && measured.result->GetValidation())
                row.value = Texts::tr("(empty)");
            row.limits = Harmless(LimitsText(measured.result->GetValidation().data()));
            row.comment = Harmless(measured.result->GetComment());
        }
        if (part.result && part.result->GetDuration() > 0.0)
            row.duration = part.result->GetDurationStringFormated();
        m_sink(row);
    }

    bool m_failedOnly;
    RowSink m_sink;
};

// Columns of the widest texts. Longer ones (comments of operators, hostile names) push their row to the right
// instead of all rows.
struct Widths {
    int verdict = 0;
    int name = 0;
    int value = 0;
    int unit = 0;
    int limits = 0;
    int duration = 0;

    static void Widen(int* width, const QString& text, int most)
    {
        *width = qMax(*width, qMin(Columns(text), most));
    }

    void Take(const Row& row)
    {
        Widen(&verdict, TestResult::ResultToString(row.verdict), 16);
        Widen(&name, row.branches + row.name, 44);
        Widen(&value, row.value, 16);
        Widen(&unit, row.unit, 8);
        Widen(&limits, row.limits, 26);
        Widen(&duration, row.duration, 14);
    }
};

Style StyleOf(EN_ZYN_RESULT verdict)
{
    if (verdict == ZYN_RESULT_FAILED)
        return Style::Bad;
    if (verdict < 0)
        return Style::Odd;
    return verdict == ZYN_RESULT_PASSED ? Style::Good : Style::Dim;
}

void PrintRow(const Row& row, const Widths& widths)
{
    const bool failed = row.verdict < 0;
    QString line =
        Paint(PadRight(TestResult::ResultToString(row.verdict), widths.verdict), StyleOf(row.verdict));
    line += QStringLiteral("  ") + Paint(row.branches, Style::Dim);
    const QString name = PadRight(row.name, widths.name - Columns(row.branches));
    line += row.isUnit ? Paint(name, Style::Bold) : failed ? Paint(name, StyleOf(row.verdict)) : name;
    const QString value = PadLeft(row.value, widths.value);
    line += QStringLiteral("  ") + (failed ? Paint(value, StyleOf(row.verdict)) : value);
    line += QLatin1Char(' ') + PadRight(row.unit, widths.unit);
    line += QStringLiteral("  ") + PadRight(row.limits, widths.limits);
    line += QStringLiteral("  ") + Paint(PadLeft(row.duration, widths.duration), Style::Dim);
    if (!row.comment.isEmpty())
        line += QStringLiteral("  ") + row.comment;
    while (line.endsWith(QLatin1Char(' ')))
        line.chop(1);
    Print(line + QLatin1Char('\n'));
}

// "a · b · c" of what is there.
QString Listed(QStringList texts)
{
    texts.removeAll(QString());
    return Harmless(texts.join(QStringLiteral(" · ")));
}

// What the test was: product and lot, then where and with which program.
void PrintHeader(const UUTTest* test, const QString& fileName)
{
    Print(Paint(Harmless(fileName), Style::Bold) + QLatin1Char('\n'));
    QStringList what;
    if (const auto type = test->GetProductType())
        what << type->GetName() << type->GetArticelCode() << type->GetDescription();
    if (const auto lot = test->GetProductionLot())
        what << (lot->GetName().isEmpty() ? QString() : Texts::tr("lot %1").arg(lot->GetName()))
             << lot->GetOrderCode();
    const TestResultSet* run = test->GetResultSets().value(0);
    if (!run && !test->GetUUTTests().isEmpty())
        run = test->GetUUTTests().first()->GetResultSets().value(0);
    const QDateTime start = test->GetStartTime();
    QStringList where{start.isValid() ? start.toString(QStringLiteral("yyyy-MM-dd HH:mm:ss"))
                                      : test->GetStartTimeString()};
    if (run && run->GetTestProgram())
        where << (run->GetTestProgram()->GetDisplayName() + QLatin1Char(' ') +
                  run->GetTestProgram()->GetVersion())
                     .trimmed();
    if (run)
        where << run->GetStationDescription();
    if (const ZYNSession* const session = test->GetSession())
        where << session->GetMachineName() << session->GetCurrentUserName();
    for (const QString& line : {Listed(what), Listed(where)})
        if (!line.isEmpty())
            Print(line + QLatin1Char('\n'));
    Print(QStringLiteral("\n"));
}

} // namespace

std::optional<Problem> ShowReport(const QString& path, const QString& name, const ShowOptions& options)
{
    std::optional<Problem> problem;
    const std::unique_ptr<UUTTest> test = ReadDamagedReport(path, name, &problem);
    if (!test || (options.failedOnly && test->GetResult() >= 0))
        return problem;
    Widths widths;
    Walker(options.failedOnly, [&](const Row& row) { widths.Take(row); }).WalkPanel(test.get());
    PrintHeader(test.get(), name);
    Walker(options.failedOnly, [&](const Row& row) { PrintRow(row, widths); }).WalkPanel(test.get());
    return problem;
}

} // namespace ZYN::Tool
