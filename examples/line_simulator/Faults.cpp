#include "Faults.h"

#include <limits>

namespace ZYN::Simulation {

namespace {

constexpr double overRange = std::numeric_limits<double>::infinity();
constexpr double noReading = std::numeric_limits<double>::quiet_NaN();
constexpr quint64 dealStream = 0xdea1'0000'0000'0000u; // keeps the deals apart from the boards' own numbers

QList<Fault> MakeFaults()
{
    return {
        {.cause = "cold joint at the coil of the 5 V converter",
         .effects = {{330, 331, 4.31, nullptr},
                     {330, 332, 0.074, nullptr},
                     {340, 341, 2.94, nullptr},
                     {430, 431, double(0x40e1), nullptr}}},
        {.cause = "gate driver of phase V missing",
         .effects = {{520, 521, 0.0, nullptr},
                     {520, 522, overRange, nullptr},
                     {540, 0, 1730.0, nullptr},
                     {430, 431, double(0x42c1), nullptr}}},
        {.cause = "47 nF placed at C21 instead of 100 nF",
         .effects = {{230, 232, 47.2e-9, nullptr}, {320, 322, 0.083, nullptr}}},
        {.cause = "CAN transceiver shorted",
         .effects = {{310, 0, 0.31, nullptr},
                     {560, 0, 71.5, nullptr},
                     {610, 611, 0.0, nullptr},
                     {610, 612, 0.04, nullptr},
                     {610, 613, 1184.0, nullptr}}},
        {.cause = "firmware of the last revision",
         .effects = {{410, 0, 0.0, "2.3.0"}, {430, 433, double(0b10010010), nullptr}}},
        {.cause = "crystal cracked",
         .effects = {{410, 0, 0.0, ""},
                     {420, 0, overRange, nullptr},
                     {430, 431, 0.0, nullptr},
                     {440, 441, noReading, nullptr},
                     {440, 442, 0.0, nullptr}}},
        {.cause = "probe does not touch",
         .effects = {{110, 0, 0.0, nullptr}, {210, 212, overRange, nullptr}},
         .goneOnRetest = true},
        {.cause = "operator presses stop",
         .stoppedAtStep = 530,
         .stop = ZYN_RESULT_ABORTED,
         .stopComment = "Stopped by the operator"},
        {.cause = "frequency counter hangs",
         .stoppedAtStep = 440,
         .stop = ZYN_RESULT_ERROR,
         .stopComment = "CNT1 does not answer within 2 s"},
    };
}

} // namespace

FaultDeck::FaultDeck(quint64 seed)
    : m_seed(seed)
{
}

const QList<Fault>& FaultDeck::All()
{
    static const QList<Fault> faults = MakeFaults();
    return faults;
}

const Fault* FaultDeck::ForBoard(quint64 board) const
{
    // The first entries of a shuffled deal (Fisher-Yates, only as far as there are faults).
    Random random(m_seed, dealStream + board / boardsPerDeal);
    const int place = int(board % boardsPerDeal);
    int places[boardsPerDeal];
    for (int i = 0; i < boardsPerDeal; ++i)
        places[i] = i;
    for (int i = 0; i < All().size(); ++i) {
        qSwap(places[i], places[i + random.Below(boardsPerDeal - i)]);
        if (places[i] == place)
            return &All().at(i);
    }
    return nullptr;
}

} // namespace ZYN::Simulation
