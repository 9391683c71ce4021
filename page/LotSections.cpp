#include "page/LotSections.h"

#include "page/Html.h"
#include "page/LotPictures.h"
#include "page/MeasureSection.h"
#include "page/NumberText.h"
#include "page/PageTexts.h"
#include "page/Part.h"
#include "page/SvgPlot.h"
#include "page/UnitTables.h"

#include <QtCore/QIODevice>

#include <algorithm>

namespace ZYN::Page {

namespace {

constexpr double plotWidth = 540;
constexpr double waferSize = 320;

QString Facts(const LotAnswers& answers)
{
    QString text = QStringLiteral("<ul class=\"facts\">\n");
    for (const auto& [name, value] : FactsOf(answers))
        text += QStringLiteral("<li><span>%1</span> %2</li>\n").arg(name, Escaped(value));
    return text + QStringLiteral("</ul>\n");
}

QString Cards(const YieldRow& row)
{
    QString text = QStringLiteral("<ul class=\"cards\">\n");
    for (const CardText& card : CardsOf(row))
        text += QStringLiteral("<li%1><span>%2</span><b>%3</b><span>%4</span></li>\n")
                    .arg(card.isBad ? QStringLiteral(" class=\"bad\"") : QString(), card.title, card.figure,
                         card.detail);
    return text + QStringLiteral("</ul>\n");
}

QString Figures(const LotAnswers& answers, const Part& part)
{
    QString text;
    for (const YieldRow& row : answers.yield) {
        if (answers.yield.size() > 1)
            text += part.Heading(Escaped(ProgramOf(row.group)));
        text += Cards(row);
    }
    return text;
}

QString Section(const Part& part, const QString& title, const QString& hint, const QString& content)
{
    return QStringLiteral("<section>%1<p class=\"hint\">%2</p>%3</section>\n")
        .arg(part.Heading(Escaped(title)), hint, content);
}

QString Pan(const QByteArray& plot)
{
    return QStringLiteral("<div class=\"pan\">%1</div>").arg(QString::fromUtf8(plot));
}

QString OverTime(const Part& part, const ProgramRows& rows)
{
    const std::vector<YieldPoint> points = YieldPoints(rows.rows);
    if (points.empty())
        return {};
    const QString title = TitleOf(Texts::tr("Yield over time"), rows.program);
    return Section(part, title, Texts::tr("Solid: yield; dashed: first pass; bars: units."),
                   Pan(SvgPlot({plotWidth, 220}, title,
                               Texts::tr("From %1 to %2").arg(points.front().label, points.back().label),
                               [&](QPainter& painter, const QRectF& area) {
                                   DrawYieldOverTime(painter, area, points);
                               })));
}

QString BarPlot(const Part& part, const QString& title, const QString& hint, const std::vector<Bar>& bars)
{
    if (bars.empty())
        return {};
    QStringList description;
    for (const Bar& bar : bars)
        description.append(bar.label + QStringLiteral(": ") + bar.text);
    return Section(
        part, title, hint,
        Pan(SvgPlot({plotWidth, double(bars.size()) * barHeight + 4}, title,
                    description.join(QStringLiteral("; ")),
                    [&](QPainter& painter, const QRectF& area) { DrawBars(painter, area, bars); })));
}

QString ByPosition(const Part& part, const ProgramRows& rows)
{
    const std::vector<PanelPlace> places = PanelPlaces(rows.rows);
    if (places.empty())
        return {};
    const auto [worst, best] =
        std::minmax_element(places.begin(), places.end(), [](const PanelPlace& a, const PanelPlace& b) {
            return double(a.row.passed) * double(b.row.units) < double(b.row.passed) * double(a.row.units);
        });
    const bool differ = worst->row.passed * best->row.units != best->row.passed * worst->row.units;
    QString text =
        QStringLiteral("<section>%1<div class=\"pan\"><table class=\"map\"><caption>%2</caption><tr>")
            .arg(part.Heading(Escaped(TitleOf(Texts::tr("Yield by position on the panel"), rows.program))),
                 Texts::tr("Share of units that passed; the worst place stands out."));
    const std::size_t columns = PanelColumns(places.size());
    for (std::size_t i = 0; i < places.size(); ++i) {
        if (i > 0 && i % columns == 0)
            text += QStringLiteral("</tr>\n<tr>");
        const YieldRow& row = places[i].row;
        text += QStringLiteral("<td%1><span class=\"hint\">%2</span><b>%3</b>%4</td>")
                    .arg(differ && &places[i] == &*worst ? QStringLiteral(" class=\"worst\"") : QString(),
                         Escaped(places[i].name), Percent(double(row.passed), double(row.units)),
                         Of(row.passed, row.units));
    }
    for (std::size_t i = places.size(); i % columns != 0; ++i)
        text += QStringLiteral("<td></td>");
    return text + QStringLiteral("</tr></table></div></section>\n");
}

// A plot for each program.
template <typename Draw>
QString OfEach(const std::vector<YieldRow>& rows, const Draw& draw)
{
    QString text;
    for (const ProgramRows& program : ByProgram(rows))
        text += draw(program);
    return text;
}

QString WaferMaps(const LotAnswers& answers, const Part& part)
{
    QString text;
    for (const WaferDies& wafer : Wafers(answers)) {
        const QString share = PassedShare(wafer);
        const QByteArray plot =
            SvgPlot({waferSize, waferSize}, Texts::tr("Wafer %1").arg(wafer.name), share,
                    [&](QPainter& painter, const QRectF& area) { DrawWafer(painter, area, wafer); });
        text += QStringLiteral("<figure>%1<figcaption>%2<br>%3</figcaption></figure>\n")
                    .arg(QString::fromUtf8(plot), Escaped(wafer.name), share);
    }
    return text.isEmpty() ? QString()
                          : Section(part, Texts::tr("Wafers"), Texts::tr("Dies that did not pass stand out."),
                                    QStringLiteral("<div class=\"wafers\">%1</div>").arg(text));
}

QString Notes(const LotAnswers& answers)
{
    QString text;
    for (const QString& note : answers.notes)
        text += QStringLiteral("<p class=\"hint\">%1</p>\n").arg(Escaped(note));
    return text;
}

QString Overview(const LotAnswers& answers, const Part& part)
{
    const QString surest = Texts::tr("The worst first, by what is sure of its failure rate.");
    return QStringLiteral("<div class=\"two\">\n") +
           OfEach(answers.overTime, [&](const ProgramRows& rows) { return OverTime(part, rows); }) +
           BarPlot(part, Texts::tr("What failed first"),
                   Texts::tr("Share of all first failures, and in how many runs."), FailureBars(answers)) +
           BarPlot(part, Texts::tr("Yield by station"), surest, StationBars(answers)) +
           OfEach(answers.byPosition, [&](const ProgramRows& rows) { return ByPosition(part, rows); }) +
           BarPlot(part, Texts::tr("Yield by site"), surest, SiteBars(answers)) +
           OfEach(answers.byBin,
                  [&](const ProgramRows& rows) {
                      return BarPlot(part, TitleOf(Texts::tr("Bins"), rows.program),
                                     Texts::tr("Share of all units."), BinBars(rows.rows));
                  }) +
           QStringLiteral("</div>\n") + WaferMaps(answers, part);
}

} // namespace

bool WriteLotSection(QIODevice& device, const LotAnswers& answers, const Part& part)
{
    const UnitTables units(answers, part);
    const MeasureSection measures(answers, part, units);
    QString text = QStringLiteral("<article>\n");
    if (part.isOneOfSeveral)
        text += QStringLiteral("<h2 id=\"lot%1\">%2</h2>\n")
                    .arg(QString::number(part.number), Escaped(TitleOf({{answers.product, answers.lot}})));
    text += Facts(answers) + Notes(answers) + Figures(answers, part) + measures.LookAtThis() +
            Overview(answers, part) + measures.Table();
    const auto write = [&](const QString& html) {
        const QByteArray bytes = html.toUtf8();
        return device.write(bytes) == bytes.size();
    };
    if (!write(text))
        return false;
    for (std::size_t i = 0; i < answers.Rows().size(); ++i)
        if (!write(measures.Details(i)))
            return false;
    return write(units.Html() + QStringLiteral("</article>\n"));
}

} // namespace ZYN::Page
