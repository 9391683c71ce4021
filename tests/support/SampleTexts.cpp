#include "SampleModels.h"
#include "SampleProgram.h"

#include <ZYNCommon/CtrlValidation.h>
#include <ZYNCommon/MeasurementUnit.h>
#include <ZYNCommon/ProductType.h>
#include <ZYNCommon/ProductionLot.h>
#include <ZYNCommon/UnitUnderTest.h>
#include <ZYNCommon/WorkSpace.h>
#include <ZYNCommon/ZYNSession.h>

#include <limits>

namespace ZYN::SampleModels {

using namespace Qt::StringLiterals;

namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();

void WriteDecimalValues(ProgramWriter& writer, RunWriter& run)
{
    run.Verdict(writer.Group(510, u"Numbers"_s), 1.0);
    run.Verdict(writer.Step(511, u"Real"_s), 0.5);
    const auto real = [&](long id, const QString& name, const Limits& limits, const QVariant& value) {
        run.Value(writer.Measurement(id, name, ZYN_ADDRESS_REAL, limits), value);
    };
    real(0, u"Voltage too high"_s, RealLimits(MeasurementUnit::Volt, 3.2, 3.4), 3.456);
    real(1, u"With prefix milli"_s, RealLimits(MeasurementUnit::Volt, 0.01, 0.0125, -3), 0.0123);
    real(2, u"With prefix kilo"_s, RealLimits(MeasurementUnit::Ohm, 9900, 10100, 3), 10012.5);
    real(3, u"With prefix pico"_s, RealLimits(MeasurementUnit::Farad, 9e-12, 1.1e-11, -12), 1.0e-11);
    real(4, u"Power of ten without prefix"_s, RealLimits(MeasurementUnit::Percent, 0.4, 0.6, -2), 0.5);
    real(5, u"Lower limit only"_s, RealLimits(MeasurementUnit::Ohm, 1e6, 0, 6, ">", ""), 5e8);
    real(6, u"Upper limit only"_s, RealLimits(MeasurementUnit::DegreeCelsius, 0, 85, 0, "", "<"), 23.75);
    real(7, u"No digit lost"_s, RealLimits(MeasurementUnit::None, 0, 1), 0.1 + 0.2);
    real(8, u"Negative, huge"_s, RealLimits(MeasurementUnit::None, -1e300, 0), -1.7976931348623157e308);
    real(9, u"Without limits"_s, Limits(), 12.5);
    const Limits inverted = RealLimits(MeasurementUnit::Volt, -0.1, 0.1);
    inverted->SetResultInverted(true);
    real(10, u"Inverted"_s, inverted, 0.05);
    real(11, u"Infinite"_s, RealLimits(MeasurementUnit::Ohm, 1e6, infinity, 6), infinity);
    real(12, u"Infinite below"_s, RealLimits(MeasurementUnit::Ohm, 0, 1e6), -infinity);
    real(13, u"Not a number"_s, RealLimits(MeasurementUnit::Volt, 0, 5, -3), notANumber);
    real(14, u"No value"_s, RealLimits(MeasurementUnit::Volt, 0, 5), QVariant());
}

void WriteOtherValues(ProgramWriter& writer, RunWriter& run)
{
    run.Verdict(writer.Group(520, u"Words"_s), 1.0);
    run.Verdict(writer.Step(521, u"Integer"_s), 0.25);
    const auto integer = [&](long id, const QString& name, const Limits& limits, const QVariant& value) {
        return run.Value(writer.Measurement(id, name, ZYN_ADDRESS_INTEGER, limits), value);
    };
    integer(1, u"Integer"_s, IntegerLimits(MeasurementUnit::RevolutionsPerMinute, 40, 45), 42);
    integer(2, u"Integer with 64 bits"_s, Limits(), 9223372036854775807LL);
    integer(3, u"Hexadecimal"_s, IntegerLimits(MeasurementUnit::Hexadecimal, 0x10, 0xff), 0x1f);
    integer(4, u"Binary"_s, IntegerLimits(MeasurementUnit::Binary, 0, 7), 5);
    integer(5, u"Boolean"_s, IntegerLimits(0, 1, 1), true);
    integer(6, u"Boolean, wrong"_s, IntegerLimits(0, 1, 1), false);
    integer(7, u"Not tested"_s, IntegerLimits(0, 0, 1), QVariant());
    integer(8, u"Tester failed"_s, IntegerLimits(0, 0, 1), QVariant())->SetResult(ZYN_RESULT_ERROR);
    integer(9, u"Code of a newer tester"_s, IntegerLimits(0, 0, 1), 1)->SetResult(EN_ZYN_RESULT(42));

    run.Verdict(writer.Step(522, u"Text"_s), 0.25);
    const auto text = [&](long id, const QString& name, const Limits& limits, const QString& value) {
        run.Value(writer.Measurement(id, name, ZYN_ADDRESS_STRING, limits), value);
    };
    text(1, u"Firmware"_s, TextLimit(u"V1.2.3"_s), u"V1.2.3"_s);
    text(2, u"Boot loader"_s, TextLimit(u"V2.0"_s), u"V1.9"_s);
    text(3, u"Empty text"_s, Limits(), u""_s);
}

} // namespace

