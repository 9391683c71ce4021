// The way through the document: which element is read by which handler, and what was wrong with it.

#include "CImportServiceReport_Private.h"

#include "ReportDocument.h"
#include "XmlProlog.h"

#include <ZYNCommon/ProductType.h>
#include <ZYNCommon/Station.h>
#include <ZYNCommon/TestGroup.h>
#include <ZYNCommon/TestProgram.h>
#include <ZYNCommon/TestResult.h>
#include <ZYNCommon/TestStep.h>
#include <ZYNCommon/UUTTest.h>
#include <ZYNCommon/ValidationInterface.h>

namespace ZYN {

using namespace Qt::StringLiterals;

namespace {

/// More say nothing new, and a hostile document could hold millions.
constexpr qsizetype mostFindings = 1000;

} // namespace

bool CImportServiceReport_Private::Import(UUTTest* uutTest)
{
    findings.clear();
    if (!uutTest)
        return false;
    QString readError;
    const std::optional<QByteArray> bytes = ReportDocument::Read(fileName, &readError);
    if (!bytes)
        return false;
    if (!readError.isEmpty())
        findings.append({0, 0, tr("the file could not be read to its end: %1").arg(readError)});

    DropDocument();
    document.setData(*bytes);
    document.open(QIODevice::ReadOnly);
    reader = std::make_unique<QXmlStreamReader>(&document);
    ReadDocument(uutTest);
    if (reader->hasError())
        AddFinding(reader->errorString());
    DropDocument();
    return true;
}

void CImportServiceReport_Private::DropDocument()
{
    m_result = nullptr;
    m_results.clear();
    m_step.reset();
    m_group.reset();
    m_program.reset();
    reader.reset();
    document.close();
    document.setData(QByteArray());
}

void CImportServiceReport_Private::ReadDocument(UUTTest* uutTest)
{
    if (XmlProlog::MoveToRoot(*reader, document.data()))
        CheckRoot();
    for (; !reader->atEnd(); reader->readNext()) {
        if (!reader->isStartElement())
            continue;
        const QStringView name = reader->name();
        if (name == "UUTTest"_L1)
            ReadUUTTest(uutTest);
        else if (name == "UnitUnderTest"_L1)
            ReadUnitUnderTest(uutTest);
        else if (name == "ProductType"_L1)
            ReadProductType();
        else if (name == "ProductionLot"_L1)
            ReadProductionLot(uutTest);
        else if (name == "TestEnvironment"_L1)
            ReadTestEnvironment(uutTest);
        else if (name == "TestResults"_L1)
            ReadTestResults(uutTest);
        else if (name == "SubUnitTests"_L1)
            ReadSubUnitTests(uutTest);
        else if (name != "TestReport"_L1 && name != "Fixture"_L1 && name != "Property"_L1)
            AddFinding(tr("element '%1' is not expected here, passed over").arg(name));
    }
}

void CImportServiceReport_Private::CheckRoot()
{
    if (reader->name() != "TestReport"_L1) {
        AddFinding(tr("the root element is '%1', not 'TestReport'").arg(reader->name()));
        return;
    }
    const QXmlStreamAttributes attributes = reader->attributes();
    const QStringView version = attributes.value("Version"_L1);
    if (version.isEmpty())
        AddFinding(tr("the report has no version"));
    else if (version != ReportDocument::KnownVersion())
        AddFinding(tr("version '%1' is not known, only '%2'").arg(version, ReportDocument::KnownVersion()));
}

void CImportServiceReport_Private::SkipElement(QLatin1StringView parent)
{
    AddFinding(tr("element '%1' is not expected in '%2', skipped").arg(reader->name(), parent));
    reader->skipCurrentElement();
}

int CImportServiceReport_Private::Integer(QStringView text, bool emptyIsGood)
{
    bool ok = false;
    const int number = ReportValues::ToInteger(text, &ok);
    if (!ok && !(emptyIsGood && text.isEmpty()))
        AddFinding(tr("'%1' is not an integer of 32 bits, read as 0").arg(text));
    return number;
}

double CImportServiceReport_Private::Duration(QStringView milliseconds)
{
    bool ok = false;
    const double seconds = ReportValues::ToReal(milliseconds, -3, &ok);
    if (!ok)
        AddFinding(tr("duration '%1' is not a number, read as 0").arg(milliseconds));
    return seconds;
}

void CImportServiceReport_Private::NoteUnknownProperty(QStringView name, QLatin1StringView element)
{
    AddFinding(tr("property '%1' of '%2' is unknown, not read").arg(name, element));
}

void CImportServiceReport_Private::NoteStrayText(QLatin1StringView element)
{
    AddFinding(tr("text in '%1' outside of a property or behind its first piece, not read").arg(element));
}

void CImportServiceReport_Private::Add(const QString& text, bool isError)
{
    if (findings.size() < mostFindings)
        findings.append({reader->lineNumber(), reader->columnNumber() + 1, text, isError});
    else if (findings.size() == mostFindings)
        findings.append({0, 0, tr("there is more, which is not listed")});
}

} // namespace ZYN
