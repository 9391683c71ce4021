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

/// The results of a run of one measurement.
TestResultSet* MakeResults()
{
    const auto program = QSharedPointer<TestProgram>::create(1, "Board test", 0);
    const auto group =
        QSharedPointer<TestGroup>::create(2, "Supply", program.data(), 10, 0, MainTests, nullptr);
    const auto step = QSharedPointer<TestStep>::create(3, "Rails", group.data(), 11, 0, "");
    const auto rail = QSharedPointer<TestMeasurement>::create(4, "Rail 5 V", Decimal, step.data(), 12, 0);
    rail->control.Validation.reset(TestComponentFactory::CreateValidationReal(1, ">=", "<=", 4.75, 5.25, 0, 0,
                                                                              0, 0, 0, 0, QVariant(), 0));
    rail->own = Good;
    program->AddGroup(group);
    group->AddStep(step);
    step->AddMeasurement(rail);

    auto* const set = new TestResultSet(program, {});
    for (const QSharedPointer<TestComponent>& component :
         std::initializer_list<QSharedPointer<TestComponent>>{program, group, step, rail}) {
        auto* const result = new TestResult(component);
        result->SetResult(Good);
        set->AddResult(result);
    }
    set->GetResult(rail.data())->SetValue(4.875);
    set->GetResult(rail.data())->SetValidation(rail->control.Validation);
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
    qInfo("%s: %lld bytes, %s", qPrintable(fileName), content.size(), good ? "good" : "BAD");
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
    good &= Check("out.tpl", plan.Export(program.data()) && plan.OutputComplete(), {"Ident=\"4\"", "4.75"});

    CImportServiceReport import;
    import.SetInputFileName("out.zyr");
    UUTTest read(0, "");
    good &= import.Import(&read);
    for (const ImportFinding& finding : import.GetFindings()) {
        qWarning("line %lld: %s", finding.line, qPrintable(finding.text));
        good = false;
    }
    good &= WriteReport(&read, "XML", "again.zyr", all);
    return good ? 0 : 1;
}
