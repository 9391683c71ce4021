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
    writer->StartDocument(output);
    writer->WriteStartElement(u"TestStatisticsReport"_s);
    writer->WriteAttribute(u"Version"_s, u"1.0.2"_s);
    SetOpened(true);
    return true;
}

bool CStatisticsReportBuilderXML::BeginTestProgram(TestProgram* program)
{
    if (!program)
        return false;
    writer->WriteStartElement(u"Testprogram"_s);
    writer->WriteComponentAttributes(program);
    writer->WriteTestProgramProperties(program);
    writer->WriteEndElement();
    return true;
}

bool CStatisticsReportBuilderXML::BeginStatisticsData(StatisticsData* data)
{
    if (!data)
        return false;
    writer->WriteStartElement(u"TestData"_s);
    if (const TestComponent* const component = data->GetComponent())
        writer->WriteComponentAttributes(component);
    writer->WriteProperty(u"Pass"_s, qint64(data->GetNrPass()));
    writer->WriteProperty(u"Fail"_s, qint64(data->GetNrFail()));
    if (data->HasStatisticDetails())
        WriteFigures(data);
    writer->WriteEndElement();
    return true;
}

void CStatisticsReportBuilderXML::WriteFigures(const StatisticsData* data)
{
    StatisticsDataDecoration figures(data);
    figures.SetUseScaledData(GetUseScaledData());
    writer->WriteProperty(u"CPK"_s, figures.GetCPK());
    writer->WriteProperty(u"Min"_s, figures.GetMin());
    writer->WriteProperty(u"Max"_s, figures.GetMax());
    writer->WriteProperty(u"Average"_s, figures.GetAverage());
    writer->WriteProperty(u"Sigma"_s, figures.GetSigma());
    writer->WriteProperty(u"Lower"_s, figures.GetLowerLimit());
    writer->WriteProperty(u"Upper"_s, figures.GetUpperLimit());
    writer->WriteProperty(u"Unit"_s, figures.GetUnitString());
}

} // namespace ZYN
