#include "watch/ReportOutputs.h"

#include "files/Parallel.h"
#include "lots/LotAppend.h"
#include "lots/LotConversion.h"
#include "lots/LotUnits.h"
#include "terminal/Texts.h"

#include <QtCore/QDir>

namespace ZYN::Tool {

namespace {

std::optional<Problem> NoFolder(const QString& folder)
{
    return Problem{folder, 0, Texts::tr("the folder cannot be created"), Texts::tr("choose another one")};
}

std::optional<Problem> ConvertInto(const ReportOutputs::Target& target, const Input& input)
{
    const QString to = target.folder + QLatin1Char('/');
    const ReportConversion conversion{.format = target.format, .replace = true};
    if (!IsLot(input))
        return ConvertReport(input, to + ConvertedName(input.relative, target.format), conversion);
    const QString folder = to + ConvertedLotName(input.relative);
    if (!QDir().mkpath(folder))
        return NoFolder(folder);
    for (const Conversion& made : ConvertLot(input, folder, conversion, AllCores()))
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

std::optional<Problem> ReportOutputs::Write(const Input& input)
{
    for (const Target& target : std::as_const(m_targets))
        if (const std::optional<Problem> problem = ConvertInto(target, input))
            return problem;
    return m_lot ? AddToLot(input) : std::nullopt;
}

std::optional<Problem> ReportOutputs::AddToLot(const Input& input)
{
    const QList<Conversion> added = AppendToLot(input, *m_lot, {});
    for (const Conversion& conversion : added)
        if (conversion.problem)
            return conversion.problem;
    SayBeside(m_lotFile, added);
    return std::nullopt;
}

} // namespace ZYN::Tool
