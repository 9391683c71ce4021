#pragma once

#include "StdfLotFile.h"
#include "StdfPart.h"
#include "StdfTestRecord.h"

#include "export/CExportBuilderImp.h"

#include <QtCore/QSet>

#include <optional>

namespace ZYN {

/// Writes unit tests as STDF V4: one file collects the parts of a lot.
///
/// Little-endian records, Latin-1 texts of at most 255 characters. Each test program that a unit or a
/// panel item ran is a part; its tests are collected in memory and written when the program ends. Every
/// export goes on at the closing PCR of the file, or begins a new stream with FAR and MIR. Where the first
/// export finds a file of another lot, product type or test machine, it leaves it as it is: the part goes to
/// a failure file beside it. A builder that wrote to a file goes on there without looking at names again.
/// Only tests of units are written; a result set on its own has no part to belong to.
///
/// Two builders may take turns on one file, in one process or in two, as long as their exports do not
/// overlap in time.
class CReportBuilderSTDF : public CExportBuilderImp {
public:
    /// \param appendMode go on in a file that exists; else it is truncated
    explicit CReportBuilderSTDF(bool appendMode);
    ~CReportBuilderSTDF() override;

    bool OpenFile(const QString& fileName) override;
    bool Open() override;
    bool Close() override;

    using CExportBuilderImp::BeginTestGroup;
    using CExportBuilderImp::BeginTestMeasurement;
    using CExportBuilderImp::BeginTestProgram;
    using CExportBuilderImp::BeginTestStep;
    bool BeginTestResultSet(TestResultSet* newResultSet) override;
    bool EndTestResultSet(TestResultSet* endedResultSet) override;
    bool BeginSubUnitTest() override;
    bool EndSubUnitTest() override;
    bool BeginUUTTest(UUTTest* test) override;
    bool BeginTestProgram(TestProgram* newProgram, TestResult* result) override;
    bool EndTestProgram(TestProgram* endedProgram) override;
    bool BeginTestGroup(TestGroup* newGroup, TestResult* result) override;
    bool EndTestGroup(TestGroup* endedGroup) override;
    bool BeginTestStep(TestStep* newStep, TestResult* result) override;
    bool EndTestStep(TestStep* endedStep) override;
    bool BeginTestMeasurement(TestMeasurement* newMeasurement, TestResult* result) override;
    bool EndTestMeasurement(TestMeasurement* endedMeasurement) override;

private:
    /// How this builder left a file: its name, where the closing records begin and their bytes.
    struct Closing {
        QString fileName;
        qint64 position = 0;
        QByteArray records;
    };

    void ForgetDocument();
    void StartFile(QIODevice* output);
    void GoOn(QIODevice* output);
    void GoOnAt(QIODevice* output, const StdfPlace& place);
    bool IsAsLeft(QIODevice* output) const;
    void BeginStream(QIODevice* output, qint64 position);
    void Redirect();
    void AddTest(const TestResult* result);
    void WritePart();
    void WriteCounts();
    void CutBehindCounts(QIODevice* output);
    bool Write(QByteArrayView records);

    const bool m_append;
    UUTTest* m_uutTest = nullptr;
    /// The test's first result set, where all its results are looked up.
    const TestResultSet* m_resultSet = nullptr;
    /// Whether that set is the one being walked, so that its results come with the components.
    bool m_walksResultSet = false;
    /// The test of the whole unit: panel items have no lot, product type or session of their own.
    UUTTest* m_topTest = nullptr;
    bool m_insideSubUnit = false;
    TestProgram* m_program = nullptr;
    TestGroup* m_group = nullptr;
    TestStep* m_step = nullptr;
    TestMeasurement* m_measurement = nullptr;
    /// Of the current step and group, once it is needed.
    std::optional<StdfStepText> m_stepText;

    bool m_started = false;
    /// Not to be written to: another lot's device that has no failure file.
    bool m_blocked = false;
    quint32 m_finishTime = 0;
    quint32 m_testNumber = 0;
    quint32 m_partCount = 0;
    quint32 m_goodCount = 0;
    StdfPart m_pending;

    Closing m_lastClosing;
    /// Files of other lots that this builder met; it does not come back to them.
    QSet<QString> m_foreignFiles;
    /// Failure files that this builder made; a later part for one of them is added, not written over it.
    QSet<QString> m_failureFiles;
};

} // namespace ZYN
