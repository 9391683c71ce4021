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
constexpr std::size_t maximumIndentedDepth = 1000;

constexpr QLatin1StringView logInReport("LogInReport");

QString BooleanText(bool value)
{
    return QVariant(value).toString();
}

} // namespace

CTestPlanBuilderXML::CTestPlanBuilderXML(bool excludeBinIdProperties)
    : m_writer(std::make_unique<UPrivateXMLWriter>())
    , m_excludeBinIds(excludeBinIdProperties)
{
}

CTestPlanBuilderXML::~CTestPlanBuilderXML() = default;

bool CTestPlanBuilderXML::Open()
{
    QIODevice* const output = OpenedDevice();
    if (!output)
        return false;
    m_writer->StartDocument(output);
    SetOpened(true);
    m_writer->WriteStartElement(QStringLiteral("TestPlan"));
    m_writer->WriteAttribute(QStringLiteral("Version"), QStringLiteral("3.0.0"));
    m_componentsWritten = 0;
    return true;
}

bool CTestPlanBuilderXML::Close()
{
    m_writer->EndDocument();
    CheckOutput(m_writer->Stream());
    SetOpened(false);
    if (m_componentsWritten == 0)
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
    m_writer->WriteEndElement();
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
        ++m_componentsWritten;
    return true;
}

bool CTestPlanBuilderXML::WriteValidation(const TestComponent* component)
{
    const CtrlValidation* const control = component->GetValidationCtrl();
    const QSharedPointer<ValidationInterface> validation = control ? control->GetValidation() : nullptr;
    if (!validation)
        return false;
    m_writer->WriteStartElement(QStringLiteral("Validation"));
    m_writer->WriteAttribute(QStringLiteral("Ident"), component->GetIdentString());
    m_writer->WriteAttribute(QStringLiteral("Type"), qint64(ModelAdapter::TypeCode(component)));
    m_writer->WriteAttribute(QStringLiteral("Name"), component->GetName());
    m_writer->WriteAttribute(QStringLiteral("Unit"), ModelAdapter::Unit(validation.get()).ToString());
    const QList<QString> names = ModelAdapter::PropertyNames(validation.get());
    for (const QString& name : names)
        WriteValidationProperty(name, validation.get());
    m_writer->WriteEndElement();
    return true;
}

void CTestPlanBuilderXML::WriteValidationProperty(const QString& name, const ValidationInterface* validation)
{
    // The name is an attribute of the element, log-in-report belongs to "Properties".
    if (name == QLatin1String("Name") || name == logInReport)
        return;
    if (m_excludeBinIds && name.contains(QLatin1String("BinId")))
        return;
    if (const QVariant value = ModelAdapter::Property(validation, name); value.isValid())
        m_writer->WriteProperty(XmlText(name), value.toString());
}

bool CTestPlanBuilderXML::WriteAttributes(const TestComponent* component)
{
    const CtrlAttributes* const control = component->GetAttributesCtrl();
    const QList<TestComponentAttr*> items = control ? control->GetAttributes() : QList<TestComponentAttr*>();
    if (items.isEmpty())
        return false;
    m_writer->WriteStartElement(QStringLiteral("Attributes"));
    m_writer->WriteAttribute(QStringLiteral("Ident"), component->GetIdentString());
    WriteItems(items);
    m_writer->WriteEndElement();
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
        m_writer->Stream().setAutoFormatting(levels.size() <= maximumIndentedDepth);
        Level& level = levels.back();
        if (level.next == level.items.size()) {
            levels.pop_back();
            if (!levels.empty())
                m_writer->WriteEndElement();
            continue;
        }
        const TestComponentAttr* const item = level.items.at(level.next++);
        if (!ModelAdapter::IsCategory(item)) {
            WriteAttribute(item);
            continue;
        }
        m_writer->WriteStartElement(QStringLiteral("Category"));
        m_writer->WriteAttribute(QStringLiteral("Name"), ModelAdapter::ItemName(item));
        levels.push_back({ModelAdapter::ItemChildren(item)});
    }
}

void CTestPlanBuilderXML::WriteAttribute(const TestComponentAttr* item)
{
    m_writer->WriteStartElement(QStringLiteral("Attribute"));
    m_writer->WriteAttribute(QStringLiteral("Name"), ModelAdapter::ItemName(item));
    m_writer->WriteAttribute(QStringLiteral("Type"), ModelAdapter::ItemTypeText(item));
    m_writer->Stream().writeCharacters(XmlText(ModelAdapter::ItemValue(item).toString()));
    m_writer->WriteEndElement();
}

bool CTestPlanBuilderXML::WriteProperties(TestComponent* component)
{
    const CtrlTestPlanValues* const control = component->GetTestPlanValuesCtrl();
    if (!control)
        return false;
    m_writer->WriteStartElement(QStringLiteral("Properties"));
    m_writer->WriteAttribute(QStringLiteral("Ident"), component->GetIdentString());
    m_writer->WriteProperty(logInReport, BooleanText(control->GetLogInReport()));
    // A measurement is executed with its step and has no switch of its own.
    if (!qobject_cast<TestMeasurement*>(component))
        m_writer->WriteProperty(QStringLiteral("Enabled"), BooleanText(control->IsEnabled()));
    m_writer->WriteEndElement();
    return true;
}

} // namespace ZYN
