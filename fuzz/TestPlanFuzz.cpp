// Test plans: read, applied to a program, written and read again.

#include "FuzzSupport.h"

#include "testplan/CTestPlanBuilderXML.h"
#include "testplan/SamplePlan.h"

#include "export/CExportDirectorTestPlan.h"

#include <ZYNCommon/TestPlan.h>
#include <ZYNCommon/TestPlanData.h>
#include <ZYNCommon/TestProgram.h>
#include <ZYNPersistence/CReadServiceTestPlan.h>

#include <QtCore/QBuffer>

using namespace ZYN;
using namespace ZYN::Fuzz;

namespace {

std::unique_ptr<TestPlan> ReadPlan(const QByteArray& document, QString& errorText)
{
    static MemoryFile file;
    file.Set(document);
    std::unique_ptr<TestPlan> plan(CReadServiceTestPlan().ReadTestPlan(file.Name(), &errorText));
    Require((plan == nullptr) != errorText.isEmpty(), "there is a plan or an error text", errorText);
    return plan;
}

QByteArray WritePlan(TestProgram* program)
{
    QBuffer buffer;
    CTestPlanBuilderXML builder(false);
    builder.SetDevice(&buffer);
    CExportDirectorTestPlan director;
    Require(director.ExportTestPlan(program, &builder) && builder.OutputComplete(), "a plan can be written");
    return buffer.data();
}

void ApplyOwnPlan(TestProgram* program)
{
    QString errorText;
    const auto plan = ReadPlan(WritePlan(program), errorText);
    Require(plan != nullptr, "an own plan can be read", errorText);
    const TestPlan::Applied applied = plan->ApplyTo(program);
    Require(applied.unknownKeys.isEmpty() && applied.problems.isEmpty(), "an own plan fits its program",
            applied.problems.join(u'\n'));
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size)
{
    QString errorText;
    const auto plan = ReadPlan(Input(data, size), errorText);
    if (!plan)
        return 0;
    const QSharedPointer<TestProgram> program = SamplePlan::Program();
    const TestPlan::Applied applied = plan->ApplyTo(program.get());
    Require(applied.components + applied.unknownKeys.size() <= plan->GetKeys().size(),
            "a key is applied once or unknown");

    // An application puts categories behind the attributes; from the second one on nothing moves.
    ApplyOwnPlan(program.get());
    const QByteArray second = WritePlan(program.get());
    ApplyOwnPlan(program.get());
    const QByteArray third = WritePlan(program.get());
    Require(third == second, "a plan applied to its own program changes nothing",
            QString::fromUtf8(second) + QStringLiteral("\nbecame\n") + QString::fromUtf8(third));
    return 0;
}
