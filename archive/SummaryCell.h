#pragma once

#include "archive/Arrays.h"
#include "archive/figures/MeasuredFigures.h"

#include <QtCore/QByteArray>
#include <QtCore/QStringList>

#include <tuple>

/// \file
/// Figures of a day, kept in arrays by position as values are, so that questions about months need not read
/// those.

namespace ZYN {

/// What figures are kept by. Limits of 0: none.
struct SummaryKey {
    QString product, station;
    qint64 layout = 0, limits = 0;
    qint64 day = 0; ///< since 1970, by the tester's clock

    auto Tie() const { return std::tie(product, station, layout, limits, day); }
    bool operator<(const SummaryKey& other) const { return Tie() < other.Tie(); }
};

/// How many days a tester's clock may be from UTC: 14 hours, and there are wrong ones.
constexpr qint64 farthestDays = 2;
constexpr qint64 millisecondsOfDay = qint64(24) * 3600 * 1000;
/// The day of runs whose start cannot be read.
constexpr qint64 unreadableDay = 2147483647;
/// Of a run's start and offset.
qint64 DayOf(std::int64_t start, const std::optional<int>& utcOffset);

/// By position.
struct SummaryCell {
    std::int64_t runs = 0;
    std::vector<Figures::MeasuredFigures> figures;

    void Add(const Run& run);
    /// The same of a run as it is kept. \param texts a JSON object, may be empty
    void AddKept(const QByteArray& values, const QByteArray& codes, const QByteArray& texts);
    void Merge(const SummaryCell& other);

private:
    Figures::MeasuredFigures& At(std::size_t position);
};

/// Names of the columns that hold figures.
const QStringList& SummaryColumns();
/// A cell as an array for each of these columns.
QVariantList ArraysOfSummary(const SummaryCell& cell, ArrayStyle style);
/// And back. \param positions where not empty, only these are read: true for those that are wanted
std::vector<Figures::MeasuredFigures> FiguresOfSummary(const QList<QByteArray>& arrays,
                                                       const std::vector<bool>& positions = {});

} // namespace ZYN
