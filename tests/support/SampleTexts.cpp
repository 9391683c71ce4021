#include "SampleModels.h"
#include "SampleProgram.h"

#include <limits>

namespace ZYN::SampleModels {

namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();

void WriteDecimalValues(ProgramWriter& writer, RunWriter& run)
{
    run.Verdict(writer.Group(510, "Numbers"), 1.0);
    run.Verdict(writer.Step(511, "Real"), 0.5);
    const auto real = [&](long id, const QString& name, const Limits& limits, const QVariant& value) {
        run.Value(writer.Measurement(id, name, ZYN_ADDRESS_REAL, limits), value);
    };
    real(0, "Voltage too high", RealLimits(MeasurementUnit::Volt, 3.2, 3.4), 3.456);
    real(1, "With prefix milli", RealLimits(MeasurementUnit::Volt, 0.01, 0.0125, -3), 0.0123);
    real(2, "With prefix kilo", RealLimits(MeasurementUnit::Ohm, 9900, 10100, 3), 10012.5);
    real(3, "With prefix pico", RealLimits(MeasurementUnit::Farad, 9e-12, 1.1e-11, -12), 1.0e-11);
    real(4, "Power of ten without prefix", RealLimits(MeasurementUnit::Percent, 0.4, 0.6, -2), 0.5);
    real(5, "Lower limit only", RealLimits(MeasurementUnit::Ohm, 1e6, 0, 6, ">", ""), 5e8);
    real(6, "Upper limit only", RealLimits(MeasurementUnit::DegreeCelsius, 0, 85, 0, "", "<"), 23.75);
    real(7, "No digit lost", RealLimits(MeasurementUnit::None, 0, 1), 0.1 + 0.2);
    real(8, "Negative, huge", RealLimits(MeasurementUnit::None, -1e300, 0), -1.7976931348623157e308);
    real(9, "Without limits", Limits(), 12.5);
    const Limits inverted = RealLimits(MeasurementUnit::Volt, -0.1, 0.1);
    inverted->SetResultInverted(true);
    real(10, "Inverted", inverted, 0.05);
    real(11, "Infinite", RealLimits(MeasurementUnit::Ohm, 1e6, infinity, 6), infinity);
    real(12, "Infinite below", RealLimits(MeasurementUnit::Ohm, 0, 1e6), -infinity);
    real(13, "Not a number", RealLimits(MeasurementUnit::Volt, 0, 5, -3), notANumber);
    real(14, "No value", RealLimits(MeasurementUnit::Volt, 0, 5), QVariant());
}

void WriteOtherValues(ProgramWriter& writer, RunWriter& run)
{
    run.Verdict(writer.Group(520, "Words"), 1.0);
    run.Verdict(writer.Step(521, "Integer"), 0.25);
    const auto integer = [&](long id, const QString& name, const Limits& limits, const QVariant& value) {
        return run.Value(writer.Measurement(id, name, ZYN_ADDRESS_INTEGER, limits), value);
    };
    integer(1, "Integer", IntegerLimits(MeasurementUnit::RevolutionsPerMinute, 40, 45), 42);
    integer(2, "Integer with 64 bits", Limits(), 9223372036854775807LL);
    integer(3, "Hexadecimal", IntegerLimits(MeasurementUnit::Hexadecimal, 0x10, 0xff), 0x1f);
    integer(4, "Binary", IntegerLimits(MeasurementUnit::Binary, 0, 7), 5);
    integer(5, "Boolean", IntegerLimits(0, 1, 1), true);
    integer(6, "Boolean, wrong", IntegerLimits(0, 1, 1), false);
    integer(7, "Not tested", IntegerLimits(0, 0, 1), QVariant());
    integer(8, "Tester failed", IntegerLimits(0, 0, 1), QVariant())->SetResult(ZYN_RESULT_ERROR);
    integer(9, "Code of a newer tester", IntegerLimits(0, 0, 1), 1)->SetResult(EN_ZYN_RESULT(42));

    run.Verdict(writer.Step(522, "Text"), 0.25);
    const auto text = [&](long id, const QString& name, const Limits& limits, const QString& value) {
        run.Value(writer.Measurement(id, name, ZYN_ADDRESS_STRING, limits), value);
    };
    text(1, "Firmware", TextLimit("V1.2.3"), "V1.2.3");
    text(2, "Boot loader", TextLimit("V2.0"), "V1.9");
    text(3, "Empty text", Limits(), "");
}

} // namespace

