#include "page/LotSections.h"

#include "page/Html.h"
#include "page/LotPictures.h"
#include "page/MeasureSection.h"
#include "page/NumberText.h"
#include "page/PageTexts.h"
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

QString Figures(const LotAnswers& answers)
{
    QString text;
    for (const YieldRow& row : answers.yield) {
        if (answers.yield.size() > 1)
            text += QStringLiteral("<h3>%1</h3>\n").arg(Escaped(GroupText(row.group)));
        text += Cards(row);
    }
    return text;
}

QString Section(const QString& title, const QString& hint, const QString& content)
{
    return QStringLiteral("<section><h3>%1</h3><p class=\"hint\">%2</p>%3</section>\n")
        .arg(title, hint, content);
}

QString OverTime(const LotAnswers& answers)
{
    const std::vector<YieldPoint> points = YieldPoints(answers);
    if (points.empty())
        return {};
    const QString title = Texts::tr("Yield over time");
    const QByteArray plot = SvgPlot(
        {plotWidth, 220}, title, Texts::tr("From %1 to %2").arg(points.front().label, points.back().label),
        [&](QPainter& painter, const QRectF& area) { DrawYieldOverTime(painter, area, points); });
    return Section(title, Texts::tr("Solid: yield; dashed: first pass; bars: units."),
                   QStringLiteral("<div class=\"pan\">%1</div>").arg(QString::fromUtf8(plot)));
}

QString BarPlot(const QString& title, const QString& hint, const std::vector<Bar>& bars)
{
    if (bars.empty())
        return {};
    QStringList description;
    for (const Bar& bar : bars)
        description.append(bar.label + QStringLiteral(": ") + bar.text);
    const QByteArray plot = SvgPlot(
        {plotWidth, double(bars.size()) * barHeight + 4}, title, description.join(QStringLiteral("; ")),
        [&](QPainter& painter, const QRectF& area) { DrawBars(painter, area, bars); });
    return Section(title, hint, QStringLiteral("<div class=\"pan\">%1</div>").arg(QString::fromUtf8(plot)));
}

QString ByPosition(const LotAnswers& answers)
{
    const std::vector<PanelPlace> places = PanelPlaces(answers);
    if (places.empty())
        return {};
    const auto [worst, best] =
        std::minmax_element(places.begin(), places.end(), [](const PanelPlace& a, const PanelPlace& b) {
            return double(a.row->passed) * double(b.row->units) <
                   double(b.row->passed) * double(a.row->units);
        });
    const bool differ = worst->row->passed * best->row->units != best->row->passed * worst->row->units;
    QString text = QStringLiteral("<section><h3>%1</h3><div class=\"pan\"><table class=\"map\">"
                                  "<caption>%2</caption><tr>")
                       .arg(Texts::tr("Yield by position on the panel"),
                            Texts::tr("Share of units that passed; the worst place stands out."));
    const std::size_t columns = PanelColumns(places.size());
    for (std::size_t i = 0; i < places.size(); ++i) {
        if (i > 0 && i % columns == 0)
            text += QStringLiteral("</tr>\n<tr>");
        const YieldRow& row = *places[i].row;
        text += QStringLiteral("<td%1><span class=\"hint\">%2</span><b>%3</b>%4</td>")
                    .arg(differ && &places[i] == &*worst ? QStringLiteral(" class=\"worst\"") : QString(),
                         Escaped(places[i].name), Percent(double(row.passed), double(row.units)),
                         Of(row.passed, row.units));
    }
    for (std::size_t i = places.size(); i % columns != 0; ++i)
        text += QStringLiteral("<td></td>");
    return text + QStringLiteral("</tr></table></div></section>\n");
}

QString WaferMaps(const LotAnswers& answers)
{
    QString text;
    for (const WaferDies& wafer : Wafers(answers)) {
        const auto passed = std::count_if(wafer.dies.begin(), wafer.dies.end(),
                                          [](const WaferDies::Die& die) { return die.passed; });
        const QString share = Share(double(passed), double(wafer.dies.size()));
        const QByteArray plot =
            SvgPlot({waferSize, waferSize}, Texts::tr("Wafer %1").arg(wafer.name), share,
                    [&](QPainter& painter, const QRectF& area) { DrawWafer(painter, area, wafer); });
        text += QStringLiteral("<figure>%1<figcaption>%2<br>%3</figcaption></figure>\n")
                    .arg(QString::fromUtf8(plot), Escaped(wafer.name), share);
    }
    return text.isEmpty() ? QString()
                          : Section(Texts::tr("Wafers"), Texts::tr("Dies that did not pass stand out."),
                                    QStringLiteral("<div class=\"wafers\">%1</div>").arg(text));
}

QString Notes(const LotAnswers& answers)
{
    QString text;
    for (const QString& note : answers.notes)
        text += QStringLiteral("<p class=\"hint\">%1</p>\n").arg(Escaped(note));
    return text;
}

QString Overview(const LotAnswers& answers)
{
    return QStringLiteral("<div class=\"two\">\n") + OverTime(answers) +
           BarPlot(Texts::tr("What failed first"),
                   Texts::tr("Share of all first failures, and in how many runs."), FailureBars(answers)) +
           BarPlot(Texts::tr("Yield by station"),
                   Texts::tr("The worst first, by what is sure of its failure rate."), StationBars(answers)) +
           ByPosition(answers) +
           BarPlot(Texts::tr("Yield by site"),
                   Texts::tr("The worst first, by what is sure of its failure rate."), SiteBars(answers)) +
           BarPlot(Texts::tr("Bins"), Texts::tr("Share of all units."), BinBars(answers)) +
           QStringLiteral("</div>\n") + WaferMaps(answers);
}

} // namespace

bool WriteLotSection(QIODevice& device, const LotAnswers& answers, int number, bool isOneOfSeveral)
{
    const UnitTables units(answers, number);
    const MeasureSection measures(answers, number, units);
    QString text = QStringLiteral("<article>\n");
    if (isOneOfSeveral)
        text += QStringLiteral("<h2>%1</h2>\n").arg(Escaped(TitleOf({{answers.product, answers.lot}})));
    text += Facts(answers) + Notes(answers) + Figures(answers) + measures.LookAtThis() + Overview(answers) +
            measures.Table();
    const auto write = [&](const QString& part) {
        const QByteArray bytes = part.toUtf8();
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
