#include "CTestPlanBuilderXML.h"

#include "export/ModelAdapter.h"
#include "report/UPrivateXMLWriter.h"
#include "report/XmlText.h"

#include <ZYNCommon/CtrlAttributes.h>
#include <ZYNCommon/CtrlTestPlanValues.h>
#include <ZYNCommon/CtrlValidation.h>
#include <ZYNCommon/TestParameter.h>
#include <ZYNCommon/TestProgram.h>
#include <ZYNCommon/TestStep.h>

#include <QtCore/QXmlStreamWriter>

#include <vector>

namespace ZYN {

namespace {

// Indentation grows with the square of the depth: a tree of 10,000 levels would be 400 MB of blanks.
// Whatever lies deeper than this is written without.
constexpr std::size_t MaximumIndentedDepth = 1000;

constexpr QLatin1StringView logInReport("LogInReport");

QString BooleanText(bool value)
{
    return QVariant(value).toString();
}

} // namespace

CTestPlanBuilderXML::CTestPlanBuilderXML(bool excludeBinIdProperties)
    : writer(std::make_unique<UPrivateXMLWriter>())
    , excludeBinIds(excludeBinIdProperties)
{
}

CTestPlanBuilderXML::~CTestPlanBuilderXML() = default;

bool CTestPlanBuilderXML::Open()
{
    QIODevice* const output = OpenedDevice();
    if (!output)
        return false;
    writer->StartDocument(output);
    SetOpened(true);
    writer->WriteStartElement(QStringLiteral("TestPlan"));
    writer->WriteAttribute(QStringLiteral("Version"), QStringLiteral("3.0.0"));
    componentsWritten = 0;
    return true;
}

bool CTestPlanBuilderXML::Close()
{
    writer->EndDocument();
    CheckOutput(writer->Stream());
    SetOpened(false);
    if (componentsWritten == 0)
        RemoveOutputFile();
    return true;
}

bool CTestPlanBuilderXML::BeginTestProgram(TestProgram* program)
{
    return WriteComponent(program);
}

bool CTestPlanBuilderXML::BeginTestGroup(TestGroup* group)
{
    return WriteComponent(group);
}

bool CTestPlanBuilderXML::BeginTestStep(TestStep* step)
{
    return WriteComponent(step);
}

bool CTestPlanBuilderXML::BeginTestParameter(TestParameter* parameter)
{
    return WriteComponent(parameter);
}

bool CTestPlanBuilderXML::BeginTestMeasurement(TestMeasurement* measurement)
{
    return WriteComponent(measurement);
}

bool CTestPlanBuilderXML::EndTestProgram(TestProgram*)
{
    writer->WriteEndElement();
    return true;
}

bool CTestPlanBuilderXML::WriteComponent(TestComponent* component)
{
    if (!component)
        return false;
    if (component->IsTestplanDisabled())
        return true;
    const bool hasValidation = WriteValidation(component);
    const bool hasAttributes = WriteAttributes(component);
    const bool hasProperties = WriteProperties(component);
    if (hasValidation || hasAttributes || hasProperties)
        ++componentsWritten;
    return true;
}

bool CTestPlanBuilderXML::WriteValidation(const TestComponent* component)
{
    const CtrlValidation* const control = component->GetValidationCtrl();
    const QSharedPointer<ValidationInterface> validation = control ? control->GetValidation() : nullptr;
    if (!validation)
        return false;
    writer->WriteStartElement(QStringLiteral("Validation"));
    writer->WriteAttribute(QStringLiteral("Ident"), component->GetIdentString());
    writer->WriteAttribute(QStringLiteral("Type"), qint64(ModelAdapter::TypeCode(component)));
    writer->WriteAttribute(QStringLiteral("Name"), component->GetName());
    writer->WriteAttribute(QStringLiteral("Unit"), ModelAdapter::Unit(validation.get()).ToString());
    const QList<QString> names = ModelAdapter::PropertyNames(validation.get());
    for (const QString& name : names)
        WriteValidationProperty(name, validation.get());
    writer->WriteEndElement();
    return true;
}

void CTestPlanBuilderXML::WriteValidationProperty(const QString& name, const ValidationInterface* validation)
{
    // The name is an attribute of the element, log-in-report belongs to "Properties".
    if (name == QLatin1String("Name") || name == logInReport)
        return;
    if (excludeBinIds && name.contains(QLatin1String("BinId")))
        return;
    if (const QVariant value = ModelAdapter::Property(validation, name); value.isValid())
        writer->WriteProperty(XmlText(name), value.toString());
}

bool CTestPlanBuilderXML::WriteAttributes(const TestComponent* component)
{
    const CtrlAttributes* const control = component->GetAttributesCtrl();
    const QList<TestComponentAttr*> items = control ? control->GetAttributes() : QList<TestComponentAttr*>();
    if (items.isEmpty())
        return false;
    writer->WriteStartElement(QStringLiteral("Attributes"));
    writer->WriteAttribute(QStringLiteral("Ident"), component->GetIdentString());
    WriteItems(items);
    writer->WriteEndElement();
    return true;
}

// A stack of its own instead of recursion: the depth of a tree comes from files.
void CTestPlanBuilderXML::WriteItems(const QList<TestComponentAttr*>& items)
{
    struct Level {
        QList<TestComponentAttr*> items;
        qsizetype next = 0;
    };
    std::vector<Level> levels;
    levels.push_back({items});
    while (!levels.empty()) {
        writer->Stream().setAutoFormatting(levels.size() <= MaximumIndentedDepth);
        Level& level = levels.back();
        if (level.next == level.items.size()) {
            levels.pop_back();
            if (!levels.empty())
                writer->WriteEndElement();
            continue;
        }
        const TestComponentAttr* const item = level.items.at(level.next++);
        if (!ModelAdapter::IsCategory(item)) {
            WriteAttribute(item);
            continue;
        }
        writer->WriteStartElement(QStringLiteral("Category"));
        writer->WriteAttribute(QStringLiteral("Name"), ModelAdapter::ItemName(item));
        levels.push_back({ModelAdapter::ItemChildren(item)});
    }
}

void CTestPlanBuilderXML::WriteAttribute(const TestComponentAttr* item)
{
    writer->WriteStartElement(QStringLiteral("Attribute"));
    writer->WriteAttribute(QStringLiteral("Name"), ModelAdapter::ItemName(item));
    writer->WriteAttribute(QStringLiteral("Type"), ModelAdapter::ItemTypeText(item));
    writer->Stream().writeCharacters(XmlText(ModelAdapter::ItemValue(item).toString()));
    writer->WriteEndElement();
}

bool CTestPlanBuilderXML::WriteProperties(TestComponent* component)
{
    const CtrlTestPlanValues* const control = component->GetTestPlanValuesCtrl();
    if (!control)
        return false;
    writer->WriteStartElement(QStringLiteral("Properties"));
    writer->WriteAttribute(QStringLiteral("Ident"), component->GetIdentString());
    writer->WriteProperty(logInReport, BooleanText(control->GetLogInReport()));
    // A measurement is executed with its step and has no switch of its own.
    if (!qobject_cast<TestMeasurement*>(component))
        writer->WriteProperty(QStringLiteral("Enabled"), BooleanText(control->IsEnabled()));
    writer->WriteEndElement();
    return true;
}

} // namespace ZYN
