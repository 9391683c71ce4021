#include "archive/questions/GroupColumns.h"

#include "archive/StartOfRun.h"
#include "archive/SummaryCell.h"
#include "archive/questions/ChosenRuns.h"

#include <QtCore/QDate>

namespace ZYN {

namespace {

struct Row {
    GroupBy by;
    const char* name;
    const char* column;
    std::int64_t milliseconds = 0; // of a part of time that is as long as any other
};

constexpr std::int64_t hourLength = std::int64_t(3600) * 1000;
constexpr std::int64_t dayLength = 24 * hourLength;

constexpr Row rows[] = {
    {GroupBy::Product, "product", "u.product"},
    {GroupBy::Lot, "lot", "u.lot"},
    {GroupBy::Station, "station", "r.station"},
    {GroupBy::Program, "program", "r.layout"},
    {GroupBy::Position, "position", "r.position"},
    {GroupBy::Site, "site", "r.site"},
    {GroupBy::Wafer, "wafer", "u.wafer"},
    {GroupBy::Bin, "bin", "r.hard_bin"},
    {GroupBy::Hour, "hour", nullptr, hourLength},
    {GroupBy::Day, "day", nullptr, dayLength},
    {GroupBy::Week, "week", nullptr, 7 * dayLength},
    {GroupBy::Month, "month", nullptr},
};

const Row& RowOf(GroupBy by)
{
    return rows[int(by)];
}

constexpr qint64 julian1970 = 2440588;              // day of 1970-01-01
constexpr std::int64_t mondayShift = 3 * dayLength; // 1970 began on a Thursday

// Number of the part since 1970. Divisions in SQL round towards 0, so years before are kept above it.
QString PartOfTime(std::int64_t milliseconds, std::int64_t shift)
{
    constexpr std::int64_t before = std::int64_t(4000) * 52 * 7 * dayLength; // a whole number of weeks
    return QStringLiteral("(%1 + %2) / %3 - %4")
        .arg(ChosenRuns::TesterClock(), QString::number(before + shift), QString::number(milliseconds),
             QString::number(before / milliseconds));
}

} // namespace

QStringList GroupNames()
{
    QStringList names;
    for (const Row& row : rows)
        names.append(QLatin1String(row.name));
    return names;
}

QString NameOf(GroupBy by)
{
    return QLatin1String(RowOf(by).name);
}

bool IsTime(GroupBy by)
{
    return RowOf(by).column == nullptr;
}

bool NeedsUnit(GroupBy by)
{
    return by == GroupBy::Product || by == GroupBy::Lot || by == GroupBy::Wafer;
}

QString ColumnOf(GroupBy by, bool isPostgreSql)
{
    const Row& row = RowOf(by);
    if (row.column)
        return QLatin1String(row.column);
    QString part;
    if (row.milliseconds > 0) {
        part = PartOfTime(row.milliseconds, by == GroupBy::Week ? mondayShift : 0);
    } else {
        const QString seconds = ChosenRuns::TesterClock() + QStringLiteral(" / 1000");
        part = isPostgreSql
                   ? QStringLiteral("to_char(to_timestamp(%1) AT TIME ZONE 'UTC', 'YYYY-MM')").arg(seconds)
                   : QStringLiteral("strftime('%Y-%m', %1, 'unixepoch')").arg(seconds);
    }
    return QStringLiteral("CASE WHEN r.start < %1 THEN %2 END").arg(QString::number(unreadableStart), part);
}

QString TextOf(GroupBy by, const QVariant& value)
{
    if (value.isNull())
        return {};
    const qint64 number = value.toLongLong();
    const auto dayText = [](qint64 day) {
        return QDate::fromJulianDay(julian1970 + day).toString(Qt::ISODate);
    };
    switch (by) {
    case GroupBy::Hour: {
        const qint64 day = number >= 0 ? number / 24 : -((23 - number) / 24);
        return QStringLiteral("%1 %2").arg(dayText(day)).arg(number - 24 * day, 2, 10, QLatin1Char('0'));
    }
    case GroupBy::Day:
        return dayText(number);
    case GroupBy::Week: {
        int year = 0;
        const int week = QDate::fromJulianDay(julian1970 + 7 * number - 3).weekNumber(&year);
        return QStringLiteral("%1-W%2").arg(year).arg(week, 2, 10, QLatin1Char('0'));
    }
    default:
        return value.toString();
    }
}

QString TextOfDay(GroupBy by, qint64 day)
{
    if (day == unreadableDay)
        return {};
    if (by == GroupBy::Month)
        return QDate::fromJulianDay(julian1970 + day).toString(QStringLiteral("yyyy-MM"));
    if (by == GroupBy::Week) {
        const qint64 sinceMonday = day + 3; // 1970 began on a Thursday
        return TextOf(by, sinceMonday >= 0 ? sinceMonday / 7 : -((6 - sinceMonday) / 7));
    }
    return TextOf(by, day);
}

} // namespace ZYN
