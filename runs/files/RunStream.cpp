#include "runs/files/RunStream.h"

#include "runs/StdfRuns.h"

#include <algorithm>
#include <utility>

namespace ZYN {

namespace {

constexpr std::size_t runsOfPiece = 100;
constexpr std::size_t runsWaiting = 2 * runsOfPiece;

// \return false when nobody takes any more
bool ReadReport(ReportRuns& reports, const std::string& file, std::size_t index, RunQueue* queue)
{
    RunQueue::Piece piece{.isLast = true};
    piece.fault = reports.ReadFile(file, &piece.runs);
    return queue->Put(index, std::move(piece));
}

// A lot may hold any number of runs. What stands before damage is taken.
bool ReadLot(StdfRuns& lots, const std::string& file, std::size_t index, RunQueue* queue)
{
    RunQueue::Piece piece;
    bool goesOn = true;
    std::optional<RunFault> fault = lots.ReadFile(file, [&](Run&& run) {
        piece.runs.push_back(std::move(run));
        if (piece.runs.size() >= runsOfPiece)
            goesOn = queue->Put(index, std::exchange(piece, {}));
        return goesOn;
    });
    if (!goesOn)
        return false;
    piece.fault = std::move(fault);
    piece.bins = lots.Bins();
    piece.isLast = true;
    return queue->Put(index, std::move(piece));
}

} // namespace

RunStream::RunStream(std::vector<std::string> files)
    : m_files(std::move(files))
    , m_queue(runsWaiting)
{
    const std::size_t cores = std::max(1U, std::thread::hardware_concurrency());
    for (std::size_t i = 0; i < std::min(cores, m_files.size()); ++i)
        m_readers.emplace_back([this] { Read(); });
}

RunStream::~RunStream()
{
    m_queue.Close();
}

// Reads files one after the other until there are none, or nobody takes their runs.
void RunStream::Read()
{
    ReportRuns reports;
    StdfRuns lots;
    bool goesOn = true;
    for (std::size_t index = m_next++; goesOn && index < m_files.size(); index = m_next++) {
        const std::string& file = m_files[index];
        goesOn = StdfRuns::IsStdf(file) ? ReadLot(lots, file, index, &m_queue)
                                        : ReadReport(reports, file, index, &m_queue);
    }
}

} // namespace ZYN
