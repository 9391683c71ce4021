#include <ZYNCommon/DurationText.h>
#include <ZYNCommon/MeasurementUnit.h>
#include <ZYNCommon/ValueDisplay.h>

#include <QtTest/QTest>

#include <limits>

using namespace ZYN;
using namespace Qt::StringLiterals;

namespace {

constexpr int Hex = MeasurementUnit::Hexadecimal;
constexpr int Bin = MeasurementUnit::Binary;

} // namespace

class ValueTextTest : public QObject {
    Q_OBJECT
private slots:
    void ShowsValue_data();
    void ShowsValue();
    void ShowsDuration_data();
    void ShowsDuration();
    void DurationInMillisecondsKeepsEveryDigit();
    void UnitsAndPrefixes();
};

void ValueTextTest::ShowsValue_data()
{
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<int>("factor");
    QTest::addColumn<int>("unit");
    QTest::addColumn<QString>("text");
    const auto row = [](const char* name, const QVariant& value, int factor, int unit, const QString& text) {
        QTest::newRow(name) << value << factor << unit << text;
    };
    const qulonglong huge = std::numeric_limits<qulonglong>::max();
    row("invalid", QVariant(), -3, 0, QString());
    row("null of a type", QVariant(QMetaType::fromType<double>()), 0, 0, QString());
    row("pico", 1e-11, -12, MeasurementUnit::Farad, u"10"_s);
    row("no prefix of its own", 1.5, 1, 0, u"0.15"_s);
    row("integer in kilo", 1500, 3, 0, u"1.5"_s);
    row("unsigned", huge, 0, 0, u"18446744073709551615"_s);
    row("unsigned in kilo", huge, 3, 0, u"1.8446744073709551615e+16"_s);
    row("boolean in milli", true, -3, 0, u"1000"_s);
    row("single precision", 0.1f, 0, 0, u"0.1"_s);
    row("text in hex", u"255"_s, 0, Hex, u"255"_s);
    row("nan", std::numeric_limits<double>::quiet_NaN(), -3, 0, u"nan"_s);
    row("-inf", -std::numeric_limits<double>::infinity(), -3, 0, u"-inf"_s);
    row("hex is not scaled", 0xBEEF, -3, Hex, u"beef"_s);
    row("hex of 64 bits", huge, 0, Hex, u"ffffffffffffffff"_s);
    row("hex of a negative number", -1, 0, Hex, u"ffffffffffffffff"_s);
    row("hex of a whole real", 255.0, 0, Hex, u"ff"_s);
    row("hex of a real above 63 bits", 9223372036854775808.0, 0, Hex, u"8000000000000000"_s);
    row("hex of a real above 64 bits", 1e20, 0, Hex, u"1e+20"_s);
    row("hex of a negative real", -2.0, 0, Hex, u"fffffffffffffffe"_s);
    row("hex of a fraction", 1.5, 0, Hex, u"1.5"_s);
    row("binary", 10, 0, Bin, u"1010"_s);
    row("binary of a boolean", true, 0, Bin, u"1"_s);
    row("extreme factor", 5.0, std::numeric_limits<int>::min(), 0, u"5e+2147483647"_s);
}

void ValueTextTest::ShowsValue()
{
    QFETCH(QVariant, value);
    QFETCH(int, factor);
    QFETCH(int, unit);
    const ValueDisplay display(ValueDisplay::ScaleFactor(factor), unit);
    QTEST(display.ToString(value), "text");
    QCOMPARE(int(display.GetScaleFactor()), factor);
}

void ValueTextTest::ShowsDuration_data()
{
    QTest::addColumn<double>("seconds");
    QTest::addColumn<QString>("text");
    QTest::newRow("rounded") << 0.0016 << "0.002 s";
    QTest::newRow("just below a minute") << 59.9994 << "59.999 s";
    QTest::newRow("rounded to a minute") << 59.9996 << "1 min 00 s";
    QTest::newRow("rounded to an hour") << 3599.7 << "1 h 00 min 00 s";
    QTest::newRow("many hours") << 360'000.0 << "100 h 00 min 00 s";
    QTest::newRow("clock set back") << -1.5 << "-1.500 s";
    QTest::newRow("absurd") << 1e300 << "1e+300 s";
    QTest::newRow("not a number") << std::numeric_limits<double>::quiet_NaN() << "nan s";
}

void ValueTextTest::ShowsDuration()
{
    QFETCH(double, seconds);
    QTEST(DurationText::ForPeople(seconds), "text");
}

void ValueTextTest::DurationInMillisecondsKeepsEveryDigit()
{
    QCOMPARE(DurationText::Milliseconds(1.5), u"1500"_s);
    QCOMPARE(DurationText::Milliseconds(0.0012345678901234567), u"1.2345678901234567"_s);
    QCOMPARE(DurationText::Milliseconds(1.001), u"1001"_s); // 1.001 * 1000 is 1000.9999999999999
}

void ValueTextTest::UnitsAndPrefixes()
{
    QStringList texts;
    for (const int code : MeasurementUnit::KnownCodes()) {
        texts.append(MeasurementUnit(code).ToAsciiString());
        for (const QChar c : texts.constLast())
            QVERIFY2(c.unicode() < 0x80, qPrintable(texts.constLast()));
    }
    QCOMPARE(texts.removeDuplicates(), 0);
    QCOMPARE(MeasurementUnit(999).GetCode(), 999);
    QCOMPARE(MeasurementUnit(999).ToString(), QString());
    for (const int factor : {1, -1, 5, 15, -15})
        QCOMPARE(ValueDisplay::ScaleFactorToString(ValueDisplay::ScaleFactor(factor)), u"#"_s);
}

QTEST_APPLESS_MAIN(ValueTextTest)
#include "ValueTextTest.moc"
