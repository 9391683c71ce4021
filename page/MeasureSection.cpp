#include "page/MeasureSection.h"

#include "page/Html.h"
#include "page/LotPictures.h"
#include "page/NumberText.h"
#include "page/PageTexts.h"
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

QString FiguresOf(const MeasureRow& row)
{
    return Texts::tr("%n values, mean %1, sigma %2, limits %3", nullptr, int(row.count))
        .arg(Figure(row.mean, row.unit, row.style), Figure(row.sigma, row.unit, row.style), Limits(row));
}

// Failed dots that lead to their units.
QString Links(const std::vector<FailedDot>& dots, const MeasureRow& row,
              const std::vector<MeasuredValue>& values, const UnitTables& units)
{
    QString text;
    std::size_t count = 0;
    for (const FailedDot& dot : dots) {
        const MeasuredValue& value = values[dot.index];
        const QString link = units.LinkTo(value.serial);
        if (link.isEmpty() || ++count > mostLinks)
            continue;
        text +=
            QStringLiteral("<a href=\"%1\"><title>%2: %3</title><circle cx=\"%4\" cy=\"%5\" r=\"5\"/></a>")
                .arg(link, Escaped(value.serial), Escaped(Figure(value.value, row.unit, row.style)),
                     QString::number(qRound(dot.at.x())), QString::number(qRound(dot.at.y())));
    }
    return text;
}

} // namespace

MeasureSection::MeasureSection(const LotAnswers& answers, int number, const UnitTables& units)
    : m_answers(answers)
    , m_number(number)
    , m_units(units)
{
}

QString MeasureSection::Anchor(std::size_t row) const
{
    return QStringLiteral("m%1-%2").arg(QString::number(m_number), QString::number(row));
}

QString MeasureSection::Plots(std::size_t index) const
{
    const MeasureRow& row = m_answers.Rows()[index];
    const std::vector<MeasuredValue> values = m_answers.measures->ValuesOf(index);
    if (values.empty())
        return {};
    const MeasureData data = DataOf(row, values);
    const QString description = FiguresOf(row);
    const QByteArray histogram =
        SvgPlot(histogramSize, Texts::tr("How often: %1").arg(row.path), description,
                [&](QPainter& painter, const QRectF& area) { DrawHistogram(painter, area, data); });
    std::vector<FailedDot> failed;
    const QByteArray trend = SvgPlot(
        trendSize, Texts::tr("In order of time: %1").arg(row.path), description,
        [&](QPainter& painter, const QRectF& area) { failed = DrawTrend(painter, area, data); },
        [&] { return Links(failed, row, values, m_units); });
    return QStringLiteral("<div class=\"plots\"><div>%1</div><div class=\"pan\">%2</div></div>\n")
        .arg(QString::fromUtf8(histogram), QString::fromUtf8(trend));
}

QString MeasureSection::LookAtThis() const
{
    const std::vector<std::size_t> drifting = DriftingRows(m_answers);
    if (drifting.empty())
        return {};
    QString text =
        QStringLiteral("<section class=\"look\" aria-labelledby=\"look%1\">\n<h3 id=\"look%1\">%2</h3>\n")
            .arg(QString::number(m_number), Texts::tr("Look at this"));
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
        return {};
    QString text =
        QStringLiteral(
            "<h3>%1</h3>\n<div class=\"scroll\" tabindex=\"0\" role=\"region\" aria-label=\"%1\"><table>"
            "<caption>%2</caption>\n<thead><tr>")
            .arg(Texts::tr("Measurements"), Texts::tr("Lowest CPK first; each name leads to its pictures."));
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
        cell(Figure(row.mean, row.unit, row.style));
        cell(Figure(row.sigma, row.unit, row.style));
        cell(Capability(row.cpk), row.cpk && *row.cpk < 1);
        cell(Capability(row.cpkPassed));
        cell(QString::number(row.count));
        cell(QString::number(row.failed), row.failed > 0);
        text += QStringLiteral("</tr>\n");
    }
    return text + QStringLiteral("</tbody></table></div>\n<h3>%1</h3>\n<p class=\"hint\">%2</p>\n")
                      .arg(Texts::tr("Distributions and trends"),
                           Texts::tr("Curve: the normal distribution that fits. Solid line: mean; dashed: "
                                     "limits and where something began. Failed dots lead to their units."));
}

QString MeasureSection::Details(std::size_t index) const
{
    const MeasureRow& row = m_answers.Rows()[index];
    QString text = QStringLiteral("<details id=\"%1\"%2><summary>%3<span>CPK %4</span></summary>\n<div>")
                       .arg(Anchor(index), index < openAtFirst ? QStringLiteral(" open") : QString(),
                            Escaped(NameOf(row)), Capability(row.cpk));
    text += Hint(Escaped(FiguresOf(row)));
    if (row.drift)
        text += QStringLiteral("<p>%1</p>").arg(Escaped(DriftSentence(*row.drift)));
    text += Hint(Escaped(RulesSentence(row)));
    if (row.notNumbers > 0)
        text += Hint(Texts::tr("%n values are no finite number", nullptr, int(row.notNumbers)));
    return text + Plots(index) + QStringLiteral("</div></details>\n");
}

} // namespace ZYN::Page
