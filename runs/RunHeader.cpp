#include "RunHeader.h"

#include "StartText.h"

#include <iterator>

namespace ZYN {

namespace {

void TakeIfEmpty(std::string& text, const std::string& other)
{
    if (text.empty())
        text = other;
}

} // namespace

/// What a run has of its test.
void RunHeader::CompleteRun(const Test& test, const SetRun& set, Run* run) const
{
    if (!set.hasCode)
        run->code = test.result.value_or(0);
    if (!run->duration)
        run->duration = test.seconds;
    TakeIfEmpty(run->comment, test.description);
    if (!machineName.empty())
        run->station = machineName;
    run->operatorName = user;
    run->lot = lot;
    run->startText = test.startText;
    run->product = test.product;
    run->serial = test.serial;
    run->ident = test.ident;
    if (test.panelIndex > 0)
        run->position = test.panelIndex;
}

/// What a run of a panel item has of the panel.
void RunHeader::CompleteItem(int ordinal, Run* run) const
{
    TakeIfEmpty(run->product, report.product);
    TakeIfEmpty(run->startText, report.startText);
    if (run->station.empty() && !report.sets.empty())
        run->station = report.sets.front().run.station;
    run->panel = report.serial.empty() ? report.ident : report.serial;
    run->position = run->position.value_or(ordinal);
}

void RunHeader::CompleteTest(Test& test, RunBuilder& builder) const
{
    const bool isPanel = &test == &report && !items.empty();
    const bool isSomething = test.hasUnit || test.result.value_or(0) != 0;
    if (test.sets.empty() && isSomething && !isPanel) {
        builder.Begin({}, {}, {});
        builder.Finish(&test.sets.emplace_back().run);
    }
    int index = 0;
    for (SetRun& set : test.sets) {
        CompleteRun(test, set, &set.run);
        set.run.isPanel = isPanel;
        set.run.runIndex = index++;
    }
}

void RunHeader::TakeRuns(const std::string& source, RunBuilder& builder, std::vector<Run>* runs)
{
    CompleteTest(report, builder);
    int ordinal = 0;
    for (Test& item : items) {
        ++ordinal;
        CompleteTest(item, builder);
        for (SetRun& set : item.sets)
            CompleteItem(ordinal, &set.run);
    }
    const auto take = [&](Test& test) {
        for (SetRun& set : test.sets) {
            if (const std::optional<StartTime> start = ReadStartTime(set.run.startText)) {
                set.run.start = start->ms;
                set.run.utcOffset = start->utcOffset;
            }
            set.run.source = source;
            runs->push_back(std::move(set.run));
        }
    };
    take(report);
    for (Test& item : items)
        take(item);
}

} // namespace ZYN
