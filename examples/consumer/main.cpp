#include <ZYNCommon/UUTTest.h>
#include <ZYNCommon/UnitUnderTest.h>
#include <ZYNPersistence/CExportServiceReport.h>

int main()
{
    ZYN::UUTTest test(1, "Final test");
    test.SetUnitUnderTest(QSharedPointer<ZYN::UnitUnderTest>::create(7, "Motor controller"));
    test.GetUnitUnderTest()->SetSerialNo("SN-1042");
    test.SetResult(ZYN::ZYN_RESULT_PASSED);

    ZYN::CExportServiceReport report;
    report.SetFormat("XML");
    report.SetOutputFileName("SN-1042.zyr");
    if (report.Export(&test) && report.OutputComplete())
        return 0;
    qCritical("SN-1042.zyr: %ls", qUtf16Printable(report.GetErrorText()));
    return 1;
}
