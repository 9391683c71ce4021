#include "commands/Stations.h"

#include "kinds/ReportConversion.h"
#include "terminal/Problem.h"
#include "terminal/Texts.h"
#include "watch/EndSignals.h"

#include "examples/line_simulator/BusyStation.h"

#include <ZYNCommon/UUTTest.h>

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QSaveFile>

#include <chrono>
#include <condition_variable>
#include <mutex>
#include <stop_token>
#include <thread>
#include <vector>

#include <poll.h>

namespace ZYN::Tool {

namespace {

using Clock = std::chrono::steady_clock;

// One station: what it has to write, and how far it has come.
class StationWriter {
public:
    StationWriter(const Simulation::LineSettings& line, int number, const QString& folder)
        : m_station(line, number)
        , m_folder(folder)
        , m_stateFile(QStringLiteral("%1/.station-%2").arg(folder).arg(number, 2, 10, QLatin1Char('0')))
    {
        QFile state(m_stateFile);
        if (state.open(QIODevice::ReadOnly))
            m_written = m_tick = state.readAll().toInt();
    }

    void Tick()
    {
        const int until = ++m_tick;
        if (m_station.IsOffline(until - 1))
            return;
        // More than one where the network was lost, or the disk full.
        while (m_written < until && m_written < Simulation::BusyStation::panelsOfStation && Write())
            continue;
    }

private:
    bool Write()
    {
        const QString name = m_station.NameOf(m_written) + QLatin1String(".zyr");
        const std::optional<Problem> problem =
            ConvertTest(m_station.ReportOf(m_written).get(), name, m_folder + QLatin1Char('/') + name,
                        {.format = QStringLiteral("XML"), .replace = true});
        if (problem)
            PrintProblem(*problem);
        return !problem && Remember(m_written + 1);
    }

    // Killed before this it writes the report once more, under the same name.
    bool Remember(int written)
    {
        QSaveFile state(m_stateFile);
        if (state.open(QIODevice::WriteOnly) && state.write(QByteArray::number(written)) > 0 &&
            state.commit())
            m_written = written;
        else
            PrintProblem({m_stateFile, 0, Texts::tr("cannot be written"), {}});
        return m_written == written;
    }

    Simulation::BusyStation m_station;
    QString m_folder;
    QString m_stateFile;
    int m_tick = 0;    // the next one
    int m_written = 0; // the first tick whose report is not in the folder
};

void RunStation(const std::stop_token& ending, StationWriter station, Clock::duration each)
{
    std::mutex mutex;
    std::condition_variable_any woken;
    std::unique_lock lock(mutex);
    for (auto at = Clock::now(); !ending.stop_requested(); at += each) {
        woken.wait_until(lock, ending, at, [] { return false; });
        if (!ending.stop_requested())
            station.Tick();
    }
}

} // namespace

int RunStations(const StationSettings& stations, const Simulation::LineSettings& line, const QString& folder)
{
    EndSignals ending; // before the threads
    const Clock::duration each =
        std::chrono::duration_cast<Clock::duration>(std::chrono::minutes(1)) / stations.rate;
    std::vector<std::jthread> threads;
    for (int i = 0; i < stations.stations; ++i)
        threads.emplace_back(RunStation, StationWriter(line, stations.first + i, folder), each);
    pollfd signal{ending.Descriptor(), POLLIN, 0};
    poll(&signal, 1, stations.seconds > 0 ? stations.seconds * 1000 : -1);
    return ExitGood; // the threads end with the report in hand
}

} // namespace ZYN::Tool
