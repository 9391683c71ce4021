// The parts of the format that all elements share, and the header elements. The elements of the result tree
// are in UPrivateXMLWriterResults.cpp.

#include "UPrivateXMLWriter.h"

#include "XmlText.h"

#include "export/Environment.h"
#include "export/ModelAdapter.h"

#include <ZYNCommon/Fixture.h>
#include <ZYNCommon/ProductTypeMultiPanel.h>
#include <ZYNCommon/ProductionLot.h>
#include <ZYNCommon/UUTTest.h>
#include <ZYNCommon/UnitUnderTest.h>
#include <ZYNCommon/ZYNSession.h>

#include <QtCore/QXmlStreamWriter>

namespace ZYN {

using namespace Qt::StringLiterals;

UPrivateXMLWriter::UPrivateXMLWriter()
    : m_stream(std::make_unique<QXmlStreamWriter>())
{
    m_stream->setAutoFormatting(true);
}

UPrivateXMLWriter::~UPrivateXMLWriter() = default;

void UPrivateXMLWriter::StartDocument(QIODevice* device)
{
    // Open elements and errors of a stream survive a change of its device.
    m_stream = std::make_unique<QXmlStreamWriter>(device);
    m_stream->setAutoFormatting(true);
    m_stream->writeStartDocument();
}

void UPrivateXMLWriter::EndDocument()
{
    m_stream->writeEndElement();
    m_stream->writeEndDocument();
}

void UPrivateXMLWriter::WriteStartElement(const QString& name)
{
    m_stream->writeStartElement(name);
}

void UPrivateXMLWriter::WriteEndElement()
{
    m_stream->writeEndElement();
}

void UPrivateXMLWriter::WriteAttribute(const QString& name, const QString& text)
{
    m_stream->writeAttribute(name, XmlText(text));
}

void UPrivateXMLWriter::WriteAttribute(const QString& name, qint64 number)
{
    m_stream->writeAttribute(name, QString::number(number, 10));
}

void UPrivateXMLWriter::StartProperty(const QString& name)
{
    m_stream->writeStartElement(u"Property"_s);
    m_stream->writeAttribute(u"Name"_s, name);
}

void UPrivateXMLWriter::EndProperty(const QString& text)
{
    // Also when it is empty: only this makes a start and an end tag of it.
    m_stream->writeCharacters(XmlText(text));
    m_stream->writeEndElement();
}

void UPrivateXMLWriter::WriteProperty(const QString& name, const QString& text)
{
    StartProperty(name);
    EndProperty(text);
}

void UPrivateXMLWriter::WriteProperty(const QString& name, qint64 number)
{
    WriteProperty(name, QString::number(number, 10));
}

void UPrivateXMLWriter::WriteProperty(const QString& name, bool flag)
{
    WriteProperty(name, flag ? u"1"_s : u"0"_s);
}

void UPrivateXMLWriter::WriteCounted(const QString& name, qint64 number)
{
    WriteProperty(name, number < 1 ? QString() : QString::number(number, 10));
}

void UPrivateXMLWriter::WriteUUTTest(const UUTTest* uutTest)
{
    WriteStartElement(u"UUTTest"_s);
    StartProperty(u"Result"_s);
    WriteAttribute(u"Result"_s, uutTest->GetResultString());
    EndProperty(QString::number(uutTest->GetResult(), 10));
    WriteProperty(u"Description"_s, uutTest->GetResultDescription());
    WriteProperty(u"DateTime"_s, uutTest->GetStopTimeString());
    WriteProperty(u"Duration"_s, uutTest->GetDurationString());
    WriteProperty(u"TestTime"_s, uutTest->GetStartTimeString());
    WriteEndElement();
}

void UPrivateXMLWriter::WriteUnitUnderTest(const UnitUnderTest* unit)
{
    const QSharedPointer<ProductType> productType = unit->GetProductType();
    WriteStartElement(u"UnitUnderTest"_s);
    WriteProperty(u"Name"_s, unit->GetName());
    WriteProperty(u"SerialNo"_s, unit->GetSerialNo());
    WriteProperty(u"Ident"_s, unit->GetIdentString());
    StartProperty(u"ProductType"_s);
    WriteAttribute(u"Code"_s, qint64(productType ? ModelAdapter::Id(productType.data()) : 0));
    EndProperty(productType ? productType->GetName() : QString());
    WriteProperty(u"PanelIndex"_s, qint64(unit->GetPanelIndex()));
    WriteEndElement();
}

void UPrivateXMLWriter::WriteProductType(const ProductType* productType)
{
    WriteStartElement(u"ProductType"_s);
    WriteAttribute(u"ID"_s, qint64(ModelAdapter::Id(productType)));
    WriteProperty(u"Name"_s, productType->GetName());
    WriteProperty(u"Description"_s, productType->GetDescription());
    WriteProperty(u"ArticelCode"_s, productType->GetArticelCode());
    WriteProperty(u"Customer"_s, productType->GetCustomer());
    WriteParameters(productType);
    WriteCounted(u"ClusterLevel"_s, productType->GetClusterLevel());
    const QSharedPointer<ProductTypeMultiPanel> multiPanelInfo = productType->GetMultiPanelInfo();
    if (multiPanelInfo && multiPanelInfo->IsMultiPanel())
        WriteMultiPanel(multiPanelInfo.data());
    WriteEndElement();
}

void UPrivateXMLWriter::WriteParameters(const ProductType* productType)
{
    const QMap<QString, QString> parameters = productType->GetParameters();
    for (auto parameter = parameters.cbegin(); parameter != parameters.cend(); ++parameter) {
        if (parameter.key().startsWith("_GoldenDevice"_L1))
            continue;
        m_stream->writeEmptyElement(u"Parameter"_s);
        WriteAttribute(XmlText(parameter.key()), parameter.value());
    }
}

void UPrivateXMLWriter::WriteMultiPanel(const ProductTypeMultiPanel* multiPanelInfo)
{
    WriteProperty(u"MCP"_s, multiPanelInfo->IsMultiPanel());
    WriteProperty(u"MCPItems"_s, qint64(multiPanelInfo->GetPanelItems()));
    WriteProperty(u"MCPSplitting"_s, multiPanelInfo->HasSplitting());
    WriteProperty(u"MCPSplittingMap"_s, multiPanelInfo->GetSplittingString());
}

void UPrivateXMLWriter::WriteProductionLot(const ProductionLot* lot)
{
    WriteStartElement(u"ProductionLot"_s);
    WriteProperty(u"LotNumber"_s, lot->GetName());
    WriteProperty(u"OrderCode"_s, lot->GetOrderCode());
    WriteEndElement();
}

void UPrivateXMLWriter::WriteTestEnvironment(const ZYNSession* session)
{
    WriteStartElement(u"TestEnvironment"_s);
    WriteAttribute(u"KVAVersion"_s, Environment::EngineVersion());
    WriteProperty(u"MachineName"_s, session->GetMachineName());
    WriteProperty(u"User"_s, session->GetCurrentUserName());
    WriteProperty(u"Workspace"_s, session->GetWorkspaceName());
    WriteEndElement();
}

void UPrivateXMLWriter::WriteFixture(const Fixture* fixture)
{
    WriteStartElement(u"Fixture"_s);
    WriteProperty(u"Name"_s, fixture->GetName());
    WriteProperty(u"Ident"_s, fixture->GetIdent());
    WriteProperty(u"SerialNo"_s, fixture->GetSerialNo());
    WriteProperty(u"Description"_s, fixture->GetDescription());
    WriteEndElement();
}

} // namespace ZYN
