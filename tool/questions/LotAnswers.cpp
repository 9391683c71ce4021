#include "LotAnswers.h"

#include "FigureText.h"
#include "RunLoader.h"
#include "Terminal.h"
#include "Texts.h"

#include <QtCore/QJsonArray>

namespace ZYN::Tool {

namespace {

constexpr std::size_t ListLength = 5;

// The first rows of a program; where there is but one, rows do not name it.
template <typename Row, typename IsShown>
std::vector<Row> RowsOf(const QString& program, const std::vector<Row>& rows, const IsShown& isShown)
{
    std::vector<Row> found;
    for (const Row& row : rows)
        if (found.size() < ListLength && (row.group.empty() || row.group.front().second == program) &&
            isShown(row))
            found.push_back(row);
    return found;
}

QString YieldText(const YieldRow& row)
{
    const QString yield = Texts::tr("Yield");
    const QString firstPass = Texts::tr("First-pass yield");
    const int width = qMax(Columns(yield), Columns(firstPass));
    return QStringLiteral("%1  %2\n%3  %4\n")
        .arg(PadRight(yield, width), ShareText(row.passed, row.units), PadRight(firstPass, width),
             ShareText(row.firstPass, row.firstRuns));
}

QString FailuresText(const std::vector<FailureRow>& rows)
{
    QString text;
    for (const FailureRow& row : rows)
        text += QStringLiteral("%1  %2\n")
                    .arg(PadLeft(QString::number(row.first), 8),
                         Harmless(row.ident + QLatin1Char(' ') + row.path));
    return text.isEmpty() ? text
                          : QLatin1Char('\n') + Texts::tr("First failures, and in how many runs") +
                                QLatin1Char('\n') + text;
}

QString CpkText(const std::optional<double>& cpk)
{
    return PadLeft(cpk ? QString::number(*cpk, 'f', 2) : QStringLiteral("-"), 8);
}

QString MeasuresText(const std::vector<MeasureRow>& rows)
{
    QString text;
    for (const MeasureRow& row : rows)
        text += CpkText(row.cpk) + CpkText(row.cpkPassed) +
                QStringLiteral("  %1  [%2]\n")
                    .arg(Harmless(row.ident + QLatin1Char(' ') + row.path),
                         Scale(row.unit, row.factor).Limits(row.lower, row.upper));
    return text.isEmpty()
               ? text
               : QLatin1Char('\n') + Texts::tr("Smallest CPK: of all values, of those that passed") +
                     QLatin1Char('\n') + text;
}

} // namespace

std::optional<LotAnswers> LotAnswers::Ask(const QList<Input>& inputs, Problem* problem)
{
    Archive archive;
    std::optional<Problem> failure;
    if (archive.OpenTemporary(true))
        failure = LoadRuns(archive, inputs, false, [](const LoadedInput&) {});
    const std::optional<std::vector<YieldRow>> yields = AskYield(archive, {}, {GroupBy::Program});
    const std::optional<std::vector<FailureRow>> failures = AskFailures(archive, {}, false);
    const std::optional<std::vector<MeasureRow>> measures = AskMeasures(archive, {}, {});
    if (failure || !yields || !failures || !measures) {
        *problem = failure ? *failure : Problem{{}, 0, archive.GetErrorText(), {}};
        return std::nullopt;
    }
    LotAnswers answers;
    for (const YieldRow& row : *yields) {
        const QString name = row.group.front().second;
        answers.m_programs.push_back(
            {row, name, RowsOf(name, *failures, [](const FailureRow&) { return true; }),
             RowsOf(name, *measures, [](const MeasureRow& measure) { return measure.cpk.has_value(); })});
    }
    return answers;
}

QString LotAnswers::ToText() const
{
    QStringList texts;
    for (const Program& program : m_programs) {
        const QString title = program.name.isEmpty() ? Texts::tr("Without a program")
                                                     : Texts::tr("Program %1").arg(program.name);
        texts +=
            (m_programs.size() > 1 ? Paint(Harmless(title), Style::Bold) + QLatin1Char('\n') : QString()) +
            YieldText(program.yield) + FailuresText(program.failures) + MeasuresText(program.measures);
    }
    return texts.join(QLatin1Char('\n'));
}

QList<QJsonObject> LotAnswers::ToJson() const
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
