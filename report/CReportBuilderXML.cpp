#include "CReportBuilderXML.h"

#include "UPrivateXMLWriter.h"
#include "XmlText.h"

#include <ZYNCommon/TestGroup.h>
#include <ZYNCommon/TestMeasurement.h>
#include <ZYNCommon/TestParameter.h>
#include <ZYNCommon/TestProgram.h>
#include <ZYNCommon/TestResult.h>
#include <ZYNCommon/TestStep.h>

#include <QtCore/QFileInfo>
#include <QtCore/QXmlStreamWriter>

namespace ZYN {

using namespace Qt::StringLiterals;

bool CReportBuilderXML::Open()
{
    QIODevice* const output = OpenedDevice();
    if (!output)
        return false;
    m_writer->StartDocument(output);
    WriteStyleSheet();
    m_writer->WriteStartElement(u"TestReport"_s);
    m_writer->WriteAttribute(u"Version"_s, u"1.4.0"_s);
    SetOpened(true);
    return true;
}

void CReportBuilderXML::WriteStyleSheet()
{
    const QString style = GetProperty(u"XMLStyle"_s);
    if (style.isEmpty())
        return;
    // In one call: each call of the raw output begins a new line.
    m_writer->Stream().writeDTD(u"<?xml-stylesheet type=\"text/xsl\" href=\""_s +
                                XmlText(QFileInfo(style).absoluteFilePath()) + u"\"?>"_s);
}

bool CReportBuilderXML::BeginUUTTest(UUTTest* uutTest)
{
    if (!uutTest)
        return false;
    m_writer->WriteUUTTest(uutTest);
    return true;
}

bool CReportBuilderXML::BeginProductionLot(ProductionLot* lot)
{
    if (!lot)
        return false;
    m_writer->WriteProductionLot(lot);
    return true;
}

bool CReportBuilderXML::BeginFixture(Fixture* fixture)
{
    if (!fixture)
        return false;
    m_writer->WriteFixture(fixture);
    return true;
}

bool CReportBuilderXML::BeginTestResults()
{
    return StartContainer(u"TestResults"_s);
}

bool CReportBuilderXML::EndTestResults()
{
    return EndContainer();
}

bool CReportBuilderXML::BeginTestResultSet(TestResultSet* resultSet)
{
    if (!resultSet)
        return false;
    m_writer->WriteStartElement(u"TestResultSet"_s);
    m_writer->WriteTestResultSetProperties(resultSet);
    return true;
}

bool CReportBuilderXML::EndTestResultSet(TestResultSet*)
{
    return EndContainer();
}

bool CReportBuilderXML::BeginTestProgram(TestProgram* program, TestResult* result)
{
    if (!program)
        return false;
    StartComponent(u"Testprogram"_s, program);
    m_writer->WriteTestProgramProperties(program);
    if (result)
        m_writer->WriteResult(result);
    return true;
}

bool CReportBuilderXML::EndTestProgram(TestProgram*)
{
    return EndContainer();
}

bool CReportBuilderXML::BeginTestGroup(TestGroup* group, TestResult* result)
{
    if (!group || !result)
        return false;
    StartComponent(u"TestGroup"_s, group);
    m_writer->WriteTestGroupProperties(group);
    m_writer->WriteResult(result);
    return true;
}

bool CReportBuilderXML::EndTestGroup(TestGroup* group)
{
    return group && EndContainer();
}

bool CReportBuilderXML::BeginTestStep(TestStep* step, TestResult* result)
{
    if (!step || !result)
        return false;
    StartComponent(u"TestStep"_s, step);
    m_writer->WriteTestStepProperties(step);
    m_writer->WriteResult(result);
    return true;
}

bool CReportBuilderXML::EndTestStep(TestStep*)
{
    return EndContainer();
}

bool CReportBuilderXML::BeginTestParameter(TestParameter* parameter, TestResult* result)
{
    if (!parameter || !result)
        return false;
    WriteLeaf(u"TestParameter"_s, parameter, result);
    return true;
}

bool CReportBuilderXML::BeginTestMeasurement(TestMeasurement* measurement, TestResult* result)
{
    if (!measurement || !result)
        return false;
    WriteLeaf(u"TestMeasurement"_s, measurement, result);
    return true;
}

bool CReportBuilderXML::BeginSubUnitTests()
{
    return StartContainer(u"SubUnitTests"_s);
}

bool CReportBuilderXML::EndSubUnitTests()
{
    return EndContainer();
}

bool CReportBuilderXML::BeginSubUnitTest()
{
    return StartContainer(u"SubUnitTest"_s);
}

bool CReportBuilderXML::EndSubUnitTest()
{
    return EndContainer();
}

void CReportBuilderXML::StartComponent(const QString& element, const TestComponent* component)
{
    m_writer->WriteStartElement(element);
    m_writer->WriteComponentAttributes(component);
    m_writer->WriteComponentProperties(component);
}

void CReportBuilderXML::WriteLeaf(const QString& element, const TestComponent* component,
                                  const TestResult* result)
{
    StartComponent(element, component);
    if (const auto& validation = result->GetValidation())
        m_writer->WriteLimits(validation.data(), component);
    m_writer->WriteResult(result);
    m_writer->WriteEndElement();
}

bool CReportBuilderXML::StartContainer(const QString& element)
{
    m_writer->WriteStartElement(element);
    return true;
}

bool CReportBuilderXML::EndContainer()
{
    m_writer->WriteEndElement();
    return true;
}

} // namespace ZYN
