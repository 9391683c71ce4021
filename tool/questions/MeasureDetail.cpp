#include "questions/MeasureDetail.h"

#include "questions/FigureText.h"
#include "questions/Histogram.h"
#include "questions/MeasureList.h"
#include "questions/VerdictCell.h"
#include "terminal/Blocks.h"
#include "terminal/Terminal.h"
#include "terminal/Texts.h"

#include <QtCore/QRegularExpression>

namespace ZYN::Tool {

namespace {

constexpr int widestPlot = 72;
constexpr qsizetype hitsShown = 3;
const QString indent = QStringLiteral("  ");

int PlotColumns()
{
    const int columns = OutputColumns();
    return columns > 0 ? qBound(20, columns - int(indent.size()), widestPlot) : widestPlot;
}

// Names and figures side by side.
class FigureLines {
public:
    void Add(const QString& name, const QString& text, Style style = Style::Plain)
    {
        if (!text.isEmpty())
            m_lines.append({name, {text, style}});
    }
    void Print() const
    {
        int width = 0;
        for (const auto& [name, cell] : m_lines)
            width = qMax(width, Columns(name));
        for (const auto& [name, cell] : m_lines)
            Tool::Print(indent + PadRight(name, width) + indent + Paint(cell.text, cell.style) +
                        QLatin1Char('\n'));
    }

private:
    QList<std::pair<QString, TableCell>> m_lines;
};

QString PlaceText(const RunPlace& place)
{
    return Texts::tr("unit %1 at %2").arg(Harmless(place.serial), Harmless(place.start));
}

QString RuleText(const MeasureRow& row, int rule)
{
    QStringList serials;
    qsizetype count = 0;
    for (const RuleHit& hit : row.rules)
        if (hit.rule == rule && ++count <= hitsShown)
            serials.append(Harmless(hit.since.serial));
    if (count > hitsShown)
        serials.append(Texts::tr("and %n more", nullptr, int(count - hitsShown)));
    return serials.join(QLatin1String(", "));
}

QString CountText(const MeasureRow& row)
{
    QString text = Texts::tr("%1, failed %2")
                       .arg(QString::number(row.count), ShareText(row.failed, row.count + row.notNumbers));
    if (row.notNumbers > 0)
        text += Texts::tr(", not a number or infinite %1").arg(row.notNumbers);
    return text;
}

QString CpkText(const MeasureRow& row)
{
    if (!row.cpk)
        return {};
    const QString all = QString::number(*row.cpk, 'f', 2);
    return row.cpkPassed && row.cpkPassed != row.cpk
               ? Texts::tr("%1, of those that passed %2").arg(all, QString::number(*row.cpkPassed, 'f', 2))
               : all;
}

void PrintFigures(const MeasureRow& row, const Scale& scale)
{
    FigureLines lines;
    lines.Add(Texts::tr("Values"), CountText(row));
    lines.Add(Texts::tr("Limits"), scale.Limits(row.lower, row.upper));
    lines.Add(Texts::tr("CPK"), CpkText(row), row.cpk && *row.cpk < 1 ? Style::Bad : Style::Plain);
    if (row.mean) {
        const QString sigma = row.sigma ? Texts::tr(", sigma %1").arg(scale.WithUnit(row.sigma)) : QString();
        lines.Add(Texts::tr("Mean"), scale.WithUnit(row.mean) + sigma);
        lines.Add(Texts::tr("Range"), scale.Range(row.min, row.max));
    }
    if (row.drift)
        lines.Add(Texts::tr("Drift"),
                  Texts::tr("%1 since %2 (p = %3)")
                      .arg(DriftText(row.drift), PlaceText(row.drift->since),
                           QString::number(row.drift->p, 'g', 2)),
                  Style::Odd);
    lines.Add(Texts::tr("Beyond three sigma"), RuleText(row, 1));
    lines.Add(Texts::tr("Nine on one side of the mean"), RuleText(row, 2));
    lines.Add(Texts::tr("Six rising or falling"), RuleText(row, 3));
    lines.Print();
}

// Means of as many parts of time as there are columns.
std::vector<double> MeansOverTime(const std::vector<MeasuredValue>& values, int columns)
{
    const std::size_t parts = std::min(values.size(), std::size_t(columns));
    std::vector<double> sums(parts, 0.0), counts(parts, 0.0);
    for (std::size_t i = 0; i < values.size(); ++i) {
        sums[i * parts / values.size()] += values[i].value;
        counts[i * parts / values.size()] += 1;
    }
    for (std::size_t i = 0; i < parts; ++i)
        sums[i] /= counts[i];
    return sums;
}

// Values that failed are far away more often than not, and would make a straight line of all others.
void PrintOverTime(const MeasureRow& row)
{
    std::vector<MeasuredValue> passed;
    for (const MeasuredValue& value : row.values)
        if (value.code > 0)
            passed.push_back(value);
    if (passed.size() > 1)
        Print(QStringLiteral("\n") + indent + Texts::tr("Over time, what passed") + QLatin1Char('\n') +
              indent + Sparkline(MeansOverTime(passed, PlotColumns())) + QLatin1Char('\n'));
}

void PrintValues(const MeasureRow& row, const Scale& scale)
{
    Table table({{Texts::tr("Start")},
                 {Texts::tr("Serial")},
                 {Texts::tr("Lot")},
                 {Texts::tr("Value"), TableColumn::Side::Right},
                 {Texts::tr("Verdict")}});
    for (const MeasuredValue& value : row.values)
        table.Add({Harmless(value.start), Harmless(value.serial), Harmless(value.lot),
                   scale.WithUnit(value.value), VerdictCell(value.code)});
    table.Print();
}

} // namespace

void PrintMeasureDetail(const MeasureRow& row, bool withValues)
{
    const Scale scale(row.unit, row.style);
    QString title = Harmless(row.ident) + indent + Harmless(row.path);
    for (const auto& [name, value] : row.group)
        title += indent + Harmless(value);
    SeparateNext();
    Print(Paint(title, Style::Bold) + QLatin1Char('\n'));
    PrintFigures(row, scale);
    if (row.count > 0) {
        Print(QStringLiteral("\n"));
        for (const QString& line : Histogram(row, scale, PlotColumns()))
            Print(QString(indent + line).replace(QRegularExpression(QStringLiteral(" +$")), QString()) +
                  QLatin1Char('\n'));
    }
    PrintOverTime(row);
    if (withValues && row.count > 0) {
        Print(QStringLiteral("\n"));
        PrintValues(row, scale);
    }
}

} // namespace ZYN::Tool
