#include "CStatisticsReportBuilderXML.h"

#include "report/UPrivateXMLWriter.h"

#include <ZYNCommon/StatisticsData.h>
#include <ZYNCommon/StatisticsDataDecoration.h>
#include <ZYNCommon/TestProgram.h>

namespace ZYN {

using namespace Qt::StringLiterals;

bool CStatisticsReportBuilderXML::Open()
{
    QIODevice* const output = OpenedDevice();
    if (!output)
        return false;
    m_writer->StartDocument(output);
    m_writer->WriteStartElement(u"TestStatisticsReport"_s);
    m_writer->WriteAttribute(u"Version"_s, u"1.0.2"_s);
    SetOpened(true);
    return true;
}

bool CStatisticsReportBuilderXML::BeginTestProgram(TestProgram* program)
{
    if (!program)
        return false;
    m_writer->WriteStartElement(u"Testprogram"_s);
    m_writer->WriteComponentAttributes(program);
    m_writer->WriteTestProgramProperties(program);
    m_writer->WriteEndElement();
    return true;
}

bool CStatisticsReportBuilderXML::BeginStatisticsData(StatisticsData* data)
{
    if (!data)
        return false;
    m_writer->WriteStartElement(u"TestData"_s);
    if (const TestComponent* const component = data->GetComponent())
        m_writer->WriteComponentAttributes(component);
    m_writer->WriteProperty(u"Pass"_s, qint64(data->GetNrPass()));
    m_writer->WriteProperty(u"Fail"_s, qint64(data->GetNrFail()));
    if (data->HasStatisticDetails())
        WriteFigures(data);
    m_writer->WriteEndElement();
    return true;
}

void CStatisticsReportBuilderXML::WriteFigures(const StatisticsData* data)
{
    StatisticsDataDecoration figures(data);
    figures.SetUseScaledData(GetUseScaledData());
    m_writer->WriteProperty(u"CPK"_s, figures.GetCPK());
    m_writer->WriteProperty(u"Min"_s, figures.GetMin());
    m_writer->WriteProperty(u"Max"_s, figures.GetMax());
    m_writer->WriteProperty(u"Average"_s, figures.GetAverage());
    m_writer->WriteProperty(u"Sigma"_s, figures.GetSigma());
    m_writer->WriteProperty(u"Lower"_s, figures.GetLowerLimit());
    m_writer->WriteProperty(u"Upper"_s, figures.GetUpperLimit());
    m_writer->WriteProperty(u"Unit"_s, figures.GetUnitString());
}

} // namespace ZYN
