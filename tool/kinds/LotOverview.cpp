#include "kinds/LotOverview.h"

#include "kinds/WaferMap.h"
#include "terminal/Table.h"
#include "terminal/Terminal.h"
#include "terminal/Texts.h"

#include "archive/figures/Moments.h"
#include "runs/StdfRuns.h"

#include <QtCore/QFile>

#include <cmath>
#include <map>
#include <tuple>
#include <unordered_map>

namespace ZYN::Tool {

namespace {

using Side = TableColumn::Side;

/// More groups, bins or tests are not told: a small compressed file could hold any number.
constexpr size_t mostRows = 10'000;

struct Count {
    qint64 parts = 0;
    qint64 passed = 0;
};

QString Share(qint64 part, qint64 whole)
{
    return whole == 0
               ? QString()
               : QStringLiteral("%1 %").arg(QString::number(100.0 * double(part) / double(whole), 'f', 1));
}

QString Number(const std::optional<double>& number)
{
    return number ? QString::number(*number, 'g', 6) : QString();
}

/// Counts runs as they come, by what they have in common.
class Overview {
public:
    void Take(const ZYN::Run& run)
    {
        ++m_all.parts;
        m_all.passed += run.code > 0;
        if (run.site)
            Add(m_sites, *run.site, run);
        if (!run.wafer.empty())
            Add(m_wafers, run.wafer, run);
        if (run.hardBin)
            Add(m_bins, std::pair(false, *run.hardBin), run);
        if (run.softBin)
            Add(m_bins, std::pair(true, *run.softBin), run);
        TakeValues(run);
    }

    void Print(const std::vector<LotBin>& bins) const
    {
        if (m_all.parts == 0)
            return;
        PrintYields(Texts::tr("Site"), m_sites);
        PrintYields(Texts::tr("Wafer"), m_wafers);
        PrintBins(bins);
        PrintTests();
    }

private:
    struct Test {
        QString ident, path, unit;
        Figures::Moments moments;
        qint64 runs = 0, failed = 0;
        int order = 0;
    };

    template <typename Key>
    static void Add(std::map<Key, Count>& counts, const Key& key, const ZYN::Run& run)
    {
        if (counts.size() >= mostRows && !counts.contains(key))
            return;
        Count& count = counts[key];
        ++count.parts;
        count.passed += run.code > 0;
    }

    void TakeValues(const ZYN::Run& run)
    {
        const std::vector<Test*>& tests = TestsOf(run.layout);
        for (size_t position = 0; position < run.codes.size(); ++position) {
            Test* const test = tests[position];
            if (!test || run.codes[position] == ZYN::Run::NoCode)
                continue;
            ++test->runs;
            test->failed += run.codes[position] < 0;
            if (std::isfinite(run.values[position]))
                test->moments.Add(run.values[position]);
        }
    }

    /// By position; null for what is no test, or one too many.
    const std::vector<Test*>& TestsOf(const std::shared_ptr<const RunLayout>& layout)
    {
        constexpr size_t layoutsKept = 64;
        if (m_layouts.size() >= layoutsKept && !m_layouts.contains(layout))
            m_layouts.clear();
        const auto [known, isNew] = m_layouts.try_emplace(layout);
        if (!isNew)
            return known->second;
        for (const RunComponent& component : layout->components) {
            Test*& test = known->second.emplace_back(nullptr);
            const std::string key = component.identity + '\n' + component.unit;
            if (component.kind != ComponentKind::Measurement ||
                (m_tests.size() >= mostRows && !m_tests.contains(key)))
                continue;
            const auto [entry, isFirst] = m_tests.try_emplace(key);
            test = &entry->second;
            if (isFirst)
                *test = {QString::fromStdString(component.ident),
                         QString::fromStdString(component.path),
                         QString::fromStdString(component.unit),
                         {},
                         0,
                         0,
                         int(m_tests.size())};
        }
        return known->second;
    }

    static QString Text(int key) { return QString::number(key); }
    static QString Text(const std::string& key) { return Harmless(QString::fromStdString(key)); }

    template <typename Key>
    static void PrintYields(const QString& title, const std::map<Key, Count>& counts)
    {
        if (counts.empty())
            return;
        Tool::Print(QStringLiteral("\n"));
        Table table({{title},
                     {Texts::tr("Parts"), Side::Right},
                     {Texts::tr("Passed"), Side::Right},
                     {Texts::tr("Yield"), Side::Right}});
        for (const auto& [key, count] : counts)
            table.Add({Text(key), QString::number(count.parts), QString::number(count.passed),
                       Share(count.passed, count.parts)});
        table.Print();
    }

    void PrintBins(const std::vector<LotBin>& bins) const
    {
        if (m_bins.empty())
            return;
        std::map<std::pair<bool, int>, const LotBin*> named; // the first stream that names it
        for (const LotBin& bin : bins)
            if (const LotBin*& known = named[{bin.isSoft, bin.number}]; !known || known->name.empty())
                known = &bin;
        Tool::Print(QStringLiteral("\n"));
        Table table({{Texts::tr("Bin")},
                     {Texts::tr("Number"), Side::Right},
                     {Texts::tr("Parts"), Side::Right},
                     {Texts::tr("Share"), Side::Right},
                     {Texts::tr("Good")},
                     {Texts::tr("Name")}});
        for (const auto& [key, count] : m_bins) {
            const auto known = named.find(key);
            const LotBin* const bin = known == named.end() ? nullptr : known->second;
            table.Add({key.first ? Texts::tr("soft") : Texts::tr("hard"), QString::number(key.second),
                       QString::number(count.parts), Share(count.parts, m_all.parts),
                       bin && (bin->verdict == 'P' || bin->verdict == 'F')
                           ? QString(QLatin1Char(bin->verdict))
                           : QString(),
                       bin ? Harmless(QString::fromStdString(bin->name)) : QString()});
        }
        table.Print();
    }

    void PrintTests() const
    {
        std::map<int, const Test*> inOrder;
        for (const auto& [key, test] : m_tests)
            inOrder[test.order] = &test;
        if (inOrder.empty())
            return;
        Tool::Print(QStringLiteral("\n"));
        Table table({{Texts::tr("Test")},
                     {Texts::tr("Runs"), Side::Right},
                     {Texts::tr("Failed"), Side::Right},
                     {Texts::tr("Mean"), Side::Right},
                     {Texts::tr("Sigma"), Side::Right},
                     {Texts::tr("Unit")},
                     {Texts::tr("Name"), Side::Left, true}});
        for (const auto& [order, test] : inOrder)
            table.Add({Harmless(test->ident), QString::number(test->runs), QString::number(test->failed),
                       Number(test->moments.GetMean()), Number(test->moments.GetSigma()),
                       Harmless(test->unit), Harmless(test->path)});
        table.Print();
    }

    Count m_all;
    std::map<int, Count> m_sites;
    std::map<std::string, Count> m_wafers;
    std::map<std::pair<bool, int>, Count> m_bins; ///< by whether it is a soft one and by number
    std::unordered_map<std::string, Test> m_tests;
    std::map<std::shared_ptr<const RunLayout>, std::vector<Test*>> m_layouts;
};

} // namespace

void PrintLotOverview(const QString& path, bool withMap)
{
    Overview overview;
    WaferMap map;
    StdfRuns reader;
    // What is damaged is told by who shows the records.
    reader.ReadFile(QFile::encodeName(path).toStdString(), [&](ZYN::Run&& run) {
        overview.Take(run);
        if (withMap)
            map.Add(run);
        return true;
    });
    overview.Print(reader.Bins());
    if (withMap)
        map.Print();
}

} // namespace ZYN::Tool