QSharedPointer<UUTTest> FailedUnit()
{
    ProgramWriter writer(500, "EveryValue");
    RunWriter run(writer.program, QSharedPointer<Station>(), 2);
    writer.program->SetVersion("1.0");
    run.Verdict(writer.program, 3725.0);
    WriteDecimalValues(writer, run);
    WriteOtherValues(writer, run);

    const QSharedPointer<UUTTest> test(new UUTTest(2, "Final test"));
    const QSharedPointer<UnitUnderTest> unit(new UnitUnderTest(2, QString()));
    unit->SetSerialNo("SN000124");
    test->SetUnitUnderTest(unit);
    test->SetResultDescription("Voltage too high");
    test->SetStartTimeString("2024-03-05T10:15:00-05:00");
    test->SetStopTimeString("2024-03-05T11:17:05-05:00");
    test->SetDuration(3725.0);
    test->AssignResultSet(run.Take());
    return test;
}

QSharedPointer<UUTTest> HostileNames()
{
    const QString loneSurrogate = QString("lone ") + QChar(0xd83d) + " surrogate";

    ProgramWriter writer(600, "%1;\"Program\"");
    RunWriter run(writer.program, QSharedPointer<Station>(), 1);
    writer.program->SetDisplayName("<b>%2</b> & 'co'");
    writer.program->SetCreator("Jos\u00e9 \u0141");
    writer.program->SetFileName("/programs/%2 <x>.prg");
    run.Verdict(writer.program, 1.0);

    run.Verdict(writer.Group(610, "semi;colon, comma"), 0.5)->SetAttribute("a;b");
    run.Value(writer.Parameter(611, "<parameter & \"quotes\">", ZYN_ADDRESS_STRING), "]]> &amp; <!-- -->");
    run.Verdict(writer.Step(612, "<img src=\"/etc/hostname\">"), 0.25)->SetComment("</td></table>");
    const auto text = [&](long id, const QString& name, const QString& value) {
        return run.Value(writer.Measurement(id, name, ZYN_ADDRESS_STRING), value);
    };
    text(1, "tab\there", "tab\tin value")->SetComment("  two\n lines\r\nand\ttabs  ");
    text(2, "line\nbreak", "line\r\nbreak")->SetAttribute("\n first\n\n second \n");
    text(3, "\u05e9\u05dc\u05d5\u05dd \u202eabc\u202c", "\u0645\u0631\u062d\u0628\u0627");
    text(4, "e\u0301 o\u0308 combining", "a\u0300\u0301\u0302");
    text(5, "beyond \U0001f600 \U00020bb7", "\U0001d6fa");
    text(6, loneSurrogate, loneSurrogate);
    text(7, "control \x01\x1b\x7f", "\x02");
    text(8, "a name that is far longer than the thirty columns of its field", "longer than ten");
    const auto named = text(9, "'single' \"double\"", "%1 %2 %3");
    named->GetComponent()->SetIdentString("\"=1+1;\"");

    const QSharedPointer<UUTTest> test(new UUTTest(6, "<%1>"));
    const QSharedPointer<UnitUnderTest> unit(new UnitUnderTest(6, "<unit>"));
    unit->SetSerialNo("../../%1;<&\"");
    unit->SetIdentString(loneSurrogate);
    const QSharedPointer<ProductType> product(new ProductType(6, "R&D <prototype>"));
    product->SetCustomer("M\u00fcller & S\u00f6hne \"GmbH\"");
    product->SetDescription("line\nbreak");
    // Its key becomes the name of an attribute: one that is no name makes no XML.
    product->SetParameter("\u00c4_1.-", "<value> & \"quotes\"");
    unit->SetProductType(product);
    test->SetUnitUnderTest(unit);
    test->SetProductionLot(QSharedPointer<ProductionLot>(new ProductionLot(6, "L;<1>")));
    auto* const session = new ZYNSession;
    session->SetMachineName("%1");
    const QSharedPointer<WorkSpace> workSpace(new WorkSpace(6, "<&>"));
    workSpace->CreateNewUser("O'Neil \u6f22\u5b57");
    workSpace->Login(0, QString());
    session->SetWorkSpace(workSpace);
    test->SetSession(session);
    test->SetResultDescription("%1 / %2");
    test->SetStartTimeString("%2");
    test->SetStopTimeString("yesterday");
    test->AssignResultSet(run.Take());
    return test;
}

} // namespace ZYN::SampleModels
