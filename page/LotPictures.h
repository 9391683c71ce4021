#pragma once

#include "page/GroupPlots.h"
#include "page/LotAnswers.h"
#include "page/MeasurePlots.h"

/// \file
/// What plots show, out of answers; the same on a web page and in a PDF.

namespace ZYN::Page {

/// Rows of one program.
struct ProgramRows {
    QString program; ///< empty where all rows are of one
    std::vector<YieldRow> rows;
};
/// Rows of different programs apart: a unit goes through all of them, and has a place in the figures of each.
std::vector<ProgramRows> ByProgram(const std::vector<YieldRow>& rows);
/// "Bins", or "Bins · Final test".
QString TitleOf(const QString& title, const QString& program);

std::vector<YieldPoint> YieldPoints(const std::vector<YieldRow>& overTime);
std::vector<Bar> StationBars(const LotAnswers& answers);
/// Of what failed first, with shares of all; rare ones are one bar.
std::vector<Bar> FailureBars(const LotAnswers& answers);
std::vector<Bar> BinBars(const std::vector<YieldRow>& byBin);
std::vector<Bar> SiteBars(const LotAnswers& answers);

/// A position on the panel.
struct PanelPlace {
    QString name;
    YieldRow row;
};
/// In their order; fewer than two are none.
std::vector<PanelPlace> PanelPlaces(const std::vector<YieldRow>& byPosition);
/// How many stand side by side.
std::size_t PanelColumns(std::size_t places);

/// The dies of each wafer, in the order of wafers.
std::vector<WaferDies> Wafers(const LotAnswers& answers);
/// "88.1 % (466 of 529)".
QString PassedShare(const WaferDies& wafer);

/// \param numbers of the row, borrowed by the result
MeasureData DataOf(const MeasureRow& row, const MeasuredNumbers& numbers);
/// Rows that drift, the farthest first.
std::vector<std::size_t> DriftingRows(const LotAnswers& answers);

/// "Lot L1 · Motor controller", or how many.
QString TitleOf(const std::vector<LotName>& lots);
/// "Stations: LINE2", "Programs: ...", "From ... to ...": label and text of what a lot is about.
std::vector<std::pair<QString, QString>> FactsOf(const LotAnswers& answers);

struct CardText {
    QString title, figure, detail;
    bool isBad = false;
};
/// The large figures of a program.
std::vector<CardText> CardsOf(const YieldRow& row);

} // namespace ZYN::Page
