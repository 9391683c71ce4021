#include <ZYNPersistence/CImportServiceReport.h>

#include "CImportServiceReport_Private.h"

#include <ZYNCommon/Station.h>
#include <ZYNCommon/TestGroup.h>
#include <ZYNCommon/TestProgram.h>
#include <ZYNCommon/TestResult.h>
#include <ZYNCommon/TestStep.h>
#include <ZYNCommon/ValidationInterface.h>

namespace ZYN {

namespace {

/// Runs what may throw. What is thrown ends the parse and becomes the service's error text.
template <class Work>
bool Guarded(CImportServiceReport_Private* d, const Work& work) noexcept
{
    try {
        return work();
    } catch (...) {
        d->DropDocument();
    }
    try {
        d->errorText = CImportServiceReport_Private::tr("Not enough memory for the import.");
    } catch (...) {
        // A text that needs no memory.
        d->errorText = QStringLiteral("Not enough memory for the import.");
    }
    return false;
}

/// Runs a handler, if there is a document to read.
template <class... Argument>
bool Handle(CImportServiceReport_Private* d, bool (CImportServiceReport_Private::*handler)(Argument*...),
            Argument*... argument)
{
    if (!d->reader || (... || !argument))
        return false;
    return Guarded(d, [&] { return (d->*handler)(argument...); });
}

using Private = CImportServiceReport_Private;

} // namespace

CImportServiceReport::CImportServiceReport()
    : d(new CImportServiceReport_Private)
{
}

CImportServiceReport::CImportServiceReport(const CImportServiceReport& other)
    : d(new CImportServiceReport_Private)
{
    d->fileName = other.d->fileName;
    if (other.FormatOk())
        SetFormat(other.d->formatName);
}

CImportServiceReport::~CImportServiceReport()
{
    delete d;
}

bool CImportServiceReport::SetFormat(const QString& format)
{
    return Guarded(d, [&] { return d->SetFormat(format); });
}

bool CImportServiceReport::FormatOk() const
{
    return d->format != nullptr;
}

void CImportServiceReport::SetInputFileName(const QString& fileName)
{
    d->fileName = fileName;
}

bool CImportServiceReport::Import(UUTTest* uutTest)
{
    return Guarded(d, [&] { return d->Import(uutTest); });
}

QString CImportServiceReport::GetErrorText() const
{
    return d->errorText;
}

QList<ImportFinding> CImportServiceReport::GetFindings() const
{
    return d->findings;
}

bool CImportServiceReport::Stream_UUTTest(UUTTest* uutTest)
{
    return Handle(d, &Private::ReadUUTTest, uutTest);
}

bool CImportServiceReport::Stream_UnitUnderTest(UUTTest* uutTest)
{
    return Handle(d, &Private::ReadUnitUnderTest, uutTest);
}

bool CImportServiceReport::Stream_ProductType()
{
    return Handle(d, &Private::ReadProductType);
}

bool CImportServiceReport::Stream_ProductionLot(UUTTest* uutTest)
{
    return Handle(d, &Private::ReadProductionLot, uutTest);
}

bool CImportServiceReport::Stream_TestEnvironment(UUTTest* uutTest)
{
    return Handle(d, &Private::ReadTestEnvironment, uutTest);
}

bool CImportServiceReport::Stream_TestResults(UUTTest* uutTest)
{
    return Handle(d, &Private::ReadTestResults, uutTest);
}

bool CImportServiceReport::Stream_TestProgram()
{
    return Handle(d, &Private::ReadTestProgram);
}

bool CImportServiceReport::Stream_TestGroup()
{
    return Handle(d, &Private::ReadTestGroup);
}

bool CImportServiceReport::Stream_TestStep()
{
    return Handle(d, &Private::ReadTestStep);
}

bool CImportServiceReport::Stream_TestMeasurement()
{
    return Handle(d, &Private::ReadTestMeasurement);
}

bool CImportServiceReport::Stream_TestLimits()
{
    return Handle(d, &Private::ReadTestLimits);
}

bool CImportServiceReport::Stream_TestResult()
{
    return Handle(d, &Private::ReadTestResult);
}

bool CImportServiceReport::Stream_SubUnitTests(UUTTest* uutTest)
{
    return Handle(d, &Private::ReadSubUnitTests, uutTest);
}

bool CImportServiceReport::Stream_SubUnitTest(UUTTest* uutTest)
{
    return Handle(d, &Private::ReadSubUnitTest, uutTest);
}

} // namespace ZYN
