#include "questions/Summary.h"

#include "questions/FigureText.h"
#include "terminal/Terminal.h"
#include "terminal/Texts.h"

#include <QtCore/QJsonArray>

#include <algorithm>

namespace ZYN::Tool {

namespace {

constexpr std::size_t listLength = 5;

QString YieldText(const YieldRow& row)
{
    if (row.units == 0) // a program for panels, which are no units
        return {};
    const QString yield = Texts::tr("Yield");
    const QString firstPass = Texts::tr("First-pass yield");
    const int width = qMax(Columns(yield), Columns(firstPass));
    return QStringLiteral("%1  %2\n%3  %4\n")
        .arg(PadRight(yield, width), ShareText(row.passed, row.units), PadRight(firstPass, width),
             ShareText(row.firstPass, row.firstRuns));
}

QString FailuresText(const std::vector<FailureRow>& rows, std::int64_t all)
{
    if (rows.empty())
        return {};
    int width = 0;
    for (const FailureRow& row : rows)
        width = qMax(width, Columns(ShareText(row.first, all)));
    QString text = QLatin1Char('\n') + Texts::tr("Failed first") + QLatin1Char('\n');
    for (const FailureRow& row : rows)
        text += QStringLiteral("  %1  %2\n")
                    .arg(PadLeft(ShareText(row.first, all), width),
                         Harmless(row.ident + QLatin1Char(' ') + row.path));
    return text;
}

QString CpkText(const std::optional<double>& cpk)
{
    return PadLeft(cpk ? QString::number(*cpk, 'f', 2) : QStringLiteral("-"), 8);
}

QString MeasuresText(const std::vector<MeasureRow>& rows)
{
    if (rows.empty())
        return {};
    QString text = QLatin1Char('\n') + Texts::tr("Smallest CPK: of all values, of those that passed") +
                   QLatin1Char('\n');
    for (const MeasureRow& row : rows)
        text += QStringLiteral("%1%2  %3  [%4]\n")
                    .arg(CpkText(row.cpk), CpkText(row.cpkPassed),
                         Harmless(row.ident + QLatin1Char(' ') + row.path),
                         Scale(row.unit, row.style).Limits(row.lower, row.upper));
    return text;
}

} // namespace

std::optional<Summary> Summary::Ask(const Archive& archive)
{
    const std::optional<std::vector<YieldRow>> yields = AskYield(archive, {}, {GroupBy::Program});
    const std::optional<std::vector<FailureRow>> failures = AskFailures(archive, {}, false);
    const std::optional<std::vector<MeasureRow>> measures = AskMeasures(archive, {}, {});
    if (!yields || !failures || !measures)
        return std::nullopt;
    Summary summary;
    for (const YieldRow& row : *yields)
        summary.m_programs.push_back({.name = row.group.front().second, .yield = row});
    // Rows do not name the program where there is but one. Those of panels alone have no yield.
    const auto programOf = [&](const AnswerGroup& group) -> Program& {
        std::vector<Program>& programs = summary.m_programs;
        const QString name = group.empty() ? QString() : group.front().second;
        auto found = std::find_if(programs.begin(), programs.end(), [&](const Program& program) {
            return group.empty() || program.name == name;
        });
        return found == programs.end() ? programs.emplace_back(Program{.name = name}) : *found;
    };
    for (const FailureRow& row : *failures) {
        Program& program = programOf(row.group);
        program.firstFailures += row.first;
        if (program.failures.size() < listLength)
            program.failures.push_back(row);
    }
    for (const MeasureRow& row : *measures)
        if (Program& program = programOf(row.group); row.cpk && program.measures.size() < listLength)
            program.measures.push_back(row);
    return summary;
}

QString Summary::ToText() const
{
    QStringList texts;
    for (const Program& program : m_programs) {
        const QString title = program.name.isEmpty() ? Texts::tr("Without a program")
                                                     : Texts::tr("Program %1").arg(program.name);
        texts +=
            (m_programs.size() > 1 ? Paint(Harmless(title), Style::Bold) + QLatin1Char('\n') : QString()) +
            YieldText(program.yield) + FailuresText(program.failures, program.firstFailures) +
            MeasuresText(program.measures);
    }
    return texts.join(QLatin1Char('\n'));
}

QList<QJsonObject> Summary::ToJson() const
{
    const auto number = [](const std::optional<double>& figure) {
        return figure ? QJsonValue(*figure) : QJsonValue();
    };
    QList<QJsonObject> objects;
    for (const Program& program : m_programs) {
        QJsonArray failures, measures;
        for (const FailureRow& row : program.failures)
            failures.append(QJsonObject{{QStringLiteral("ident"), row.ident},
                                        {QStringLiteral("path"), row.path},
                                        {QStringLiteral("runs"), qint64(row.first)}});
        for (const MeasureRow& row : program.measures)
            measures.append(QJsonObject{{QStringLiteral("ident"), row.ident},
                                        {QStringLiteral("path"), row.path},
                                        {QStringLiteral("unit"), row.unit},
                                        {QStringLiteral("lower"), number(row.lower)},
                                        {QStringLiteral("upper"), number(row.upper)},
                                        {QStringLiteral("cpk"), number(row.cpk)},
                                        {QStringLiteral("cpkPassed"), number(row.cpkPassed)}});
        objects.append(QJsonObject{{QStringLiteral("program"), program.name},
                                   {QStringLiteral("units"), qint64(program.yield.units)},
                                   {QStringLiteral("passed"), qint64(program.yield.passed)},
                                   {QStringLiteral("passedFirst"), qint64(program.yield.firstPass)},
                                   {QStringLiteral("firstFailures"), failures},
                                   {QStringLiteral("smallestCpk"), measures}});
    }
    return objects;
}

} // namespace ZYN::Tool