QSharedPointer<UUTTest> FailedUnit()
{
    ProgramWriter writer(500, u"EveryValue"_s);
    RunWriter run(writer.program, QSharedPointer<Station>(), 2);
    writer.program->SetVersion(u"1.0"_s);
    run.Verdict(writer.program, 3725.0);
    WriteDecimalValues(writer, run);
    WriteOtherValues(writer, run);

    const QSharedPointer<UUTTest> test(new UUTTest(2, u"Final test"_s));
    const QSharedPointer<UnitUnderTest> unit(new UnitUnderTest(2, QString()));
    unit->SetSerialNo(u"SN000124"_s);
    test->SetUnitUnderTest(unit);
    test->SetResultDescription(u"Voltage too high"_s);
    test->SetStartTimeString(u"2024-03-05T10:15:00-05:00"_s);
    test->SetStopTimeString(u"2024-03-05T11:17:05-05:00"_s);
    test->SetDuration(3725.0);
    test->AssignResultSet(run.Take());
    return test;
}

QSharedPointer<UUTTest> HostileNames()
{
    const QString loneSurrogate = u"lone "_s + QChar(0xd83d) + u" surrogate"_s;

    ProgramWriter writer(600, u"%1;\"Program\""_s);
    RunWriter run(writer.program, QSharedPointer<Station>(), 1);
    writer.program->SetDisplayName(u"<b>%2</b> & 'co'"_s);
    writer.program->SetCreator(u"Jos\u00e9 \u0141"_s);
    writer.program->SetFileName("/programs/%2 <x>.prg");
    run.Verdict(writer.program, 1.0);

    run.Verdict(writer.Group(610, u"semi;colon, comma"_s), 0.5)->SetAttribute(u"a;b"_s);
    run.Value(writer.Parameter(611, u"<parameter & \"quotes\">"_s, ZYN_ADDRESS_STRING),
              u"]]> &amp; <!-- -->"_s);
    run.Verdict(writer.Step(612, u"<img src=\"/etc/hostname\">"_s), 0.25)->SetComment(u"</td></table>"_s);
    const auto text = [&](long id, const QString& name, const QString& value) {
        return run.Value(writer.Measurement(id, name, ZYN_ADDRESS_STRING), value);
    };
    text(1, u"tab\there"_s, u"tab\tin value"_s)->SetComment(u"  two\n lines\r\nand\ttabs  "_s);
    text(2, u"line\nbreak"_s, u"line\r\nbreak"_s)->SetAttribute(u"\n first\n\n second \n"_s);
    text(3, u"\u05e9\u05dc\u05d5\u05dd \u202eabc\u202c"_s, u"\u0645\u0631\u062d\u0628\u0627"_s);
    text(4, u"e\u0301 o\u0308 combining"_s, u"a\u0300\u0301\u0302"_s);
    text(5, u"beyond \U0001f600 \U00020bb7"_s, u"\U0001d6fa"_s);
    text(6, loneSurrogate, loneSurrogate);
    text(7, u"control \x01\x1b\x7f"_s, u"\x02"_s);
    text(8, u"a name that is far longer than the thirty columns of its field"_s, u"longer than ten"_s);
    const auto named = text(9, u"'single' \"double\""_s, u"%1 %2 %3"_s);
    named->GetComponent()->SetIdentString(u"\"=1+1;\""_s);

    const QSharedPointer<UUTTest> test(new UUTTest(6, u"<%1>"_s));
    const QSharedPointer<UnitUnderTest> unit(new UnitUnderTest(6, u"<unit>"_s));
    unit->SetSerialNo(u"../../%1;<&\""_s);
    unit->SetIdentString(loneSurrogate);
    const QSharedPointer<ProductType> product(new ProductType(6, u"R&D <prototype>"_s));
    product->SetCustomer(u"M\u00fcller & S\u00f6hne \"GmbH\""_s);
    product->SetDescription(u"line\nbreak"_s);
    // Its key becomes the name of an attribute: one that is no name makes no XML.
    product->SetParameter(u"\u00c4_1.-"_s, u"<value> & \"quotes\""_s);
    unit->SetProductType(product);
    test->SetUnitUnderTest(unit);
    test->SetProductionLot(QSharedPointer<ProductionLot>(new ProductionLot(6, u"L;<1>"_s)));
    auto* const session = new ZYNSession;
    session->SetMachineName(u"%1"_s);
    const QSharedPointer<WorkSpace> workSpace(new WorkSpace(6, u"<&>"_s));
    workSpace->CreateNewUser(u"O'Neil \u6f22\u5b57"_s);
    workSpace->Login(0, QString());
    session->SetWorkSpace(workSpace);
    test->SetSession(session);
    test->SetResultDescription(u"%1 / %2"_s);
    test->SetStartTimeString(u"%2"_s);
    test->SetStopTimeString(u"yesterday"_s);
    test->AssignResultSet(run.Take());
    return test;
}

} // namespace ZYN::SampleModels
