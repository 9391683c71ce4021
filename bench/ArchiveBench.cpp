// An archive of 100,000 runs with 200 values each, in a file and, where ZYN_BENCH_SERVER names an empty
// database, on a server: whether adding grows dearer, what a component takes on disk, and how long questions
// wait. Where ZYN_BENCH_CLUSTER names a server that asks and its nodes (scripts/cluster), a line each, the
// runs stand on the nodes, as those of products "Board 1", "Board 2" ... The floor of a question is the time
// that it may take.

#include "archive/Archive.h"
#include "archive/ArchiveInfo.h"
#include "archive/Questions.h"

#include <benchmark/benchmark.h>

#include <QtCore/QDateTime>
#include <QtCore/QElapsedTimer>
#include <QtCore/QTemporaryDir>

#include <cmath>
#include <random>

using namespace ZYN;

namespace {

constexpr int Runs = 100'000;
constexpr int RunsOfPart = Runs / 10;
constexpr int RunsOfBatch = 100;
constexpr int RunsOfLot = 500;
constexpr int Groups = 5, Steps = 4, Measurements = 10;
constexpr std::int64_t FirstStart = 1'780'000'000'000;
constexpr std::int64_t Pause = 25'000; // ms between two runs

std::string Name(const char* kind, std::size_t number)
{
    std::string name = kind;
    name += std::to_string(number);
    return name;
}

RunLayout MakeLayout()
{
    RunLayout layout{"Function test", "100", "1.0", {}, "layout"};
    const auto add = [&](ComponentKind kind, int parent, const std::string& name) {
        const std::string above =
            parent < 0 ? std::string() : layout.components[std::size_t(parent)].path + " / ";
        RunComponent component;
        component.kind = kind;
        component.parent = parent;
        component.ident = std::to_string(layout.components.size());
        component.name = name;
        component.path = component.identity = above + name;
        component.dataType = kind == ComponentKind::Measurement ? 8 : 0;
        component.unit = std::string(kind == ComponentKind::Measurement ? 1 : 0, 'V');
        component.hash[0] = layout.components.size();
        layout.components.push_back(component);
        return int(layout.components.size()) - 1;
    };
    for (int g = 0; g < Groups; ++g) {
        const int group = add(ComponentKind::Group, -1, Name("Group ", std::size_t(g)));
        for (int s = 0; s < Steps; ++s) {
            const int step = add(ComponentKind::Step, group, Name("Step ", std::size_t(s)));
            for (int m = 0; m < Measurements; ++m)
                add(ComponentKind::Measurement, step, Name("Rail ", std::size_t(m)));
        }
    }
    return layout;
}

RunLimits MakeLimits(std::size_t size)
{
    const double none = std::numeric_limits<double>::quiet_NaN();
    return {std::vector<double>(size, 4.4),
            std::vector<double>(size, 5.6),
            std::vector<std::string>(size, "<="),
            std::vector<std::string>(size, "<="),
            std::vector<double>(size, none),
            std::vector<bool>(size),
            {},
            {},
            "limits"};
}

/// Runs of a line: one board in fifty fails a measurement and is tested again at once.
class Line {
public:
    explicit Line(std::string product)
        : m_product(std::move(product))
        , m_layout(std::make_shared<const RunLayout>(MakeLayout()))
        , m_limits(std::make_shared<const RunLimits>(MakeLimits(m_layout->components.size())))
    {
    }

