#include "watch/ReportOutputs.h"

#include "files/Parallel.h"
#include "kinds/ReportFile.h"
#include "lots/LotConversion.h"
#include "lots/LotUnits.h"
#include "terminal/Texts.h"

#include <ZYNCommon/UUTTest.h>

#include <QtCore/QDir>

namespace ZYN::Tool {

namespace {

std::optional<Problem> NoFolder(const QString& folder)
{
    return Problem{folder, 0, Texts::tr("the folder cannot be created"), Texts::tr("choose another one")};
}

std::optional<Problem> ConvertLotInto(const ReportOutputs::Target& target, const Input& input)
{
    const QString folder = target.folder + QLatin1Char('/') + ConvertedLotName(input.relative);
    if (!QDir().mkpath(folder))
        return NoFolder(folder);
    for (const Conversion& made :
         ConvertLot(input, folder, {.format = target.format, .replace = true}, AllCores()))
        if (made.problem)
            return made.problem;
    return std::nullopt;
}

} // namespace

ReportOutputs::ReportOutputs(const QList<Target>& targets, const QString& lot)
    : m_targets(targets)
    , m_lotFile(lot)
    , m_lot(lot.isEmpty() ? nullptr : std::make_unique<LotWriter>(lot, false))
{
}

std::optional<Problem> ReportOutputs::Prepare()
{
    for (const Target& target : std::as_const(m_targets))
        if (!QDir().mkpath(target.folder))
            return NoFolder(target.folder);
    return m_lot ? m_lot->Refusal() : std::nullopt;
}

qsizetype ReportOutputs::AtOnce()
{
    return 4 * AllCores();
}

std::vector<std::optional<Problem>> ReportOutputs::Write(const QList<Input>& inputs)
{
    std::vector<Made> made(size_t(inputs.size()));
    ForEachIndex(inputs.size(), AllCores(), [&](qsizetype index) {
        if (!IsLot(inputs.at(index)))
            made[size_t(index)] = MakeOf(inputs.at(index));
    });
    std::vector<size_t> indices;
    std::vector<ReportForLot> reports;
    for (size_t index = 0; index < made.size(); ++index) {
        if (const Input& input = inputs.at(qsizetype(index)); IsLot(input))
            made[index].problem = WriteLot(input);
        if (!made[index].report || made[index].problem)
            continue;
        indices.push_back(index);
        reports.push_back(std::move(*made[index].report));
    }
    if (!reports.empty()) {
        const QList<Conversion> added = AppendToLot(reports, *m_lot);
        for (size_t i = 0; i < indices.size(); ++i)
            if (const std::optional<Problem>& problem = added.at(qsizetype(i)).problem)
                made[indices[i]].problem = Problem{{}, 0, TextOf(*problem), {}}; // of the lot, not of the report
        SayBeside(m_lotFile, added);
    }
    std::vector<std::optional<Problem>> problems;
    for (const Made& one : made)
        problems.push_back(one.problem);
    return problems;
}

// It is read once for all that is made of it.
ReportOutputs::Made ReportOutputs::MakeOf(const Input& input) const
{
    Made made;
    if (m_targets.isEmpty() && !m_lot)
        return made;
    const std::unique_ptr<UUTTest> test = ReadReport(input.path, input.name, &made.problem);
    for (const Target& target : m_targets) {
        if (made.problem)
            return made;
        made.problem =
            ConvertTest(test.get(), input.name,
                        target.folder + QLatin1Char('/') + ConvertedName(input.relative, target.format),
                        {.format = target.format, .replace = true});
    }
    if (m_lot && !made.problem)
        made.report = MakeForLot(test.get(), input.name, m_lotFile, {});
    return made;
}

std::optional<Problem> ReportOutputs::WriteLot(const Input& input)
{
    for (const Target& target : std::as_const(m_targets))
        if (const std::optional<Problem> problem = ConvertLotInto(target, input))
            return problem;
    if (!m_lot)
        return std::nullopt;
    const QList<Conversion> added = AppendLotToLot(input, *m_lot, {});
    for (const Conversion& conversion : added)
        if (conversion.problem)
            return conversion.problem;
    SayBeside(m_lotFile, added);
    return std::nullopt;
}

} // namespace ZYN::Tool
