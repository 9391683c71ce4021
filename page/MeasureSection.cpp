#include "page/MeasureSection.h"

#include "page/Html.h"
#include "page/LotPictures.h"
#include "page/NumberText.h"
#include "page/PageTexts.h"
#include "page/Part.h"
#include "page/SvgPlot.h"
#include "page/UnitTables.h"

#include <algorithm>

namespace ZYN::Page {

namespace {

constexpr QSizeF histogramSize(380, 210);
constexpr QSizeF trendSize(680, 210);
constexpr std::size_t openAtFirst = 3;
constexpr std::size_t mostDrifting = 8;
constexpr std::size_t mostLinks = 40;

QString Hint(const QString& text)
{
    return text.isEmpty() ? QString() : QStringLiteral("<p class=\"hint\">%1</p>").arg(text);
}

QString Beside(const QString& text)
{
    return text.isEmpty() ? QString() : QStringLiteral("<span>%1</span>").arg(Escaped(text));
}

QString FiguresOf(const MeasureRow& row)
{
    return Texts::tr("%n values, mean %1, sigma %2, limits %3", nullptr, int(row.count))
        .arg(MeanOf(row), SigmaOf(row), Limits(row));
}

} // namespace

MeasureSection::MeasureSection(const LotAnswers& answers, const Part& part, const UnitTables& units)
    : m_answers(answers)
    , m_part(part)
    , m_units(units)
{
}

QString MeasureSection::Anchor(std::size_t row) const
{
    return QStringLiteral("m%1-%2").arg(QString::number(m_part.number), QString::number(row));
}

// Failed dots that lead to their units.
QString MeasureSection::Links(std::size_t index, const std::vector<FailedDot>& dots) const
{
    const MeasureRow& row = m_answers.Rows()[index];
    const std::span<const double> values = m_answers.measures->NumbersOf(index).values;
    QString text;
    std::size_t count = 0;
    for (const FailedDot& dot : dots) {
        const QString& serial = m_answers.measures->PlaceOf(index, dot.index).serial;
        const QString link = m_units.LinkTo(serial);
        if (link.isEmpty())
            continue;
        if (++count > mostLinks)
            break;
        text +=
            QStringLiteral("<a href=\"%1\"><title>%2: %3</title><circle cx=\"%4\" cy=\"%5\" r=\"5\"/></a>")
                .arg(link, Escaped(serial), Escaped(Figure(values[dot.index], row.unit, row.style)),
                     QString::number(qRound(dot.at.x())), QString::number(qRound(dot.at.y())));
    }
    return text;
}

QString MeasureSection::Plots(std::size_t index) const
{
    const MeasureRow& row = m_answers.Rows()[index];
    const MeasureData data = DataOf(row, m_answers.measures->NumbersOf(index));
    if (data.values.empty())
        return {};
    const QString description = FiguresOf(row);
    const QByteArray histogram =
        SvgPlot(histogramSize, Texts::tr("How often: %1").arg(row.path), description,
                [&](QPainter& painter, const QRectF& area) { DrawHistogram(painter, area, data); });
    std::vector<FailedDot> failed;
    const QByteArray trend = SvgPlot(
        trendSize, Texts::tr("In order of time: %1").arg(row.path), description,
        [&](QPainter& painter, const QRectF& area) { failed = DrawTrend(painter, area, data); },
        [&] { return Links(index, failed); });
    return QStringLiteral("<div class=\"plots\"><div>%1</div><div class=\"pan\">%2</div></div>\n")
        .arg(QString::fromUtf8(histogram), QString::fromUtf8(trend));
}

QString MeasureSection::LookAtThis() const
{
    const std::vector<std::size_t> drifting = DriftingRows(m_answers);
    if (drifting.empty())
        return {};
    const QString id = QStringLiteral("look%1").arg(m_part.number);
    QString text =
        QStringLiteral("<section class=\"look\" aria-labelledby=\"%1\">\n%2")
            .arg(id, m_part.Heading(Texts::tr("Look at this"), 0, QStringLiteral(" id=\"%1\"").arg(id)));
    for (std::size_t i = 0; i < drifting.size(); ++i) {
        const MeasureRow& row = m_answers.Rows()[drifting[i]];
        text += QStringLiteral("<p><a href=\"#%1\"><strong>%2</strong></a> %3</p>\n")
                    .arg(Anchor(drifting[i]), Escaped(NameOf(row)), Escaped(DriftSentence(*row.drift)));
        if (i < mostDrifting)
            text += Plots(drifting[i]);
    }
    return text + QStringLiteral("</section>\n");
}

QString MeasureSection::Table() const
{
    const std::vector<MeasureRow>& rows = m_answers.Rows();
    if (rows.empty())
        return m_part.Heading(Texts::tr("Measurements")) + Hint(Texts::tr("No run has measured a number."));
    QString text =
        QStringLiteral("%1<div class=\"scroll\" tabindex=\"0\" role=\"region\" aria-label=\"%2\"><table>"
                       "<caption>%3</caption>\n<thead><tr>")
            .arg(m_part.Heading(Texts::tr("Measurements")), Texts::tr("Measurements"),
                 Texts::tr("Lowest CPK first; each name leads to its pictures."));
    const QString columns[] = {Texts::tr("Measurement"),   Texts::tr("Ident"),  Texts::tr("Limits"),
                               Texts::tr("Mean"),          Texts::tr("Sigma"),  Texts::tr("CPK"),
                               Texts::tr("CPK of passed"), Texts::tr("Values"), Texts::tr("Failed")};
    for (int i = 0; const QString& column : columns)
        text += QStringLiteral("<th scope=\"col\"%1>%2</th>")
                    .arg(i++ < 2 ? QString() : QStringLiteral(" class=\"n\""), column);
    text += QStringLiteral("</tr></thead>\n<tbody>\n");
    const auto cell = [&](const QString& figure, bool isBad = false) {
        text += QStringLiteral("<td class=\"n%1\">%2</td>")
                    .arg(isBad ? QStringLiteral(" bad") : QString(), Escaped(figure));
    };
    for (std::size_t i = 0; i < rows.size(); ++i) {
        const MeasureRow& row = rows[i];
        text += QStringLiteral("<tr><th scope=\"row\"><a href=\"#%1\">%2</a></th><td>%3</td>")
                    .arg(Anchor(i), Escaped(NameOf(row)), Escaped(row.ident));
        cell(Limits(row));
        cell(MeanOf(row));
        cell(SigmaOf(row));
        cell(Capability(row.cpk), row.cpk && *row.cpk < 1);
        cell(Capability(row.cpkPassed));
        cell(QString::number(row.count));
        cell(QString::number(row.failed), row.failed > 0);
        text += QStringLiteral("</tr>\n");
    }
    return text +
           QStringLiteral("</tbody></table></div>\n%1<p class=\"hint\">%2</p>\n")
               .arg(
                   m_part.Heading(Texts::tr("Distributions and trends")),
                   Texts::tr(
                       "Curve: the normal distribution that fits without outliers. Solid line: mean; dashed: "
                       "limits and where something began. Failed dots lead to their units."));
}

QString MeasureSection::Details(std::size_t index) const
{
    const MeasureRow& row = m_answers.Rows()[index];
    QString text = QStringLiteral("<details id=\"%1\"%2><summary>%3%4%5</summary>\n<div>")
                       .arg(Anchor(index), index < openAtFirst ? QStringLiteral(" open") : QString(),
                            Escaped(NameOf(row)),
                            Beside(row.cpk ? QStringLiteral("CPK ") + Capability(row.cpk) : QString()),
                            // Tells apart what was judged by several limits.
                            Beside(row.lower || row.upper ? Limits(row) : QString()));
    text += Hint(Escaped(FiguresOf(row)));
    if (row.drift)
        text += QStringLiteral("<p>%1</p>").arg(Escaped(DriftSentence(*row.drift)));
    text += Hint(Escaped(RulesSentence(row)));
    if (row.notNumbers > 0)
        text += Hint(Texts::tr("%n values are no finite number", nullptr, int(row.notNumbers)));
    return text + Plots(index) + QStringLiteral("</div></details>\n");
}

} // namespace ZYN::Page
