// UTF-8, indented by four blanks, line feeds. Keys stand in alphabetical order. Values are unscaled and
// carry their unit; durations of results are numbers in seconds, those of a unit are texts for people.

#include "CReportBuilderJSON.h"

#include "JsonIndenter.h"

#include "export/Environment.h"
#include "export/ModelAdapter.h"

#include <ZYNCommon/Fixture.h>
#include <ZYNCommon/ProductType.h>
#include <ZYNCommon/ProductionLot.h>
#include <ZYNCommon/TestGroup.h>
#include <ZYNCommon/TestMeasurement.h>
#include <ZYNCommon/TestProgram.h>
#include <ZYNCommon/TestResult.h>
#include <ZYNCommon/TestStep.h>
#include <ZYNCommon/UUTTest.h>
#include <ZYNCommon/UnitUnderTest.h>
#include <ZYNCommon/ValidationInterface.h>
#include <ZYNCommon/ZYNSession.h>

#include <QtCore/QFileInfo>
#include <QtCore/QJsonDocument>

#include <utility>

namespace ZYN {

namespace {

/// What a component is: stored in `target` under `key`.
void WriteJsonComponent(const QString& key, const TestComponent* component, QJsonObject& target)
{
    target.insert(key, QJsonObject{
                           {QStringLiteral("Name"), component->GetName()},
                           {QStringLiteral("ID"), static_cast<qint64>(ModelAdapter::Id(component))},
                           {QStringLiteral("Type"), static_cast<int>(ModelAdapter::TypeCode(component))},
                           {QStringLiteral("Ident"), component->GetIdentString()},
                       });
}

/// Limits stand beside the result, also when the validation has none.
void WriteJsonLimits(const TestResult* result, QJsonObject& target)
{
    const auto& validation = result->GetValidation();
    if (!validation)
        return;
    QJsonObject limits;
    if (validation->HasLowerLimit())
        limits.insert(QStringLiteral("Lower"), QJsonValue::fromVariant(validation->GetLowerLimit()));
    if (validation->HasUpperLimit())
        limits.insert(QStringLiteral("Upper"), QJsonValue::fromVariant(validation->GetUpperLimit()));
    if (ModelAdapter::HasNominal(validation.get()))
        limits.insert(QStringLiteral("Nominal"),
                      QJsonValue::fromVariant(ModelAdapter::Nominal(validation.get())));
    target.insert(QStringLiteral("Limits"), limits);
}

void WriteJsonResult(const TestResult* result, QJsonObject& target)
{
    QJsonObject object{
        {QStringLiteral("Duration"), result->GetDuration()},
        {QStringLiteral("Attribute"), result->GetAttribute().simplified()},
        {QStringLiteral("Comment"), result->GetComment().simplified()},
        {QStringLiteral("Code"), static_cast<int>(result->GetResult())},
        {QStringLiteral("Result"), result->GetResultString()},
        {QStringLiteral("DataType"), result->GetValueTypeString()},
    };
    if (const QVariant& value = result->GetValue(); value.isValid()) {
        object.insert(QStringLiteral("Value"), QJsonValue::fromVariant(value));
        object.insert(QStringLiteral("Unit"), result->GetUnitString(nullptr, false));
    }
    WriteJsonLimits(result, target);
    target.insert(QStringLiteral("Result"), object);
}

QByteArray Compact(const QJsonObject& object)
{
    return QJsonDocument(object).toJson(QJsonDocument::Compact);
}

void AddHeaderItem(QByteArrayList& items, const QString& key, const QJsonObject& item)
{
    items.append(Compact({{key, item}}));
}

} // namespace

bool CReportBuilderJSON::Open()
{
    if (!OpenedDevice())
        return false;
    // A walk that ended early may have left these set.
    m_inSubUnitTest = false;
    m_hasSubUnitTests = false;
    m_text.clear();
    m_tails.clear();
    SetOpened(true);
    return true;
}

bool CReportBuilderJSON::Close()
{
    const bool isPanel = std::exchange(m_hasSubUnitTests, false);
    if (!IsOpened())
        return true;
    JsonIndenter document(*GetDevice());
    document.Write(R"({"UUTTest":{"Information":[)");
    document.WriteItems(m_information);
    document.Write(isPanel ? R"(],"PanelItems":[)" : R"(],"Programs":[)");
    document.WriteItems(isPanel ? m_panelItems : m_programs);
    document.Write("]}}");
    if (!document.Finish())
        NoteOutputFailure();
    SetDevice(nullptr);
    SetOpened(false);
    return true;
}

/// Adds an item to the innermost array that is open.
void CReportBuilderJSON::AddToProgram(const QJsonObject& item)
{
    if (m_text.endsWith('}'))
        m_text += ',';
    m_text += Compact(item);
}

/// The same, of an item that holds others in an array, under a key of its own. By the order of keys it is
/// known now what follows that array.
void CReportBuilderJSON::BeginItem(const QJsonObject& item, const QString& key)
{
    QJsonObject before;
    QJsonObject after;
    for (auto member = item.begin(); member != item.end(); ++member)
        (member.key() < key ? before : after).insert(member.key(), member.value());
    AddToProgram(before);
    m_text.chop(1);
    m_text += (before.isEmpty() ? "\"" : ",\"") + key.toUtf8() + "\":[";
    m_tails.append((after.isEmpty() ? "]" : "],") + Compact(after).sliced(1));
}

void CReportBuilderJSON::EndItem()
{
    if (m_tails.isEmpty())
        return; // nothing was begun
    m_text += m_tails.takeLast();
    if (!m_tails.isEmpty())
        return;
    m_text.squeeze();
    m_lastProgram = std::exchange(m_text, {});
    m_programs.append(m_lastProgram);
}

bool CReportBuilderJSON::BeginUUTTest(UUTTest* uutTest)
{
    if (!uutTest)
        return false;
    AddHeaderItem(UnitItems(), QStringLiteral("UUTTest"),
                  {
                      {QStringLiteral("Result"), uutTest->GetResultString()},
                      {QStringLiteral("Duration"), uutTest->GetDurationStringFormated()},
                      {QStringLiteral("TestTime"), uutTest->GetStartTimeString()},
                      {QStringLiteral("DateTime"), uutTest->GetStopTimeString()},
                      {QStringLiteral("Description"), uutTest->GetResultDescription()},
                  });
    return true;
}

bool CReportBuilderJSON::BeginUnitUnderTest(UnitUnderTest* unit)
{
    if (!unit)
        return false;
    const QSharedPointer<ProductType> productType = unit->GetProductType();
    AddHeaderItem(UnitItems(), QStringLiteral("UnitUnderTest"),
                  {
                      {QStringLiteral("SerialNo"), unit->GetSerialNo()},
                      {QStringLiteral("Ident"), unit->GetIdentString()},
                      {QStringLiteral("PanelIndex"), static_cast<qint64>(unit->GetPanelIndex())},
                      {QStringLiteral("Name"), unit->GetName()},
                      {QStringLiteral("ProductType"), productType ? productType->GetName() : QString()},
                  });
    return true;
}

bool CReportBuilderJSON::BeginProductType(ProductType* productType)
{
    if (!productType)
        return false;
    AddHeaderItem(m_information, QStringLiteral("ProductType"),
                  {
                      {QStringLiteral("Name"), productType->GetName()},
                      {QStringLiteral("Description"), productType->GetDescription()},
                      {QStringLiteral("ArticelCode"), productType->GetArticelCode()},
                      {QStringLiteral("Customer"), productType->GetCustomer()},
                  });
    return true;
}

bool CReportBuilderJSON::BeginProductionLot(ProductionLot* lot)
{
    if (!lot)
        return false;
    AddHeaderItem(m_information, QStringLiteral("ProductionLot"),
                  {
                      {QStringLiteral("LotNumber"), lot->GetName()},
                      {QStringLiteral("OrderCode"), lot->GetOrderCode()},
                  });
    return true;
}

bool CReportBuilderJSON::BeginSession(ZYNSession* session)
{
    if (!session)
        return false;
    AddHeaderItem(m_information, QStringLiteral("TestEnvironment"),
                  {
                      {QStringLiteral("KVAVersion"), Environment::EngineVersion()},
                      {QStringLiteral("MachineName"), session->GetMachineName()},
                      {QStringLiteral("User"), session->GetCurrentUserName()},
                      {QStringLiteral("Workspace"), session->GetWorkspaceName()},
                  });
    return true;
}

bool CReportBuilderJSON::BeginFixture(Fixture* fixture)
{
    if (!fixture)
        return false;
    AddHeaderItem(m_information, QStringLiteral("Fixture"),
                  {
                      {QStringLiteral("Name"), fixture->GetName()},
                      {QStringLiteral("Ident"), fixture->GetIdent()},
                      {QStringLiteral("SerialNo"), fixture->GetSerialNo()},
                      {QStringLiteral("Description"), fixture->GetDescription()},
                  });
    return true;
}

bool CReportBuilderJSON::BeginTestProgram(TestProgram* program, TestResult* result)
{
    if (!program || !result)
        return false;
    m_text.clear();
    m_tails.clear();
    QJsonObject object{
        {QStringLiteral("File"), program->GetFileInfo().fileName()},
        {QStringLiteral("Version"), program->GetVersion()},
        {QStringLiteral("Creator"), program->GetCreator()},
        {QStringLiteral("Name"), program->GetDisplayName()},
        {QStringLiteral("FileVersion"), program->GetFileVersion()},
    };
    // The program's header has the empty string as its key; readers of the format rely on it.
    WriteJsonComponent(QString(), program, object);
    WriteJsonResult(result, object);
    BeginItem(object, QStringLiteral("Groups"));
    return true;
}

bool CReportBuilderJSON::EndTestProgram(TestProgram*)
{
    EndItem();
    return true;
}

bool CReportBuilderJSON::BeginTestGroup(TestGroup* group, TestResult* result)
{
    if (!group || !result)
        return false;
    QJsonObject object;
    WriteJsonComponent(QStringLiteral("TestGroup"), group, object);
    WriteJsonResult(result, object);
    BeginItem(object, QStringLiteral("Steps"));
    return true;
}

bool CReportBuilderJSON::EndTestGroup(TestGroup*)
{
    EndItem();
    return true;
}

bool CReportBuilderJSON::BeginTestStep(TestStep* step, TestResult* result)
{
    if (!step || !result)
        return false;
    QJsonObject object;
    WriteJsonComponent(QStringLiteral("TestStep"), step, object);
    WriteJsonResult(result, object);
    BeginItem(object, QStringLiteral("Values"));
    return true;
}

bool CReportBuilderJSON::EndTestStep(TestStep*)
{
    EndItem();
    return true;
}

bool CReportBuilderJSON::BeginTestMeasurement(TestMeasurement* measurement, TestResult* result)
{
    if (!measurement || !result)
        return false;
    QJsonObject object;
    WriteJsonComponent(QStringLiteral("TestMeasurement"), measurement, object);
    WriteJsonResult(result, object);
    AddToProgram(object);
    return true;
}

bool CReportBuilderJSON::BeginSubUnitTest()
{
    m_inSubUnitTest = true;
    m_hasSubUnitTests = true;
    return true;
}

bool CReportBuilderJSON::EndSubUnitTest()
{
    m_inSubUnitTest = false;
    m_panelItems.append(m_lastProgram);
    return true;
}

} // namespace ZYN
