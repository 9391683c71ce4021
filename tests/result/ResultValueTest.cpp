/// What a result makes of the values, limits, times and durations that it is given.

#include <ZYNCommon/TestComponentFactory.h>
#include <ZYNCommon/TestGroup.h>
#include <ZYNCommon/TestMeasurement.h>
#include <ZYNCommon/TestProgram.h>
#include <ZYNCommon/TestResult.h>
#include <ZYNCommon/TestStep.h>
#include <ZYNCommon/ValidationInterface.h>

#include <QtCore/QTimeZone>
#include <QtTest/QTest>

#include <limits>

using namespace ZYN;

namespace {

QSharedPointer<TestComponent> Component(int type)
{
    switch (type) {
    case ZYN_ADDRESS_PROGRAM:
        return QSharedPointer<TestProgram>::create(1, QString(), 0ul);
    case ZYN_ADDRESS_GROUP:
        return QSharedPointer<TestGroup>::create(1, QString(), nullptr, 0u, -1, ZYN_GROUP_USER, nullptr);
    case ZYN_ADDRESS_STEP:
        return QSharedPointer<TestStep>::create(1, QString(), nullptr, 0u, -1, QString());
    default:
        return QSharedPointer<TestMeasurement>::create(1, QString(), static_cast<EN_ZYN_ADDRESS>(type),
                                                       nullptr, 0u, -1);
    }
}

} // namespace

class ResultValueTest : public QObject {
    Q_OBJECT
private slots:
    void values_data();
    void values();
    void limitsWithAndWithoutDisplay();
    void statusWordsAreDigits();
    void times_data();
    void times();
    void durations();
};

void ResultValueTest::values_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<QVariant>("given");
    QTest::addColumn<QVariant>("kept");
    const qlonglong large = 9007199254740993; // no double
    QTest::newRow("whole real as integer") << 7 << QVariant(255.0) << QVariant(255ll);
    QTest::newRow("negative") << 7 << QVariant(-1.0) << QVariant(-1ll);
    QTest::newRow("fraction") << 7 << QVariant(2.5) << QVariant(2.5);
    QTest::newRow("too large for 64 bits")
        << 7 << QVariant(9223372036854775808.0) << QVariant(9223372036854775808.0);
    QTest::newRow("infinite") << 7 << QVariant(std::numeric_limits<double>::infinity())
                              << QVariant(std::numeric_limits<double>::infinity());
    QTest::newRow("integer") << 7 << QVariant(large) << QVariant(large);
    QTest::newRow("boolean") << 7 << QVariant(true) << QVariant(1);
    QTest::newRow("whole real as real") << 8 << QVariant(255.0) << QVariant(255.0);
    QTest::newRow("text") << 9 << QVariant(QStringLiteral("1.2")) << QVariant(QStringLiteral("1.2"));
    QTest::newRow("program") << 1 << QVariant(1.0) << QVariant();
    QTest::newRow("group") << 2 << QVariant(1.0) << QVariant();
    QTest::newRow("step") << 3 << QVariant(0.0) << QVariant();
}

void ResultValueTest::values()
{
    QFETCH(int, type);
    QFETCH(QVariant, given);
    QFETCH(QVariant, kept);
    TestResult result(Component(type));
    result.SetValue(given);
    QCOMPARE(result.GetValue(), kept);
    QCOMPARE(result.GetValue().typeId(), kept.typeId());
}

void ResultValueTest::limitsWithAndWithoutDisplay()
{
    const QSharedPointer<ValidationInterface> validation(
        TestComponentFactory::CreateValidationReal(MeasurementUnit::Volt, "<=", "", 0.0123, 5.0, -1, -1, -1,
                                                   -1, -1, -1, -3, std::numeric_limits<double>::quiet_NaN()));
    TestResult result(Component(ZYN_ADDRESS_REAL));
    QCOMPARE(result.GetUnitString(validation->GetValueDisplay(), true), QString());
    result.SetValidation(validation);
    result.SetValue(0.02);
    QCOMPARE(result.GetValueString(nullptr), QStringLiteral("0.02"));
    QCOMPARE(result.GetValueString(validation->GetValueDisplay()), QStringLiteral("20"));
    QCOMPARE(result.GetLowerLimitString(nullptr), QStringLiteral("0.0123"));
    QCOMPARE(result.GetLowerLimitString(validation->GetValueDisplay()), QStringLiteral("12.3"));
    QCOMPARE(result.GetUpperLimitString(nullptr), QString());
    QCOMPARE(result.GetUnitString(nullptr, false), QStringLiteral("V"));
    QCOMPARE(result.GetUnitString(validation->GetValueDisplay(), true), QStringLiteral("[mV]"));
}

void ResultValueTest::statusWordsAreDigits()
{
    const QSharedPointer<ValidationInterface> validation(TestComponentFactory::CreateValidationInt(
        MeasurementUnit::Hexadecimal, "==", "", 0xbeef, 0, -1, -1, -1, -1, -1, -1));
    TestResult result(Component(ZYN_ADDRESS_INTEGER));
    result.SetValidation(validation);
    result.SetValue(48879.0);
    for (const ValueDisplay* const display :
         {static_cast<ValueDisplay*>(nullptr), validation->GetValueDisplay()}) {
        QCOMPARE(result.GetValueString(display), QStringLiteral("beef"));
        QCOMPARE(result.GetLowerLimitString(display), QStringLiteral("beef"));
    }
    const ValueDisplay kilo(ValueDisplay::ScaleKilo, MeasurementUnit::Hexadecimal);
    QCOMPARE(result.GetUnitString(&kilo, false), result.GetUnitString(nullptr, false));
    QCOMPARE(result.GetResult(), ZYN_RESULT_PASSED);
}

void ResultValueTest::times_data()
{
    QTest::addColumn<QDateTime>("time");
    QTest::addColumn<QString>("text");
    const QDate day(2024, 2, 29);
    QTest::newRow("offset") << QDateTime(day, QTime(23, 59, 1), Qt::OffsetFromUTC, 5400)
                            << QStringLiteral("2024-02-29T23:59:01+01:30");
    QTest::newRow("UTC") << QDateTime(day, QTime(1, 2, 3), Qt::UTC) << QStringLiteral("2024-02-29T01:02:03Z");
    QTest::newRow("time zone") << QDateTime(day, QTime(1, 2, 3), QTimeZone("UTC-05:00"))
                               << QStringLiteral("2024-02-29T01:02:03-05:00");
    QTest::newRow("milliseconds") << QDateTime(day, QTime(1, 2, 3, 40), Qt::UTC)
                                  << QStringLiteral("2024-02-29T01:02:03.040Z");
    QTest::newRow("invalid") << QDateTime() << QString();
}

void ResultValueTest::times()
{
    QFETCH(QDateTime, time);
    TestResult result(nullptr);
    result.SetTime(time);
    QTEST(result.GetTimeString(), "text");
    result.SetTimeString(QStringLiteral(" yesterday "));
    QCOMPARE(result.GetTimeString(), QStringLiteral(" yesterday "));
}

void ResultValueTest::durations()
{
    TestResult result(nullptr);
    result.SetDuration(1.25);
    QCOMPARE(result.GetDurationString(), QStringLiteral("1250"));
    QCOMPARE(result.GetDurationStringFormated(), QStringLiteral("1.250 s"));
}

QTEST_APPLESS_MAIN(ResultValueTest)
#include "ResultValueTest.moc"
