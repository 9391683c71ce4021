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
    // The one tells why it could not start, the other why not everything was written.
    qCritical("SN-1042.zyr: %ls", qUtf16Printable(report.GetErrorText() + report.GetOutputError()));
    return 1;
}
