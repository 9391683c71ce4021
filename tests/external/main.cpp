#include <ZYNCommon/TestGroup.h>
#include <ZYNCommon/TestMeasurement.h>
#include <ZYNCommon/TestProgram.h>
#include <ZYNCommon/TestResult.h>
#include <ZYNCommon/TestResultSet.h>
#include <ZYNCommon/TestStep.h>
#include <ZYNCommon/UUTTest.h>
#include <ZYNPersistence/CExportServiceReport.h>
#include <ZYNPersistence/CExportServiceTestPlan.h>
#include <ZYNPersistence/CImportServiceReport.h>

#include <QtCore/QFile>

using namespace ZYN;

namespace {

QSharedPointer<TestProgram> MakeProgram()
{
    const auto program = QSharedPointer<TestProgram>::create(1, "Board test", 0);
    const auto group =
        QSharedPointer<TestGroup>::create(2, "Supply", program.data(), 10, 0, MainTests, nullptr);
    const auto step = QSharedPointer<TestStep>::create(3, "Rails", group.data(), 11, 0, "");
    const auto measurement =
        QSharedPointer<TestMeasurement>::create(4, "Rail 5 V", Decimal, step.data(), 12, 0);
    measurement->control.validation.reset(
        TestComponentFactory::CreateValidationReal(1, ">=", "<=", 4.75, 5.25, 0, 0, 0, 0, 0, 0, {}, 0));
    step->AddMeasurement(measurement);
    group->AddStep(step);
    program->AddGroup(group);
    return program;
}

TestResult* AddResult(TestResultSet* set, QSharedPointer<TestComponent> component)
{
    auto* const result = new TestResult(component);
    result->SetResult(Good);
    set->AddResult(result);
    return result;
}

TestResultSet* MakeResults()
{
    const QSharedPointer<TestProgram> program = MakeProgram();
    const QSharedPointer<TestGroup> group = program->GetGroupForIndex(0);
    const QSharedPointer<TestStep> step = group->GetStepForIndex(0);
    const QSharedPointer<TestMeasurement> measurement = step->GetMeasurementForIndex(0);
    auto* const set = new TestResultSet(program, {});
    AddResult(set, program);
    AddResult(set, group);
    AddResult(set, step);
    TestResult* const measured = AddResult(set, measurement);
    measured->SetValue(4.875);
    measured->SetValidation(measurement->GetValidationCtrl()->GetValidation());
    measurement->own = Good;
    return set;
}

/// Whether the file was written in full and holds all texts.
bool Check(const QString& fileName, bool exported, const QList<QByteArray>& texts)
{
    QFile file(fileName);
    const QByteArray content = file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    bool good = exported;
    for (const QByteArray& text : texts)
        good = good && content.contains(text);
    printf("%s: %lld bytes, %s\n", qPrintable(fileName), static_cast<long long>(content.size()),
           good ? "good" : "BAD");
    return good;
}

bool WriteReport(UUTTest* test, const char* format, const QString& fileName, const QList<QByteArray>& texts)
{
    CExportServiceReport service;
    service.SetFormat(format);
    service.SetOutputFileName(fileName);
    return Check(fileName, service.Export(test) && service.OutputComplete(), texts);
}

} // namespace

int main()
{
    UUTTest test(1, "Final test");
    test.SetUnitUnderTest(QSharedPointer<UnitUnderTest>::create(7, "Motor controller"));
    test.GetUnitUnderTest()->SetSerialNo("SN-1042");
    test.GetUnitUnderTest()->SetIdentString("SN-1042");
    test.SetResult(Good);
    test.AssignResultSet(MakeResults());

    const QList<QByteArray> all = {"SN-1042", "Rail 5 V", "4.875", "4.75", "5.25"};
    bool good = WriteReport(&test, "XML", "out.zyr", all);
    good &= WriteReport(&test, "TXT", "out.txt", all);
    good &= WriteReport(&test, "HTML", "out.html", all);
    good &= WriteReport(&test, "JSON", "out.json", all);
    good &= WriteReport(&test, "CSV", "out.csv", {"Rail 5 V", "4.875"});
    good &= WriteReport(&test, "STDF", "out.stdf", {"SN-1042", "Rail 5 V"});

    CExportServiceTestPlan plan(false);
    plan.SetOutputFileName("out.tpl");
    const QSharedPointer<TestProgram> program = test.GetResultSets().first()->GetTestProgram();
    good &= Check("out.tpl", plan.Export(program.data()) && plan.OutputComplete(), {"c4", "4.75"});

    CImportServiceReport import;
    import.SetInputFileName("out.zyr");
    UUTTest read(0, "");
    good &= import.Import(&read) && import.GetFindings().isEmpty();
    good &= WriteReport(&read, "XML", "again.zyr", all);
    return good ? 0 : 1;
}
