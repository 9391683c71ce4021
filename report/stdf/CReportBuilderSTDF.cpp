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
    : m_append(appendMode)
{
    m_rawMode = true;
    m_readWrite = appendMode;
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
    const bool emptyFile = !m_started && (!output || output->size() == 0);
    if (emptyFile)
        m_partCount = m_goodCount = 0;
    if (m_started || emptyFile)
        WriteCounts();
    m_started = false;
    CheckOutput();
    SetOpened(false);
    ForgetDocument();
    return true;
}

// A walk that failed does not close its document. The parts that it has written get their counts all the
// same, else the next export would not find its place behind them.
void CReportBuilderSTDF::ForgetDocument()
{
    if (m_started)
        WriteCounts();
    m_started = false;
    m_blocked = false;
    m_insideSubUnit = false;
    m_uutTest = nullptr;
    m_resultSet = nullptr;
    m_walksResultSet = false;
    m_topTest = nullptr;
    m_program = nullptr;
    m_group = nullptr;
    m_step = nullptr;
    m_measurement = nullptr;
    m_testNumber = 0;
    m_pending.Clear();
}

bool CReportBuilderSTDF::BeginSubUnitTest()
{
    m_insideSubUnit = true;
    return true;
}

bool CReportBuilderSTDF::EndSubUnitTest()
{
    m_insideSubUnit = false;
    return true;
}

bool CReportBuilderSTDF::BeginUUTTest(UUTTest* test)
{
    m_uutTest = test;
    m_resultSet = nullptr;
    m_walksResultSet = false;
    if (!test)
        return false;
    if (const QList<TestResultSet*> resultSets = test->GetResultSets(); !resultSets.isEmpty())
        m_resultSet = resultSets.front();
    if (!m_insideSubUnit || !m_topTest)
        m_topTest = test;
    const quint32 stopTime = StdfLotRecords::Seconds(test->GetStopTime());
    if (!m_insideSubUnit || stopTime != 0)
        m_finishTime = stopTime;
    return true;
}

bool CReportBuilderSTDF::BeginTestResultSet(TestResultSet* newResultSet)
{
    m_walksResultSet = newResultSet && newResultSet == m_resultSet;
    return true;
}

bool CReportBuilderSTDF::EndTestResultSet(TestResultSet*)
{
    m_walksResultSet = false;
    return true;
}

bool CReportBuilderSTDF::BeginTestProgram(TestProgram* newProgram, TestResult*)
{
    m_program = newProgram;
    if (!m_program)
        return false;
    if (!m_started) {
        m_started = true;
        if (QIODevice* const output = GetDevice(); output && output->isOpen())
            StartFile(output);
    }
    return true;
}

bool CReportBuilderSTDF::EndTestProgram(TestProgram*)
{
    if (!m_program)
        return false;
    WritePart();
    m_program = nullptr;
    return true;
}

bool CReportBuilderSTDF::BeginTestGroup(TestGroup* newGroup, TestResult*)
{
    m_group = newGroup;
    m_stepText.reset();
    return m_group != nullptr;
}

bool CReportBuilderSTDF::EndTestGroup(TestGroup*)
{
    m_group = nullptr;
    return true;
}

bool CReportBuilderSTDF::BeginTestStep(TestStep* newStep, TestResult*)
{
    m_step = newStep;
    m_stepText.reset();
    return true;
}

bool CReportBuilderSTDF::EndTestStep(TestStep*)
{
    const bool known = m_step != nullptr;
    m_step = nullptr;
    return known;
}

bool CReportBuilderSTDF::BeginTestMeasurement(TestMeasurement* newMeasurement, TestResult* result)
{
    m_measurement = newMeasurement;
    if (m_measurement && m_step && m_group && m_resultSet)
        AddTest(m_walksResultSet && result ? result : m_resultSet->GetResult(m_measurement));
    return true;
}

bool CReportBuilderSTDF::EndTestMeasurement(TestMeasurement*)
{
    const bool known = m_measurement != nullptr;
    m_measurement = nullptr;
    return known;
}

