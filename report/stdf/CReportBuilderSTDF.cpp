#include "CReportBuilderSTDF.h"

#include "StdfFailureFile.h"
#include "StdfLotRecords.h"

#include "export/ModelAdapter.h"

#include <ZYNCommon/TestGroup.h>
#include <ZYNCommon/TestMeasurement.h>
#include <ZYNCommon/TestProgram.h>
#include <ZYNCommon/TestResultSet.h>
#include <ZYNCommon/TestStep.h>
#include <ZYNCommon/UUTTest.h>

#include <QtCore/QFileInfo>

namespace ZYN {

namespace {

/// Name by which a file is recognised in the next export; empty for what is no file.
QString FileNameOf(const QIODevice* output)
{
    const auto* const file = qobject_cast<const QFileDevice*>(output);
    return file ? QFileInfo(file->fileName()).absoluteFilePath() : QString();
}

} // namespace

CReportBuilderSTDF::CReportBuilderSTDF(bool appendMode)
    : append(appendMode)
{
    rawMode = true;
    readWrite = appendMode;
}

CReportBuilderSTDF::~CReportBuilderSTDF()
{
    try {
        ForgetDocument();
    } catch (...) {
        // Not even memory for the counts: the lot is as after a crash, and can be added to.
    }
    if (QIODevice* const output = CExportBuilderImp::GetDevice())
        output->close();
}

bool CReportBuilderSTDF::OpenFile(const QString& fileName)
{
    ForgetDocument();
    return CExportBuilderImp::OpenFile(fileName);
}

bool CReportBuilderSTDF::Open()
{
    ForgetDocument();
    SetOpened(true);
    return true;
}

bool CReportBuilderSTDF::Close()
{
    // Without a test program there is no place in the file: counts at its start would overwrite a lot.
    const QIODevice* const output = GetDevice();
    const bool emptyFile = !started && (!output || output->size() == 0);
    if (emptyFile)
        partCount = goodCount = 0;
    if (started || emptyFile)
        WriteCounts();
    started = false;
    CheckOutput();
    SetOpened(false);
    ForgetDocument();
    return true;
}

// A walk that failed does not close its document. The parts that it has written get their counts all the
// same, else the next export would not find its place behind them.
void CReportBuilderSTDF::ForgetDocument()
{
    if (started)
        WriteCounts();
    started = false;
    blocked = false;
    insideSubUnit = false;
    uutTest = nullptr;
    resultSet = nullptr;
    walksResultSet = false;
    topTest = nullptr;
    program = nullptr;
    group = nullptr;
    step = nullptr;
    measurement = nullptr;
    testNumber = 0;
    pending.Clear();
}

bool CReportBuilderSTDF::BeginSubUnitTest()
{
    insideSubUnit = true;
    return true;
}

bool CReportBuilderSTDF::EndSubUnitTest()
{
    insideSubUnit = false;
    return true;
}

bool CReportBuilderSTDF::BeginUUTTest(UUTTest* test)
{
    uutTest = test;
    resultSet = nullptr;
    walksResultSet = false;
    if (!test)
        return false;
    if (const QList<TestResultSet*> resultSets = test->GetResultSets(); !resultSets.isEmpty())
        resultSet = resultSets.front();
    if (!insideSubUnit || !topTest)
        topTest = test;
    const quint32 stopTime = StdfLotRecords::Seconds(test->GetStopTime());
    if (!insideSubUnit || stopTime != 0)
        finishTime = stopTime;
    return true;
}

bool CReportBuilderSTDF::BeginTestResultSet(TestResultSet* newResultSet)
{
    walksResultSet = newResultSet && newResultSet == resultSet;
    return true;
}

bool CReportBuilderSTDF::EndTestResultSet(TestResultSet*)
{
    walksResultSet = false;
    return true;
}

bool CReportBuilderSTDF::BeginTestProgram(TestProgram* newProgram, TestResult*)
{
    program = newProgram;
    if (!program)
        return false;
    if (!started) {
        started = true;
        if (QIODevice* const output = GetDevice(); output && output->isOpen())
            StartFile(output);
    }
    return true;
}

bool CReportBuilderSTDF::EndTestProgram(TestProgram*)
{
    if (!program)
        return false;
    WritePart();
    program = nullptr;
    return true;
}

bool CReportBuilderSTDF::BeginTestGroup(TestGroup* newGroup, TestResult*)
{
    group = newGroup;
    stepText.reset();
    return group != nullptr;
}

bool CReportBuilderSTDF::EndTestGroup(TestGroup*)
{
    group = nullptr;
    return true;
}

bool CReportBuilderSTDF::BeginTestStep(TestStep* newStep, TestResult*)
{
    step = newStep;
    stepText.reset();
    return true;
}

bool CReportBuilderSTDF::EndTestStep(TestStep*)
{
    const bool known = step != nullptr;
    step = nullptr;
    return known;
}

bool CReportBuilderSTDF::BeginTestMeasurement(TestMeasurement* newMeasurement, TestResult* result)
{
    measurement = newMeasurement;
    if (measurement && step && group && resultSet)
        AddTest(walksResultSet && result ? result : resultSet->GetResult(measurement));
    return true;
}

bool CReportBuilderSTDF::EndTestMeasurement(TestMeasurement*)
{
    const bool known = measurement != nullptr;
    measurement = nullptr;
    return known;
}

void CReportBuilderSTDF::StartFile(QIODevice* output)
{
    if (!append || output->isSequential() || output->size() == 0)
        BeginStream(output, output->pos());
    else if (!uutTest)
        blocked = true; // nothing that could be written belongs to the lot
    else if (foreignFiles.contains(FileNameOf(output)))
        Redirect();
    else if (IsAsLeft(output))
        output->seek(lastClosing.position);
    else
        GoOn(output);
}

void CReportBuilderSTDF::GoOn(QIODevice* output)
{
    StdfLotFile lot(output);
    if (lot.HoldsNothing())
        BeginStream(output, 0);
    else if (lot.ReadNames() != StdfLotRecords::Names(topTest))
        Redirect();
    else
        GoOnAt(output, lot.FindPlace());
}

void CReportBuilderSTDF::GoOnAt(QIODevice* output, const StdfPlace& place)
{
    if (!place.closingPcr) {
        BeginStream(output, place.position);
        return;
    }
    partCount = place.partCount;
    goodCount = place.goodCount;
    output->seek(place.position);
}

/// Whether nobody has written to the file since this builder closed it.
bool CReportBuilderSTDF::IsAsLeft(QIODevice* output) const
{
    if (lastClosing.records.isEmpty() || lastClosing.fileName != FileNameOf(output) ||
        output->size() != lastClosing.position + lastClosing.records.size())
        return false;
    return output->seek(lastClosing.position) &&
           output->read(lastClosing.records.size()) == lastClosing.records;
}

void CReportBuilderSTDF::BeginStream(QIODevice* output, qint64 position)
{
    partCount = 0;
    goodCount = 0;
    if (!output->isSequential())
        output->seek(position);
    Write(StdfLotRecords::FileHeader(topTest, program));
}

void CReportBuilderSTDF::Redirect()
{
    const auto* const lot = qobject_cast<QFileDevice*>(GetDevice());
    if (!lot) {
        blocked = true;
        NoteOutputFailure();
        return;
    }
    foreignFiles.insert(FileNameOf(lot));
    const QString name = StdfFailureFileName(lot->fileName(), StdfLotRecords::UnitIdent(uutTest));
    const bool ownFile = failureFiles.contains(name);

    // Opening a file ends a document; this one goes on in the other file.
    const bool wasOpened = IsOpened();
    readWrite = ownFile;
    const bool openedFile = CExportBuilderImp::OpenFile(name);
    readWrite = append;
    SetOpened(wasOpened);
    if (!openedFile)
        return;

    failureFiles.insert(name);
    QIODevice* const output = GetDevice();
    if (ownFile && output->size() > 0)
        GoOnAt(output, StdfLotFile(output).FindPlace());
    else
        BeginStream(output, 0);
}

void CReportBuilderSTDF::AddTest(const TestResult* result)
{
    if (!result)
        return;
    if (pending.IsEmpty())
        pending.Add(StdfLotRecords::PartStart(pending.Room()));
    ++testNumber;
    if (!stepText)
        stepText.emplace(step, group);
    pending.Add(StdfTestRecord(pending.Room(), testNumber, measurement, *stepText, result));
}

void CReportBuilderSTDF::WritePart()
{
    if (pending.IsEmpty())
        return;
    pending.Add(StdfLotRecords::PartResult(pending.Room(), uutTest, topTest, testNumber));
    pending.ForEachBlock([this](QByteArrayView records) { Write(records); });
    pending.Clear();
    testNumber = 0;
    ++partCount;
    // A count that another program left as unknown stays so.
    if (ModelAdapter::IsPassed(uutTest->GetResult()) && goodCount != StdfFormat::unknownCount)
        ++goodCount;
}

void CReportBuilderSTDF::WriteCounts()
{
    const QByteArray closing =
        StdfLotRecords::Closing(partCount, goodCount, uutTest ? std::optional(finishTime) : std::nullopt);
    QIODevice* const output = GetDevice();
    const qint64 position = output ? output->pos() : 0;
    lastClosing = {};
    if (!Write(closing))
        return;
    CutBehindCounts(output);
    // Counts without a header before them are nothing to go on at.
    if (started && uutTest)
        lastClosing = {FileNameOf(output), position, closing};
}

/// What a crash or another program left behind the place where this document began is no part of the lot.
void CReportBuilderSTDF::CutBehindCounts(QIODevice* output)
{
    auto* const lot = qobject_cast<QFileDevice*>(output);
    if (lot && !lot->isSequential() && lot->size() > lot->pos() && !lot->resize(lot->pos()))
        NoteOutputFailure();
}

bool CReportBuilderSTDF::Write(QByteArrayView records)
{
    if (blocked)
        return false;
    QIODevice* const output = GetDevice();
    if (!output || !output->isOpen() || !output->isWritable() ||
        output->write(records.data(), records.size()) != records.size()) {
        NoteOutputFailure();
        return false;
    }
    return true;
}

} // namespace ZYN
