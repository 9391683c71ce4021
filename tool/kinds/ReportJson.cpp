#include "kinds/ReportJson.h"

#include "kinds/ReportFile.h"
#include "kinds/ReportParts.h"

#include <ZYNCommon/ProductType.h>
#include <ZYNCommon/ProductionLot.h>
#include <ZYNCommon/TestComponent.h>
#include <ZYNCommon/TestProgram.h>
#include <ZYNCommon/TestResult.h>
#include <ZYNCommon/TestResultSet.h>
#include <ZYNCommon/UUTTest.h>
#include <ZYNCommon/UnitUnderTest.h>
#include <ZYNCommon/ValidationInterface.h>

#include <QtCore/QJsonArray>

#include <cmath>

namespace ZYN::Tool {

namespace {

// JSON knows neither not-a-number nor infinities; the text beside the number tells them.
QJsonValue NumberOrNull(const QVariant& value)
{
    if (value.typeId() == QMetaType::Double)
        return std::isfinite(value.toDouble()) ? QJsonValue(value.toDouble()) : QJsonValue();
    return QJsonValue::fromVariant(value);
}

void AddResult(const Part& part, QJsonObject* object)
{
    object->insert(QStringLiteral("verdict"), part.VerdictText());
    object->insert(QStringLiteral("code"), int(part.Verdict()));
    if (!part.result)
        return;
    object->insert(QStringLiteral("seconds"), part.result->GetDuration());
    if (!part.result->GetComment().isEmpty())
        object->insert(QStringLiteral("comment"), part.result->GetComment());
    if (part.HasValue()) {
        object->insert(QStringLiteral("value"), NumberOrNull(part.result->GetValue()));
        const QString text = ValueText(part.result);
        const QString unit = text.isEmpty() ? QString() : UnitText(part.result);
        object->insert(QStringLiteral("text"), unit.isEmpty() ? text : text + QLatin1Char(' ') + unit);
        object->insert(QStringLiteral("unit"), NumberUnitText(part.result));
    }
    const QSharedPointer<ValidationInterface> validation = part.result->GetValidation();
    if (!validation)
        return;
    if (validation->HasLowerLimit()) {
        object->insert(QStringLiteral("lower"), NumberOrNull(validation->GetLowerLimit()));
        object->insert(QStringLiteral("lowerOperator"), validation->GetLowerOperator().ToString());
    }
    if (validation->HasUpperLimit()) {
        object->insert(QStringLiteral("upper"), NumberOrNull(validation->GetUpperLimit()));
        object->insert(QStringLiteral("upperOperator"), validation->GetUpperOperator().ToString());
    }
}

// A component with what lies below it; three levels deep at most.
QJsonObject ToJson(const TestResultSet* run, const Part& part, bool failedOnly)
{
    QJsonObject object{{QStringLiteral("kind"), part.component->GetTypeString()},
                       {QStringLiteral("ident"), part.component->GetIdentString()},
                       {QStringLiteral("name"), part.component->GetName()}};
    AddResult(part, &object);
    QJsonArray children;
    for (const Part& child : ChildrenOf(run, part, failedOnly))
        children.append(ToJson(run, child, failedOnly));
    if (!children.isEmpty())
        object.insert(QStringLiteral("children"), children);
    return object;
}

QJsonObject RunToJson(const TestResultSet* run, bool failedOnly)
{
    QJsonObject object{{QStringLiteral("index"), qint64(run->GetTestIndex())},
                       {QStringLiteral("station"), run->GetStationDescription()}};
    if (run->GetTestProgram())
        object.insert(QStringLiteral("program"),
                      ToJson(run, PartOf(run, run->GetTestProgram().data()), failedOnly));
    return object;
}

// \param isComplete false for a part of a damaged report: what it says of a unit is no verdict then
QJsonObject UnitToJson(const UUTTest* test, bool failedOnly, bool isComplete)
{
    const QJsonValue code = isComplete ? QJsonValue(int(test->GetResult())) : QJsonValue();
    QJsonObject object{{QStringLiteral("verdict"), isComplete ? test->GetResultString() : IncompleteText()},
                       {QStringLiteral("code"), code},
                       {QStringLiteral("description"), test->GetResultDescription()},
                       {QStringLiteral("start"), test->GetStartTimeString()},
                       {QStringLiteral("stop"), test->GetStopTimeString()},
                       {QStringLiteral("seconds"), double(test->GetDuration_ms()) / 1000.0}};
    if (!isComplete && test->GetResult() != ZYN_RESULT_NOT_TESTED)
        object.insert(QStringLiteral("stated"), test->GetResultString());
    if (const auto unit = test->GetUnitUnderTest()) {
        object.insert(QStringLiteral("name"), unit->GetName());
        object.insert(QStringLiteral("serial"), unit->GetSerialNo());
        object.insert(QStringLiteral("ident"), unit->GetIdentString());
        object.insert(QStringLiteral("place"), qint64(unit->GetPanelIndex()));
    }
    if (const auto type = test->GetProductType())
        object.insert(QStringLiteral("product"), type->GetName());
    if (const auto lot = test->GetProductionLot())
        object.insert(QStringLiteral("lot"), lot->GetName());
    QJsonArray runs;
    for (const TestResultSet* const run : test->GetResultSets())
        runs.append(RunToJson(run, failedOnly));
    if (!runs.isEmpty())
        object.insert(QStringLiteral("runs"), runs);
    return object;
}

} // namespace

std::optional<Problem> ReportToJson(const QString& path, const QString& name, const ShowOptions& options,
                                    QJsonObject* object)
{
    std::optional<Problem> problem;
    const std::unique_ptr<UUTTest> test = ReadDamagedReport(path, name, &problem);
    if (!test)
        return problem;
    *object = UnitToJson(test.get(), options.failedOnly, !problem);
    if (problem)
        object->insert(QStringLiteral("incomplete"), TextOf({{}, problem->line, problem->what, {}}));
    QJsonArray items;
    for (const QSharedPointer<UUTTest>& item : test->GetUUTTests())
        if (!options.failedOnly || HasFailed(item.data()))
            items.append(UnitToJson(item.data(), options.failedOnly, !problem));
    if (!items.isEmpty())
        object->insert(QStringLiteral("items"), items);
    return problem;
}

} // namespace ZYN::Tool
