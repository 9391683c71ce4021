#include "BusyStation.h"

#include <ZYNCommon/TestProgram.h>
#include <ZYNCommon/TestResult.h>
#include <ZYNCommon/TestResultSet.h>
#include <ZYNCommon/UUTTest.h>

namespace ZYN::Simulation {

namespace {

constexpr int shift = 40;         // ticks in which a network is lost once, or a clock wrong, at most
constexpr int longestOutage = 16; // ticks
constexpr int correctedAfter = 5; // ticks at least: somebody looks at the board first
constexpr qint64 clockErrors[] = {0, 0, 0, 0, 0, 86'400, -3'600, 180, -19'723 * qint64(86'400)}; // seconds

// What dice are thrown for.
constexpr int actDice = 1, earlierDice = 2, clockDice = 3, networkDice = 4;

// The operator looks at the first board once more and decides the other way.
void Correct(UUTTest* test)
{
    UUTTest* const unit = test->GetUUTTests().isEmpty() ? test : test->GetUUTTests().constFirst().get();
    const bool isGood = unit->GetResult() <= 0;
    for (TestResultSet* const set : unit->GetResultSets())
        set->GetResult(set->GetTestProgram().data())
            ->SetResult(isGood ? ZYN_RESULT_PASSED : ZYN_RESULT_FAILED);
    unit->SetResult(isGood ? ZYN_RESULT_PASSED : ZYN_RESULT_FAILED);
}

} // namespace

BusyStation::BusyStation(const LineSettings& settings, int station)
    : m_settings(settings)
    , m_line(settings)
    , m_station(station)
{
}

Random BusyStation::Dice(int purpose, int number) const
{
    return Random(m_settings.seed, (quint64(purpose) << 48) + (quint64(m_station) << 32) + quint64(number));
}

BusyStation::Act BusyStation::ActOf(int tick) const
{
    if (tick < correctedAfter)
        return Act::Test;
    const int thrown = Dice(actDice, tick).Below(20);
    return thrown == 0 ? Act::Copy : thrown == 1 ? Act::Correction : thrown <= 4 ? Act::Retest : Act::Test;
}

// Of which earlier tick a copy or a correction is: of one at which something was tested.
int BusyStation::TickBefore(int tick) const
{
    int earlier = qMax(0, tick - correctedAfter - Dice(earlierDice, tick).Below(10));
    while (ActOf(earlier) == Act::Copy || ActOf(earlier) == Act::Correction)
        --earlier; // the first ticks are tests
    return earlier;
}

bool BusyStation::IsOffline(int tick) const
{
    Random dice = Dice(networkDice, tick / shift);
    if (dice.Below(3) != 0)
        return false;
    const int since = dice.Below(shift - longestOutage);
    const int in = tick % shift;
    return in >= since && in < since + 4 + dice.Below(longestOutage - 4);
}

// In milliseconds. Stations and errors have milliseconds of their own, so that no two runs start at once.
qint64 BusyStation::ClockError(int tick) const
{
    const int error = Dice(clockDice, tick / shift).Below(int(std::size(clockErrors)));
    return clockErrors[error] * 1000 + error * 100 + m_station;
}

std::unique_ptr<UUTTest> BusyStation::Tested(int tick) const
{
    const bool isRetest = ActOf(tick) == Act::Retest;
    const int neighbour = m_station == 1 ? 2 : m_station - 1;
    const int panel =
        isRetest ? neighbour * panelsOfStation + tick - correctedAfter : m_station * panelsOfStation + tick;
    const quint64 attempt = isRetest ? quint64(m_station) * panelsOfStation + quint64(tick) : 0;
    return m_line.MakePanel({panel, m_line.StartOf(tick + 1).addMSecs(ClockError(tick)),
                             QStringLiteral("LINE2-FCT%1").arg(m_station), attempt});
}

std::unique_ptr<UUTTest> BusyStation::ReportOf(int tick) const
{
    const Act act = ActOf(tick);
    if (act != Act::Copy && act != Act::Correction)
        return Tested(tick);
    std::unique_ptr<UUTTest> test = Tested(TickBefore(tick));
    if (act == Act::Correction)
        Correct(test.get());
    return test;
}

QString BusyStation::NameOf(int tick) const
{
    return QStringLiteral("s%1-%2")
        .arg(m_station, 2, 10, QLatin1Char('0'))
        .arg(tick, 6, 10, QLatin1Char('0'));
}

} // namespace ZYN::Simulation