void CReportBuilderSTDF::StartFile(QIODevice* output)
{
    if (!m_append || output->isSequential() || output->size() == 0)
        BeginStream(output, output->pos());
    else if (!m_uutTest)
        m_blocked = true; // nothing that could be written belongs to the lot
    else if (m_foreignFiles.contains(FileNameOf(output)))
        Redirect();
    else if (IsAsLeft(output))
        output->seek(m_lastClosing.position);
    else
        GoOn(output);
}

void CReportBuilderSTDF::GoOn(QIODevice* output)
{
    StdfLotFile lot(output);
    if (lot.HoldsNothing())
        BeginStream(output, 0);
    else if (lot.ReadNames() != StdfLotRecords::Names(m_topTest))
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
    m_partCount = place.partCount;
    m_goodCount = place.goodCount;
    output->seek(place.position);
}

/// Whether nobody has written to the file since this builder closed it.
bool CReportBuilderSTDF::IsAsLeft(QIODevice* output) const
{
    if (m_lastClosing.records.isEmpty() || m_lastClosing.fileName != FileNameOf(output) ||
        output->size() != m_lastClosing.position + m_lastClosing.records.size())
        return false;
    return output->seek(m_lastClosing.position) &&
           output->read(m_lastClosing.records.size()) == m_lastClosing.records;
}

void CReportBuilderSTDF::BeginStream(QIODevice* output, qint64 position)
{
    m_partCount = 0;
    m_goodCount = 0;
    if (!output->isSequential())
        output->seek(position);
    Write(StdfLotRecords::FileHeader(m_topTest, m_program));
}

void CReportBuilderSTDF::Redirect()
{
    const auto* const lot = qobject_cast<QFileDevice*>(GetDevice());
    if (!lot) {
        m_blocked = true;
        NoteOutputFailure();
        return;
    }
    m_foreignFiles.insert(FileNameOf(lot));
    const QString name = StdfFailureFileName(lot->fileName(), StdfLotRecords::UnitIdent(m_uutTest));
    const bool ownFile = m_failureFiles.contains(name);

    // Opening a file ends a document; this one goes on in the other file.
    const bool wasOpened = IsOpened();
    m_readWrite = ownFile;
    const bool openedFile = CExportBuilderImp::OpenFile(name);
    m_readWrite = m_append;
    SetOpened(wasOpened);
    if (!openedFile)
        return;

    m_failureFiles.insert(name);
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
    if (m_pending.IsEmpty())
        m_pending.Add(StdfLotRecords::PartStart(m_pending.Room()));
    ++m_testNumber;
    if (!m_stepText)
        m_stepText.emplace(m_step, m_group);
    m_pending.Add(StdfTestRecord(m_pending.Room(), m_testNumber, m_measurement, *m_stepText, result));
}

void CReportBuilderSTDF::WritePart()
{
    if (m_pending.IsEmpty())
        return;
    m_pending.Add(StdfLotRecords::PartResult(m_pending.Room(), m_uutTest, m_topTest, m_testNumber));
    m_pending.ForEachBlock([this](QByteArrayView records) { Write(records); });
    m_pending.Clear();
    m_testNumber = 0;
    ++m_partCount;
    // A count that another program left as unknown stays so.
    if (ModelAdapter::IsPassed(m_uutTest->GetResult()) && m_goodCount != StdfFormat::unknownCount)
        ++m_goodCount;
}

void CReportBuilderSTDF::WriteCounts()
{
    const QByteArray closing = StdfLotRecords::Closing(
        m_partCount, m_goodCount, m_uutTest ? std::optional(m_finishTime) : std::nullopt);
    QIODevice* const output = GetDevice();
    const qint64 position = output ? output->pos() : 0;
    m_lastClosing = {};
    if (!Write(closing))
        return;
    CutBehindCounts(output);
    // Counts without a header before them are nothing to go on at.
    if (m_started && m_uutTest)
        m_lastClosing = {FileNameOf(output), position, closing};
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
    if (m_blocked)
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