    std::vector<Run> Next(int count)
    {
        std::vector<Run> runs;
        for (int i = 0; i < count; ++i)
            runs.push_back(Make());
        return runs;
    }

private:
    Run Make()
    {
        constexpr int failing = 50;
        Run run;
        const bool fails = m_number % failing == 0;
        m_serial += m_number % failing != 1;
        run.product = m_product;
        run.lot = Name("L", std::size_t(m_number / RunsOfLot));
        run.serial = Name("SN-", m_serial);
        run.start = FirstStart + m_number * Pause;
        run.startText =
            QDateTime::fromMSecsSinceEpoch(*run.start, Qt::UTC).toString(Qt::ISODate).toStdString();
        run.utcOffset = 0;
        run.station = Name("T", std::size_t(m_number % 4));
        run.source = Name("lot/", std::size_t(m_number)) + ".zyr";
        run.layout = m_layout;
        run.limits = m_limits;
        const std::size_t size = m_layout->components.size();
        run.values.assign(size, std::numeric_limits<double>::quiet_NaN());
        run.codes.assign(size, 1);
        run.seconds.assign(size, 0.0125F);
        for (std::size_t i = 0; i < size; ++i)
            if (m_layout->components[i].kind == ComponentKind::Measurement)
                run.values[i] = std::round(m_noise(m_random) * 1e4) / 1e4;
        if (fails) {
            run.code = -1;
            for (int at = int(m_random() % size); at >= 0; at = m_layout->components[std::size_t(at)].parent)
                run.codes[std::size_t(at)] = -1;
        } else {
            run.code = 1;
        }
        ++m_number;
        return run;
    }

    const std::string m_product;
    std::shared_ptr<const RunLayout> m_layout;
    std::shared_ptr<const RunLimits> m_limits;
    std::mt19937 m_random{1};
    std::normal_distribution<double> m_noise{5.0, 0.1};
    std::int64_t m_number = 0;
    std::size_t m_serial = 0;
};

/// A full archive, made when it is first asked for.
class FullArchive {
public:
    /// \param nodes are archives already, and keep what is asked by way of the url
    explicit FullArchive(const QString& url, const QStringList& nodes = {})
        : m_url(url)
        , m_nodes(nodes)
    {
    }

    const Archive& Get()
    {
        if (!m_isFull)
            Fill();
        return m_archive;
    }

    double firstPart = 0, lastPart = 0; ///< seconds that adding took

private:
    void Fill()
    {
        Check(m_archive, m_nodes.isEmpty() ? m_archive.Create(m_url) : true);
        if (m_nodes.isEmpty())
            AddRuns(m_archive, "Board", Runs);
        const int runsOfNode =
            m_nodes.isEmpty() ? 0 : (Runs / int(m_nodes.size()) / RunsOfPart + 1) * RunsOfPart;
        int number = 0;
        for (const QString& url : m_nodes) {
            Archive node;
            Check(node, node.Open(url, Archive::Mode::ReadWrite));
            AddRuns(node, Name("Board ", std::size_t(++number)), runsOfNode);
        }
        Check(m_archive, m_nodes.isEmpty() || m_archive.Open(m_url, Archive::Mode::ReadOnly));
        m_isFull = true;
    }

    void AddRuns(Archive& archive, const std::string& product, int count)
    {
        Line line(product);
        for (int part = 0; part < count / RunsOfPart; ++part) {
            qint64 nanoseconds = 0;
            for (int batch = 0; batch < RunsOfPart / RunsOfBatch; ++batch) {
                const std::vector<Run> runs = line.Next(RunsOfBatch);
                QElapsedTimer timer;
                timer.start();
                Check(archive, archive.Add(runs, nullptr));
                nanoseconds += timer.nsecsElapsed();
            }
            (part == 0 ? firstPart : lastPart) = double(nanoseconds) * 1e-9;
        }
    }

    static void Check(const Archive& archive, bool isGood)
    {
        if (!isGood)
            qFatal("%ls", qUtf16Printable(archive.GetErrorText()));
    }

