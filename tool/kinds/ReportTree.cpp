#include "kinds/ReportTree.h"

#include "kinds/ReportFile.h"
#include "kinds/ReportParts.h"
#include "terminal/Terminal.h"
#include "terminal/Texts.h"

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

#include <algorithm>
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
    bool isIncomplete = false; // a unit of a damaged report: what that says is no verdict

    QString VerdictText() const
    {
        return isIncomplete ? IncompleteText() : TestResult::ResultToString(verdict);
    }
};

using RowSink = std::function<void(const Row&)>;

// Goes through a report in its order and hands out one row after the other. The tree is walked twice, for the
// widths of the columns and for printing, so that a report of any size is never held as text.
class Walker {
public:
    Walker(bool failedOnly, bool isIncomplete, RowSink sink)
        : m_failedOnly(failedOnly)
        , m_isIncomplete(isIncomplete)
        , m_sink(std::move(sink))
    {
    }

    void WalkPanel(const UUTTest* panel) const
    {
        EmitUnit(panel, QString());
        QList<const UUTTest*> items;
        for (const QSharedPointer<UUTTest>& item : panel->GetUUTTests())
            if (!m_failedOnly || HasFailed(item.data()))
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
        Row row{.verdict = test->GetResult(),
                .branches = branches,
                .isUnit = true,
                .isIncomplete = m_isIncomplete};
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
        if (HasPassedLater(test) && !m_isIncomplete)
            row.comment = Texts::tr("failed first, passed later") +
                          (row.comment.isEmpty() ? QString() : QStringLiteral(" · ") + row.comment);
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
    bool m_isIncomplete;
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
    int longestName = 0;
    int comment = 0;
    int line = 0; // columns of the terminal; 0 for none

    static void Widen(int* width, const QString& text, int most)
    {
        *width = qMax(*width, qMin(Columns(text), most));
    }

    void Take(const Row& row)
    {
        Widen(&verdict, row.VerdictText(), 16);
        Widen(&name, row.branches + row.name, 44);
        Widen(&longestName, row.branches + row.name, 1000);
        Widen(&comment, row.comment, 20);
        Widen(&value, row.value, 16);
        Widen(&unit, row.unit, 8);
        Widen(&limits, row.limits, 26);
        Widen(&duration, row.duration, 14);
    }

    // Gives the names what a terminal has room for.
    void FitInto(int columns)
    {
        constexpr int gaps = 2 + 2 + 1 + 2 + 2 + 2;
        constexpr int leastName = 20;
        line = columns;
        if (line > 0)
            name = qMin(longestName,
                        qMax(leastName, line - gaps - verdict - value - unit - limits - duration - comment));
    }
};

Style StyleOf(const Row& row)
{
    const EN_ZYN_RESULT verdict = row.verdict;
    if (row.isIncomplete)
        return Style::Odd;
    if (verdict == ZYN_RESULT_FAILED)
        return Style::Bad;
    if (verdict < 0)
        return Style::Odd;
    return verdict == ZYN_RESULT_PASSED ? Style::Good : Style::Dim;
}

void PrintRow(const Row& row, const Widths& widths)
{
    const Style failed = row.verdict < 0 ? StyleOf(row) : Style::Plain;
    const int room = widths.name - Columns(row.branches);
    const QString name = widths.line > 0 ? Cut(row.name, qMax(room, 8)) : row.name;
    const QString gap = QStringLiteral("  ");
    const std::pair<QString, Style> cells[] = {
        {PadRight(row.VerdictText(), widths.verdict), StyleOf(row)},
        {gap + row.branches, Style::Dim},
        {PadRight(name, room), row.isUnit ? Style::Bold : failed},
        {gap + PadLeft(row.value, widths.value), failed},
        {QLatin1Char(' ') + PadRight(row.unit, widths.unit), Style::Plain},
        {gap + PadRight(row.limits, widths.limits), Style::Plain},
        {gap + PadLeft(row.duration, widths.duration), Style::Dim}};
    QString line;
    int columns = 0;
    for (const auto& [text, style] : cells) {
        line += Paint(text, style);
        columns += Columns(text);
    }
    if (!row.comment.isEmpty())
        line += gap + (widths.line > 0 ? Cut(row.comment, widths.line - columns - 2) : row.comment);
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

// Why a report has no verdict, and which one it states.
void PrintDamage(const UUTTest* test, const Problem& problem)
{
    QString text = TextOf({problem.file, problem.line, problem.what, {}});
    if (test->GetResult() != ZYN_RESULT_NOT_TESTED)
        text += QStringLiteral("; ") + Texts::tr("it states %1").arg(test->GetResultString());
    Print(Paint(IncompleteText(), Style::Odd) + QStringLiteral("  ") + Harmless(text) + QLatin1Char('\n'));
}

// What the test was: product and lot, then where and with which program.
void PrintHeader(const UUTTest* test, const QString& fileName, const std::optional<Problem>& problem)
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
    if (problem)
        PrintDamage(test, *problem);
    Print(QStringLiteral("\n"));
}

// Whether a report has something that is shown when only what failed is wanted.
bool HasFailedSomewhere(const UUTTest* test)
{
    const QList<QSharedPointer<UUTTest>> items = test->GetUUTTests();
    return HasFailed(test) ||
           std::any_of(items.begin(), items.end(), [](const auto& item) { return HasFailed(item.data()); });
}

} // namespace

std::optional<Problem> ShowReport(const QString& path, const QString& name, const ShowOptions& options)
{
    std::optional<Problem> problem;
    const std::unique_ptr<UUTTest> test = ReadDamagedReport(path, name, &problem);
    const bool isIncomplete = problem.has_value();
    if (!test || (options.failedOnly && !isIncomplete && !HasFailedSomewhere(test.get())))
        return problem;
    Widths widths;
    Walker(options.failedOnly, isIncomplete, [&](const Row& row) { widths.Take(row); }).WalkPanel(test.get());
    widths.FitInto(OutputColumns());
    PrintHeader(test.get(), name, problem);
    Walker(options.failedOnly, isIncomplete, [&](const Row& row) {
        PrintRow(row, widths);
    }).WalkPanel(test.get());
    return problem;
}

} // namespace ZYN::Tool
