#include "lots/LotUnits.h"

#include "kinds/LotFile.h"

#include "runs/StdfRuns.h"
#include "runs/model/RunModel.h"

#include <ZYNCommon/UUTTest.h>

#include <QtCore/QFile>

namespace ZYN::Tool {

namespace {

constexpr size_t unitsAtOnce = 64;
constexpr int digitsOfNumber = 5;
constexpr qsizetype longestSerial = 100;

QString NameOf(const ZYN::Run& run)
{
    QString serial = QString::fromStdString(run.serial).left(longestSerial);
    for (QChar& c : serial)
        if (c == QLatin1Char('/') || c == QLatin1Char('\\') || c == QLatin1Char(':') || c.unicode() < 0x20)
            c = QLatin1Char('_');
    const QString number = QString::number(run.runIndex + 1).rightJustified(digitsOfNumber, QLatin1Char('0'));
    return serial.isEmpty() ? number : number + QLatin1Char('-') + serial;
}

std::string PathOfLot(const Input& input)
{
    return QFile::encodeName(input.path).toStdString();
}

} // namespace

bool IsLot(const Input& input)
{
    return StdfRuns::IsStdf(PathOfLot(input));
}

std::optional<Problem> ForEachUnits(const Input& lot,
                                    const std::function<void(const std::vector<LotUnit>&)>& take)
{
    std::vector<LotUnit> units;
    StdfRuns reader;
    RunModels models;
    const std::optional<RunFault> fault = reader.ReadFile(PathOfLot(lot), [&](ZYN::Run&& run) {
        units.push_back({NameOf(run), models.Make(run)});
        if (units.size() >= unitsAtOnce) {
            take(units);
            units.clear();
        }
        return true;
    });
    if (!units.empty())
        take(units);
    if (!fault)
        return std::nullopt;
    const QString text = QString::fromStdString(fault->text);
    return Problem{lot.name, 0, fault->offset < 0 ? text : AtOffset(fault->offset, text), {}};
}

} // namespace ZYN::Tool
