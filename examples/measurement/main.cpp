#include <ZYNCommon/ProductType.h>
#include <ZYNCommon/RunRecorder.h>
#include <ZYNCommon/UUTTest.h>
#include <ZYNCommon/UnitUnderTest.h>
#include <ZYNPersistence/CExportServiceReport.h>

using namespace ZYN;

// A board with three measurements. The numbers come from the instruments.
void TestBoard(RunRecorder& recorder, double rail, double current)
{
    recorder.BeginGroup("Supply");
    recorder.BeginStep("Rails");
    recorder.Measure("5 V", rail, RealLimits{.lower = 4.85, .upper = 5.15, .unit = MeasurementUnit::Volt});
    recorder.Measure("Current", current,
                     RealLimits{.upper = 0.25, .unit = MeasurementUnit::Ampere, .prefix = -3});
    recorder.BeginStep("Firmware");
    recorder.Measure("Version", "2.4.1", TextLimit{"2.4.1"});
}

bool Write(UUTTest* test, const QString& format, const QString& file)
{
    CExportServiceReport report;
    report.SetFormat(format);
    report.SetOutputFileName(file);
    if (report.Export(test) && report.OutputComplete())
        return true;
    // The one tells why it could not start, the other why not everything was written.
    qCritical("%ls: %ls", qUtf16Printable(file),
              qUtf16Printable(report.GetErrorText() + report.GetOutputError()));
    return false;
}

int main()
{
    const auto unit = QSharedPointer<UnitUnderTest>::create(7, "Motor controller");
    unit->SetSerialNo("SN-1042");
    unit->SetIdentString("MC48-2611-1042"); // what the barcode says
    unit->SetProductType(QSharedPointer<ProductType>::create(1, "MC-48"));

    RunRecorder recorder(unit, "Final test");
    TestBoard(recorder, 5.21, 0.212); // the rail is too high
    recorder.Retest();
    TestBoard(recorder, 5.02, 0.209);
    const QSharedPointer<UUTTest> test = recorder.Finish();

    bool isWritten = true;
    for (const auto& [format, file] : {std::pair("XML", "SN-1042.zyr"), std::pair("CSV", "SN-1042.csv"),
                                       std::pair("HTML", "SN-1042.html"), std::pair("STDF", "lot.stdf")})
        isWritten = Write(test.data(), format, file) && isWritten;
    return isWritten ? 0 : 1;
}
