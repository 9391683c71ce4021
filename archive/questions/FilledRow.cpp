#include "archive/questions/FilledRow.h"

#include "archive/figures/Cpk.h"

namespace ZYN {

namespace {

// An operator such as "==" tells no end of an interval.
Figures::Bounds BoundsOf(const Judgement& judgement)
{
    const auto bound = [](const std::optional<double>& limit, const std::string& limitOperator) {
        return limitOperator == "<" || limitOperator == "<=" ? limit : std::nullopt;
    };
    return {bound(judgement.lower, judgement.lowerOperator), bound(judgement.upper, judgement.upperOperator),
            judgement.inverted};
}

} // namespace

MeasureRow FilledRow(const MeasuredItem& item, const Figures::MeasuredFigures& figures)
{
    MeasureRow row;
    row.ident = item.ident;
    row.path = item.path;
    row.unit = item.unit;
    row.style = item.style;
    row.lower = item.judgement.lower;
    row.upper = item.judgement.upper;
    row.count = figures.all.GetCount();
    row.mean = figures.all.GetMean();
    row.sigma = figures.all.GetSigma();
    row.min = figures.all.GetMin();
    row.max = figures.all.GetMax();
    const Figures::Bounds bounds = BoundsOf(item.judgement);
    row.cpk = Figures::Cpk(figures.all, bounds);
    row.cpkPassed = Figures::Cpk(figures.passed, bounds);
    row.failed = figures.failed;
    row.notNumbers = figures.notNumbers;
    return row;
}

} // namespace ZYN
