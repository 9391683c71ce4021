#include "questions/MeasureList.h"

#include "questions/FigureText.h"
#include "terminal/Table.h"
#include "terminal/Texts.h"

namespace ZYN::Tool {

namespace {

// Below 1 some of the good units are bad by chance alone.
Style StyleOfCpk(const std::optional<double>& cpk)
{
    return cpk && *cpk < 1 ? Style::Bad : Style::Plain;
}

// "1:3 2:1", how often each rule hit.
QString RulesText(const std::vector<RuleHit>& hits)
{
    QStringList texts;
    for (int rule = 1; rule <= 3; ++rule) {
        const auto count =
            std::count_if(hits.begin(), hits.end(), [&](const RuleHit& hit) { return hit.rule == rule; });
        if (count > 0)
            texts.append(QStringLiteral("%1:%2").arg(rule).arg(count));
    }
    return texts.join(QLatin1Char(' '));
}

} // namespace

QString DriftText(const std::optional<Drift>& drift)
{
    if (!drift)
        return {};
    const QString kind = drift->kind == QLatin1String("trend") ? Texts::tr("trend") : Texts::tr("step");
    const QString sign = drift->sigmas > 0 ? QStringLiteral("+") : QString();
    return QStringLiteral("%1 %2%3 σ").arg(kind, sign, QString::number(drift->sigmas, 'f', 1));
}

void PrintMeasureList(const std::vector<MeasureRow>& rows)
{
    using Side = TableColumn::Side;
    QList<TableColumn> columns{{Texts::tr("CPK"), Side::Right}, {Texts::tr("Failed"), Side::Right}};
    for (const auto& [name, value] : rows.front().group)
        columns.append({TitleOfGroup(name), Side::Left, true});
    columns.append({{Texts::tr("Ident")},
                    {Texts::tr("Path"), Side::Left, true},
                    {Texts::tr("Drift")},
                    {Texts::tr("Mean"), Side::Right, false, true},
                    {Texts::tr("Limits"), Side::Left, false, true},
                    {Texts::tr("Sigma"), Side::Right, false, true},
                    {Texts::tr("Values"), Side::Right, false, true},
                    {Texts::tr("Rules"), Side::Left, false, true}});
    Table table(columns);
    for (const MeasureRow& row : rows) {
        const Scale scale(row.unit, row.style);
        QList<TableCell> cells{{row.cpk ? QString::number(*row.cpk, 'f', 2) : QString(), StyleOfCpk(row.cpk)},
                               row.failed > 0 ? QString::number(row.failed) : QString()};
        for (const auto& [name, value] : row.group)
            cells.append(Harmless(value));
        cells.append({Harmless(row.ident),
                      Harmless(row.path),
                      {DriftText(row.drift), Style::Odd},
                      scale.WithUnit(row.mean),
                      scale.Limits(row.lower, row.upper),
                      scale.Number(row.sigma),
                      QString::number(row.count),
                      RulesText(row.rules)});
        table.Add(cells);
    }
    table.Print();
}

} // namespace ZYN::Tool