    const QString m_url;
    const QStringList m_nodes;
    Archive m_archive;
    bool m_isFull = false;
};

void Add(benchmark::State& state, FullArchive& full)
{
    full.Get();
    for ([[maybe_unused]] auto turn : state)
        state.SetIterationTime(full.lastPart);
    state.counters["ratio"] = full.lastPart / full.firstPart;
    state.counters["bar"] = 1.1;
    state.counters["ns/item"] =
        full.lastPart * 1e9 / RunsOfPart / (Groups + Groups * Steps * (1 + Measurements));
}

void Size(benchmark::State& state, FullArchive& full, double bar)
{
    const std::optional<ArchiveInfo> info = AskInfo(full.Get());
    if (!info)
        qFatal("%ls", qUtf16Printable(full.Get().GetErrorText()));
    for ([[maybe_unused]] auto turn : state)
        state.SetIterationTime(0);
    state.counters["ratio"] = double(info->bytes) / double(info->values);
    state.counters["bar"] = bar;
}

template <class Question>
void Ask(benchmark::State& state, FullArchive& full, double milliseconds, const Question& question)
{
    const Archive& archive = full.Get();
    double seconds = 0;
    for ([[maybe_unused]] auto turn : state) {
        QElapsedTimer timer;
        timer.start();
        if (!question(archive))
            qFatal("%ls", qUtf16Printable(archive.GetErrorText()));
        const double took = double(timer.nsecsElapsed()) * 1e-9;
        seconds += took;
        state.SetIterationTime(took);
    }
    state.counters["ratio"] = seconds * 1e3 / double(state.iterations()) / milliseconds;
    state.counters["bar"] = 1.0;
}

benchmark::internal::Benchmark* Named(const std::string& kind, const std::string& name, const auto& work)
{
    return benchmark::RegisterBenchmark((kind + ": " + name).c_str(), work)
        ->UseManualTime()
        ->Unit(benchmark::kMillisecond);
}

void RegisterAdding(const std::string& kind, FullArchive& full, double bytes)
{
    Named(kind, "adding at 20 M values / at 2 M", [&](benchmark::State& state) {
        Add(state, full);
    })->Iterations(1);
    Named(kind, "bytes a component", [&full, bytes](benchmark::State& state) {
        Size(state, full, bytes);
    })->Iterations(1);
}

/// \param shortTime that may be taken for what is looked up, \param yieldTime for the yield by day, in ms
void RegisterQuestions(const std::string& kind, FullArchive& full, double shortTime, double yieldTime)
{
    const auto ask = [&](const std::string& name, double time, const auto& question) {
        Named(kind, name,
              [&full, time, question](benchmark::State& state) { Ask(state, full, time, question); });
    };
    RunFilter serial, lot;
    serial.serial = QStringLiteral("SN-5000");
    lot.lot = QStringLiteral("L100");
    ask("failures", shortTime, [](const Archive& archive) { return AskFailures(archive, {}, false); });
    ask("history", shortTime, [=](const Archive& archive) { return AskHistory(archive, serial); });
    ask("units, failed", shortTime,
        [](const Archive& archive) { return AskUnits(archive, {}, {.failed = true, .retested = false}); });
    ask("units of a lot", shortTime, [=](const Archive& archive) { return AskUnits(archive, lot, {}); });
    ask("yield by day", yieldTime,
        [](const Archive& archive) { return AskYield(archive, {}, {GroupBy::Day}); });
    constexpr double figuresTime = 200;
    ask("measure by day", figuresTime, [](const Archive& archive) {
        return AskMeasures(archive, {}, {.names = {}, .values = false, .by = {GroupBy::Day}});
    });
    ask("measure, a lot", shortTime, [=](const Archive& archive) { return AskMeasures(archive, lot, {}); });
}

} // namespace

int main(int argc, char** argv)
{
    benchmark::Initialize(&argc, argv);
    const QTemporaryDir folder;
    FullArchive file(folder.filePath(QStringLiteral("line.zya")));
    constexpr double shortTime = 50, longTime = 200, fileYield = 150, fileBytes = 20, serverBytes = 25;
    RegisterAdding("SQLite", file, fileBytes);
    RegisterQuestions("SQLite", file, shortTime, fileYield);
    FullArchive server(qEnvironmentVariable("ZYN_BENCH_SERVER"));
    if (qEnvironmentVariableIsSet("ZYN_BENCH_SERVER")) {
        RegisterAdding("PostgreSQL", server, serverBytes);
        RegisterQuestions("PostgreSQL", server, shortTime, longTime);
    }
    QStringList nodes =
        qEnvironmentVariable("ZYN_BENCH_CLUSTER").split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    const QString asking = nodes.isEmpty() ? QString() : nodes.takeFirst();
    FullArchive cluster(asking, nodes);
    if (!nodes.isEmpty())
        RegisterQuestions(std::to_string(nodes.size()) + " nodes", cluster, longTime, longTime);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
