#pragma once

#include "runs/Run.h"
#include "runs/RunBuilder.h"

#include <list>
#include <optional>
#include <string>
#include <vector>

namespace ZYN {

/// What a source says about a unit, or a panel and its items, and the runs that it says it of. It may come in
/// any order, so it is put together at the end.
class RunHeader {
public:
    /// A result set.
    struct SetRun {
        Run run;
        bool hasCode = false; ///< its program has a result; else the test's counts
    };
    /// The test of a unit: the report's own or that of a panel item.
    struct Test {
        std::optional<int> result;
        std::string description;
        std::string startText;
        double seconds = 0;
        bool hasUnit = false;
        std::string product;
        std::string serial;
        std::string ident;
        int panelIndex = 0;
        std::vector<SetRun> sets;
    };

    /// Hands out all runs: those of the report's own sets first, then item by item. A unit that was not run
    /// and has a result is a run without values.
    void TakeRuns(const std::string& source, RunBuilder& builder, std::vector<Run>* runs);

    Test report;
    std::list<Test> items;
    std::string lot;
    std::string machineName;
    std::string user;
    std::optional<std::string> product; ///< that a unit named last

private:
    void CompleteTest(Test& test, RunBuilder& builder) const;
    void CompleteRun(const Test& test, const SetRun& set, Run* run) const;
    void CompleteItem(int ordinal, Run* run) const;
};

} // namespace ZYN
