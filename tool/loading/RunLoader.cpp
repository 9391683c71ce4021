#include "loading/RunLoader.h"

#include "files/Parallel.h"
#include "kinds/LotFile.h"
#include "kinds/ReportFile.h"
#include "loading/RunQueue.h"
#include "terminal/Progress.h"
#include "terminal/Texts.h"

#include "runs/StdfRuns.h"

#include <QtCore/QElapsedTimer>
#include <QtCore/QFile>

#include <atomic>

namespace ZYN::Tool {

namespace {

constexpr qsizetype RunsOfBatch = 100;
constexpr qint64 MillisecondsOfBatch = 1000;
constexpr qsizetype RunsWaiting = 2 * RunsOfBatch;

Problem ProblemOf(const Input& input, const RunFault& fault)
{
    QString text = QString::fromStdString(fault.text);
    if (fault.offset >= 0)
        text = AtOffset(fault.offset, text);
    if (fault.column > 0)
        text = Texts::tr("column %1: %2").arg(QString::number(fault.column), text);
    return {input.name, fault.line, text, {}};
}

// \return false when nobody takes any more
bool ReadReport(ReportRuns& reports, const std::string& path, const Input& input, qsizetype index,
                RunQueue* queue)
{
    RunQueue::Piece piece{.isLast = true};
    if (const std::optional<RunFault> fault = reports.ReadFile(path, &piece.runs))
        piece.problem = ProblemOf(input, *fault);
    for (Run& run : piece.runs)
        run.source = input.name.toStdString();
    return queue->Put(index, std::move(piece));
}

// A lot may hold any number of runs. What stands before damage is taken.
bool ReadLot(StdfRuns& lots, const std::string& path, const Input& input, qsizetype index, RunQueue* queue)
{
    RunQueue::Piece piece;
    bool goesOn = true;
    const std::optional<RunFault> fault = lots.ReadFile(path, [&](Run&& run) {
        run.source = input.name.toStdString();
        piece.runs.push_back(std::move(run));
        if (qsizetype(piece.runs.size()) >= RunsOfBatch)
            goesOn = queue->Put(index, std::exchange(piece, {}));
        return goesOn;
    });
    if (!goesOn)
        return false;
    if (fault)
        piece.problem = ProblemOf(input, *fault);
    piece.isLast = true;
    return queue->Put(index, std::move(piece));
}

// Reads inputs one after the other until there are none, or nobody takes their runs.
void ReadInputs(const QList<Input>& inputs, std::atomic<qsizetype>* next, RunQueue* queue)
{
    ReportRuns reports;
    StdfRuns lots;
    for (qsizetype index = (*next)++; index < inputs.size(); index = (*next)++) {
        const Input& input = inputs.at(index);
        const std::string path = QFile::encodeName(input.path).toStdString();
        const bool goesOn = StdfRuns::IsStdf(path) ? ReadLot(lots, path, input, index, queue)
                                                   : ReadReport(reports, path, input, index, queue);
        if (!goesOn)
            return;
    }
}

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
        return qsizetype(m_runs.size()) >= RunsOfBatch ||
               (!m_inputs.empty() && m_timer.elapsed() >= MillisecondsOfBatch);
    }

    void Append(const Input& input, RunQueue::Piece piece)
    {
        if (m_inputs.empty())
            m_timer.start();
        if (m_inputs.empty() || m_inputs.back().isComplete)
            m_inputs.push_back({.loaded = {.input = &input}});
        Part& part = m_inputs.back();
        part.loaded.problem = std::move(piece.problem);
        part.runs += piece.runs.size();
        part.isComplete = piece.isLast;
        std::move(piece.runs.begin(), piece.runs.end(), std::back_inserter(m_runs));
    }

    /// Adds what was collected and tells about the inputs that are complete.
    /// \return what is wrong with the archive
    std::optional<Problem> Write()
    {
        std::optional<Problem> failure = WriteTogether() ? std::nullopt : WriteOneByOne();
        std::vector<Part> unfinished; // at most the last one
        for (Part& part : m_inputs) {
            part.runs = 0;
            if (part.isComplete || failure)
                m_tell(part.loaded);
            else
                unfinished.push_back(part);
        }
        m_inputs = std::move(unfinished);
        m_runs.clear();
        return failure;
    }

private:
    struct Part {
        LoadedInput loaded;
        size_t runs = 0; // that are to be written
        bool isComplete = false;
    };

    bool WriteTogether()
    {
        AddedRuns added;
        if (!m_runs.empty() && !m_archive.Add(m_runs, &added))
            return false;
        auto as = added.each.cbegin();
        for (Part& part : m_inputs)
            for (size_t i = 0; i < part.runs; ++i)
                Count(*as++, &part.loaded);
        return true;
    }

    // Runs that the database does not take must not take others with them.
    std::optional<Problem> WriteOneByOne()
    {
        std::optional<Problem> failure = Failure();
        std::span<const Run> rest = m_runs;
        for (Part& part : m_inputs) {
            AddedRuns added;
            if (part.runs > 0 && !failure && !m_archive.Add(rest.first(part.runs), &added)) {
                part.loaded.problem = {part.loaded.input->name, 0, m_archive.GetErrorText(), {}};
                failure = Failure();
            }
            if (part.runs > 0 && failure)
                part.loaded.problem = failure;
            for (const AddedAs as : added.each)
                Count(as, &part.loaded);
            rest = rest.subspan(part.runs);
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
    QElapsedTimer m_timer; // since the first of them
};

} // namespace

QStringList RunExtensions()
{
    return ReportExtensions() + LotExtensions();
}

std::optional<Problem> LoadRuns(Archive& archive, const QList<Input>& inputs, bool showProgress,
                                const std::function<void(const LoadedInput&)>& tell)
{
    RunQueue queue(RunsWaiting);
    std::atomic<qsizetype> next = 0;
    std::vector<std::jthread> readers;
    for (qsizetype i = 0; i < qMin(qsizetype(AllCores()), inputs.size()); ++i)
        readers.emplace_back([&] { ReadInputs(inputs, &next, &queue); });

    Progress progress(inputs.size(), showProgress);
    Batch batch(archive, tell);
    std::optional<Problem> failure;
    for (qsizetype index = 0; index < inputs.size(); ++index) {
        if (failure) {
            tell({.input = &inputs.at(index), .problem = failure});
            continue;
        }
        for (bool isComplete = false; !isComplete && !failure;) {
            RunQueue::Piece piece = queue.Take();
            isComplete = piece.isLast;
            batch.Append(inputs.at(index), std::move(piece));
            if (batch.IsFull() || (isComplete && index + 1 == inputs.size()))
                failure = batch.Write();
        }
        progress.Step();
        if (failure)
            queue.Close();
    }
    return failure;
}

} // namespace ZYN::Tool
