#include "page/LotPdf.h"

#include "page/LotPage.h"
#include "page/LotPictures.h"
#include "page/NumberText.h"
#include "page/PageTexts.h"
#include "page/PdfSheet.h"
#include "page/PlotFrame.h"

#include <algorithm>

namespace ZYN::Page {

namespace {

constexpr double measurementHeight = 330; // a third of a page
constexpr double textHeight = 66;         // above its plots
constexpr double headingPixels = 13;

void Heading(PdfSheet& sheet, const QString& text, double needed)
{
    sheet.Need(needed + headingPixels * 3);
    sheet.Skip(headingPixels);
    sheet.Line(text, headingPixels, Ink::Text, true);
}

void Facts(PdfSheet& sheet, const LotAnswers& answers)
{
    for (const auto& [name, value] : FactsOf(answers))
        sheet.Paragraph(name + QStringLiteral(": ") + value, Ink::Faint);
    for (const QString& note : answers.notes)
        sheet.Paragraph(note, Ink::Faint);
}

void Cards(PdfSheet& sheet, const YieldRow& row)
{
    const std::vector<CardText> cards = CardsOf(row);
    sheet.Skip(6);
    sheet.Plot(62, [&](QPainter& painter, const QRectF& area) {
        const double width = area.width() / double(cards.size());
        for (std::size_t i = 0; i < cards.size(); ++i) {
            const QPointF at(area.left() + double(i) * width, area.top() + 6);
            painter.setFont(PlotFont());
            DrawLabel(painter, at, Qt::AlignLeft | Qt::AlignTop, Ink::Faint, cards[i].title);
            DrawLabel(painter, at + QPointF(0, 40), Qt::AlignLeft | Qt::AlignTop, Ink::Faint,
                      cards[i].detail);
            QFont large = PlotFont();
            large.setPixelSize(20);
            large.setBold(true);
            painter.setFont(large);
            painter.setPen(ColourOf(cards[i].isBad ? Ink::Bad : Ink::Text));
            painter.drawText(at + QPointF(0, 34), cards[i].figure);
        }
    });
}

void Measurement(PdfSheet& sheet, const LotAnswers& answers, std::size_t index)
{
    const MeasureRow& row = answers.Rows()[index];
    sheet.Need(measurementHeight);
    sheet.Line(NameOf(row), 11, Ink::Text, true);
    sheet.Paragraph(Texts::tr("%n values, mean %1, sigma %2, limits %3, CPK %4 (of passed %5), %6 failed",
                              nullptr, int(row.count))
                        .arg(MeanOf(row), SigmaOf(row), Limits(row), Capability(row.cpk),
                             Capability(row.cpkPassed), QString::number(row.failed)),
                    Ink::Faint);
    if (row.drift)
        sheet.Line(DriftSentence(*row.drift), 9, Ink::Mark);
    if (const QString rules = RulesSentence(row); !rules.isEmpty())
        sheet.Line(rules, 9, Ink::Faint);
    const MeasureData data = DataOf(row, answers.measures->NumbersOf(index));
    sheet.Plot(measurementHeight - textHeight, [&](QPainter& painter, const QRectF& area) {
        const double middle = area.width() * 0.36;
        const QRectF inside = area.adjusted(0, 4, 0, -12);
        DrawHistogram(painter, QRectF(inside.topLeft(), QSizeF(middle - 10, inside.height())), data);
        DrawTrend(painter, inside.adjusted(middle, 0, 0, 0), data);
    });
}

void BarPlot(PdfSheet& sheet, const QString& title, const std::vector<Bar>& bars)
{
    if (bars.empty())
        return;
    const double height = double(bars.size()) * barHeight + 4;
    Heading(sheet, title, std::min(height, 200.0));
    sheet.Plot(height, [&](QPainter& painter, const QRectF& area) { DrawBars(painter, area, bars); });
}

void OverTime(PdfSheet& sheet, const ProgramRows& rows)
{
    const std::vector<YieldPoint> points = YieldPoints(rows.rows);
    if (points.empty())
        return;
    Heading(sheet, TitleOf(Texts::tr("Yield over time"), rows.program), 200);
    sheet.Paragraph(Texts::tr("Solid: yield; dashed: first pass; bars: units."), Ink::Faint);
    sheet.Plot(200, [&](QPainter& painter, const QRectF& area) { DrawYieldOverTime(painter, area, points); });
}

void Positions(PdfSheet& sheet, const ProgramRows& rows)
{
    const std::vector<PanelPlace> places = PanelPlaces(rows.rows);
    if (places.empty())
        return;
    constexpr double cellHeight = 40;
    const std::size_t columns = PanelColumns(places.size());
    const std::size_t lines = (places.size() + columns - 1) / columns;
    Heading(sheet, TitleOf(Texts::tr("Yield by position on the panel"), rows.program),
            double(lines) * cellHeight);
    sheet.Plot(double(lines) * cellHeight, [&](QPainter& painter, const QRectF& area) {
        const double width = std::min(110.0, area.width() / double(columns));
        painter.setFont(PlotFont());
        for (std::size_t i = 0; i < places.size(); ++i) {
            const QRectF cell(area.left() + double(i % columns) * width,
                              area.top() + double(i / columns) * cellHeight, width - 4, cellHeight - 4);
            painter.setPen(PlotPen(Ink::Grid));
            painter.drawRect(cell);
            const YieldRow& row = places[i].row;
            DrawLabel(painter, {cell.left() + 6, cell.top() + 3}, Qt::AlignLeft | Qt::AlignTop, Ink::Faint,
                      places[i].name);
            DrawLabel(painter, {cell.right() - 6, cell.top() + 3}, Qt::AlignRight | Qt::AlignTop, Ink::Text,
                      Percent(double(row.passed), double(row.units)));
            DrawLabel(painter, {cell.right() - 6, cell.top() + 18}, Qt::AlignRight | Qt::AlignTop, Ink::Faint,
                      Of(row.passed, row.units));
        }
    });
}

void WaferMaps(PdfSheet& sheet, const LotAnswers& answers)
{
    constexpr std::size_t columns = 4;
    constexpr double space = 16;
    const std::vector<WaferDies> wafers = Wafers(answers);
    const double width = sheet.GetWidth() / double(columns);
    const double height = width + 2 * space;
    if (!wafers.empty())
        Heading(sheet, Texts::tr("Wafers"), height);
    for (std::size_t first = 0; first < wafers.size(); first += columns)
        sheet.Plot(height, [&](QPainter& painter, const QRectF& area) {
            for (std::size_t i = first; i < std::min(first + columns, wafers.size()); ++i) {
                const QRectF place(area.left() + double(i - first) * width, area.top(), width - space,
                                   width - space);
                DrawWafer(painter, place, wafers[i]);
                painter.setFont(PlotFont());
                DrawLabel(painter, place.bottomLeft(), Qt::AlignLeft | Qt::AlignTop, Ink::Text,
                          wafers[i].name);
                DrawLabel(painter, place.bottomLeft() + QPointF(0, space), Qt::AlignLeft | Qt::AlignTop,
                          Ink::Faint, PassedShare(wafers[i]));
            }
        });
}

void MeasurementTable(PdfSheet& sheet, const LotAnswers& answers)
{
    Heading(sheet, Texts::tr("Measurements"), 100);
    if (answers.Rows().empty()) {
        sheet.Paragraph(Texts::tr("No run has measured a number."), Ink::Faint);
        return;
    }
    sheet.BeginTable({{0, 0.36, false, Texts::tr("Measurement")},
                      {0.36, 0.42, false, Texts::tr("Ident")},
                      {0.42, 0.62, true, Texts::tr("Limits")},
                      {0.62, 0.73, true, Texts::tr("Mean")},
                      {0.73, 0.83, true, Texts::tr("Sigma")},
                      {0.83, 0.89, true, Texts::tr("CPK")},
                      {0.89, 0.95, true, Texts::tr("Values")},
                      {0.95, 1, true, Texts::tr("Failed")}});
    for (const MeasureRow& row : answers.Rows())
        sheet.Row({NameOf(row), row.ident, Limits(row), MeanOf(row), SigmaOf(row), Capability(row.cpk),
                   QString::number(row.count), QString::number(row.failed)});
}

void UnitTable(PdfSheet& sheet, const QString& title, const std::vector<UnitRow>& units)
{
    if (units.empty())
        return;
    Heading(sheet, title, 100);
    sheet.BeginTable({{0, 0.28, false, Texts::tr("Serial")},
                      {0.28, 0.34, true, Texts::tr("Runs")},
                      {0.34, 0.44, false, Texts::tr("Last run")},
                      {0.44, 0.86, false, Texts::tr("Failed first")},
                      {0.86, 1, true, Texts::tr("Value")}});
    for (const UnitRow& unit : units)
        sheet.Row(
            {unit.serial, QString::number(unit.runs), VerdictOf(unit.code), unit.firstFailure,
             unit.failedValue ? Figure(unit.failedValue, unit.failedUnit, unit.failedStyle) : QString()});
}

void Lot(PdfSheet& sheet, const LotAnswers& answers)
{
    Facts(sheet, answers);
    for (const YieldRow& row : answers.yield) {
        if (answers.yield.size() > 1)
            Heading(sheet, ProgramOf(row.group), 70);
        Cards(sheet, row);
    }
    const std::vector<std::size_t> drifting = DriftingRows(answers);
    if (!drifting.empty()) {
        Heading(sheet, Texts::tr("Look at this"), measurementHeight);
        for (const std::size_t row : drifting)
            Measurement(sheet, answers, row);
    }
    for (const ProgramRows& rows : ByProgram(answers.overTime))
        OverTime(sheet, rows);
    BarPlot(sheet, Texts::tr("What failed first"), FailureBars(answers));
    BarPlot(sheet, Texts::tr("Yield by station"), StationBars(answers));
    for (const ProgramRows& rows : ByProgram(answers.byPosition))
        Positions(sheet, rows);
    BarPlot(sheet, Texts::tr("Yield by site"), SiteBars(answers));
    for (const ProgramRows& rows : ByProgram(answers.byBin))
        BarPlot(sheet, TitleOf(Texts::tr("Bins"), rows.program), BinBars(rows.rows));
    WaferMaps(sheet, answers);
    MeasurementTable(sheet, answers);
    UnitTable(sheet, Texts::tr("Failed units"), answers.failedUnits);
    UnitTable(sheet, Texts::tr("Units tested more than once"), answers.retestedUnits);
    if (!answers.Rows().empty())
        sheet.NewPage();
    for (std::size_t i = 0; i < answers.Rows().size(); ++i)
        Measurement(sheet, answers, i);
}

} // namespace

bool WriteLotPdf(const Archive& archive, const Subject& subject, QIODevice& device)
{
    const std::vector<LotName>& lots = subject.lots;
    const QString title = TitleOf(lots);
    PdfSheet sheet(device, title);
    sheet.Line(title, 20, Ink::Text, true);
    sheet.Paragraph(Texts::tr("Made from %1").arg(subject.inputs.join(QStringLiteral(", "))), Ink::Faint);
    for (std::size_t i = 0; i < lots.size(); ++i) {
        const std::optional<LotAnswers> answers = AskLot(archive, subject.filter, lots[i]);
        if (!answers)
            return false;
        if (i > 0)
            sheet.NewPage();
        if (lots.size() > 1)
            Heading(sheet, TitleOf({lots[i]}), 0);
        Lot(sheet, *answers);
    }
    return sheet.Finish();
}

} // namespace ZYN::Page
