#include "loading/RunLoader.h"

#include "loading/InputRuns.h"
#include "terminal/Progress.h"

#include <QtCore/QElapsedTimer>

namespace ZYN::Tool {

namespace {

constexpr qsizetype runsOfBatch = 100;
constexpr std::size_t binsOfBatch = 10'000;
constexpr qint64 millisecondsOfBatch = 1000;

// Collects inputs until they are worth a transaction.
class Batch {
public:
    Batch(Archive& archive, const std::function<void(const LoadedInput&)>& tell)
        : m_archive(archive)
        , m_tell(tell)
    {
    }

    bool IsFull() const
    {
        return qsizetype(m_runs.size()) >= runsOfBatch || m_bins.size() >= binsOfBatch ||
               (!m_inputs.empty() && m_timer.elapsed() >= millisecondsOfBatch);
    }

    void Append(InputRuns::Piece piece)
    {
        if (m_inputs.empty())
            m_timer.start();
        if (m_inputs.empty() || m_inputs.back().isComplete)
            m_inputs.push_back({.loaded = {.input = piece.input}});
        Part& part = m_inputs.back();
        part.loaded.problem = std::move(piece.problem);
        part.runs += piece.runs.size();
        part.bins += piece.bins.size();
        part.isComplete = piece.isLast;
        std::move(piece.runs.begin(), piece.runs.end(), std::back_inserter(m_runs));
        std::move(piece.bins.begin(), piece.bins.end(), std::back_inserter(m_bins));
    }

    /// Adds what was collected and tells about the inputs that are complete.
    /// \return what is wrong with the archive
    std::optional<Problem> Write()
    {
        std::optional<Problem> failure = WriteTogether() ? std::nullopt : WriteOneByOne();
        std::vector<Part> unfinished; // at most the last one
        for (Part& part : m_inputs) {
            part.runs = part.bins = 0;
            if (part.isComplete || failure)
                m_tell(part.loaded);
            else
                unfinished.push_back(part);
        }
        m_inputs = std::move(unfinished);
        m_runs.clear();
        m_bins.clear();
        return failure;
    }

private:
    struct Part {
        LoadedInput loaded;
        size_t runs = 0, bins = 0; // that are to be written
        bool isComplete = false;
    };

    bool WriteTogether()
    {
        AddedRuns added;
        if (!Add(m_runs, m_bins, &added))
            return false;
        auto as = added.each.cbegin();
        for (Part& part : m_inputs)
            for (size_t i = 0; i < part.runs; ++i)
                Count(*as++, &part.loaded);
        return true;
    }

    // The names first: once runs are told to be added, nothing of their lot is missing.
    bool Add(std::span<const Run> runs, std::span<const LotBin> bins, AddedRuns* added)
    {
        return m_archive.AddBins(bins) && (runs.empty() || m_archive.Add(runs, added));
    }

    // Runs that the database does not take must not take others with them.
    std::optional<Problem> WriteOneByOne()
    {
        std::optional<Problem> failure = Failure();
        std::span<const Run> rest = m_runs;
        std::span<const LotBin> restOfBins = m_bins;
        for (Part& part : m_inputs) {
            AddedRuns added;
            if (!failure && !Add(rest.first(part.runs), restOfBins.first(part.bins), &added)) {
                part.loaded.problem = {part.loaded.input->name, 0, m_archive.GetErrorText(), {}};
                failure = Failure();
            }
            if (part.runs + part.bins > 0 && failure)
                part.loaded.problem = failure;
            for (const AddedAs as : added.each)
                Count(as, &part.loaded);
            rest = rest.subspan(part.runs);
            restOfBins = restOfBins.subspan(part.bins);
        }
        return failure;
    }

    // What keeps the archive from taking any runs.
    std::optional<Problem> Failure() const
    {
        if (m_archive.IsFaultOfRuns())
            return std::nullopt;
        return Problem{{}, 0, m_archive.GetErrorText(), {}};
    }

    static void Count(AddedAs as, LoadedInput* loaded)
    {
        ++(as == AddedAs::New ? loaded->added : as == AddedAs::Present ? loaded->present : loaded->revised);
    }

    Archive& m_archive;
    const std::function<void(const LoadedInput&)>& m_tell;
    std::vector<Part> m_inputs;
    std::vector<Run> m_runs;
    std::vector<LotBin> m_bins;
    QElapsedTimer m_timer; // since the first of them
};

} // namespace

std::optional<Problem> LoadRuns(Archive& archive, const QList<Input>& inputs, bool showProgress,
                                const std::function<void(const LoadedInput&)>& tell)
{
    InputRuns runs(inputs);
    Progress progress(inputs.size(), showProgress);
    Batch batch(archive, tell);
    std::optional<Problem> failure;
    qsizetype told = 0;
    while (!runs.IsAtEnd() && !failure) {
        InputRuns::Piece piece = runs.Take();
        const bool isComplete = piece.isLast;
        batch.Append(std::move(piece));
        if (batch.IsFull() || runs.IsAtEnd())
            failure = batch.Write();
        if (isComplete || failure) {
            progress.Step();
            ++told;
        }
    }
    for (; told < inputs.size(); ++told)
        tell({.input = &inputs.at(told), .problem = failure});
    return failure;
}

} // namespace ZYN::Tool
