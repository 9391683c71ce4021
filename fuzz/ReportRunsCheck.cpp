#include "ReportRunsCheck.h"

#include "FuzzSupport.h"
#include "ReportGenerations.h"

#include "runs/ReportRuns.h"
#include "runs/ReportUnits.h"
#include "runs/RunBuilder.h"
#include "runs/RunComparison.h"
#include "runs/RunText.h"
#include "runs/model/ModelRuns.h"
#include "runs/model/RunModel.h"

#include <ZYNCommon/UUTTest.h>

#include <QtCore/QRegularExpression>

#include <algorithm>
#include <span>

namespace ZYN::Fuzz {

using namespace Qt::StringLiterals;

namespace {

/// A run that goes through the model comes back.
void CheckModel(const Run& run)
{
    RunBuilder builder;
    std::vector<Run> back;
    AddRunsOfModel(*ModelOfRun(run), std::string(), builder, &back);
    Require(back.size() == 1, "a run becomes one run");
    back[0].isPanel = run.isPanel;
    back[0].panel = run.panel;
    back[0].runIndex = run.runIndex;
    const QString expected = RunText(std::span(&run, 1));
    const QString actual = RunText(back);
    Require(expected == actual, "a run goes through the model", expected + u"\nbecame\n"_s + actual);
}

/// Whether the import reads a value or limit of a run in another notation: that of the limits before it where
/// a measurement has none, and as digits of a base even where it is not whole.
bool HasOtherNotation(const Run& run)
{
    for (std::size_t place = 0; place < run.layout->components.size(); ++place) {
        const RunComponent& component = run.layout->components[place];
        const bool isValue =
            component.kind == ComponentKind::Measurement || component.kind == ComponentKind::Parameter;
        const bool hasLimits = run.limits && !(run.limits->lowerOperator[place].empty() &&
                                               run.limits->upperOperator[place].empty());
        if (isValue && (ReportUnits::DigitBase(component.unitCode) != 0 || !hasLimits))
            return true;
    }
    return false;
}

/// What the import says of a document that is no error of the document.
QStringList ErrorsOfNotation(const QStringList& errors, std::span<const Run> runs)
{
    static const QRegularExpression notation(
        u"^value '.*' is not a number, read as 0$|^limits that are no numbers"_s,
        QRegularExpression::DotMatchesEverythingOption);
    return std::ranges::any_of(runs, HasOtherNotation) ? errors.filter(notation) : QStringList();
}

} // namespace

void CheckReportRuns(const QByteArray& bytes, bool isOwn)
{
    // The import drops every carriage return, where XML knows a line end.
    const QByteArray report = QByteArray(bytes).replace('\r', QByteArray());
    static ReportRuns reader;
    std::vector<Run> runs;
    const std::optional<RunFault> fault = reader.Read(report.toStdString(), std::string(), &runs);
    const QString faultText = fault ? QString::fromStdString(fault->text) : QString();
    Reading reading = Imported(report);
    const auto hasLoss = [&](QStringView text) { return !reading.errors.filter(text.toString()).isEmpty(); };
    const bool hasOthersLimits = hasLoss(u"has no limits, takes those of the one before");
    reading.errors.removeIf([](const QString& error) {
        return error.contains(u"has no limits, takes those of the one before"_s);
    });
    if (fault) {
        Require(runs.empty() && !fault->text.empty(), "a refused report has no runs and a reason");
        const bool isCompressed = report.startsWith("\x1f\x8b");
        Require(isCompressed || (fault->line > 0 && fault->column > 0), "a fault has a place", faultText);
        // Qt's reader takes a zero byte in a tag, for instance.
        const bool isNoXml = faultText.startsWith(u"no well-formed XML"_s);
        Require(!isOwn && (isNoXml || !reading.errors.isEmpty()), "what the import takes is not refused",
                faultText);
        return;
    }
    const QStringList known = ErrorsOfNotation(reading.errors, runs);
    Require(reading.errors == known || hasOthersLimits, "what is an error to the import is refused",
            reading.errors.join(u'\n'));
    if (!reading.errors.isEmpty() || !HasUsualOrder(report))
        return;
    RunBuilder builder;
    std::vector<Run> imported;
    AddRunsOfModel(*reading.test, std::string(), builder, &imported);
    const QString difference = DifferenceToImport(runs, imported, isOwn);
    Require(difference.isEmpty(), "runs are those of the import", difference);
    if (isOwn) {
        for (const Run& run : runs)
            CheckModel(run);
    }
}

} // namespace ZYN::Fuzz
