#include "support/Model.h"
#include "support/Test.h"
#include "text/DurationText.h"

#include <limits>

using namespace ZYN;

namespace {

constexpr int Hex = MeasurementUnit::Hexadecimal;
constexpr int Bin = MeasurementUnit::Binary;

} // namespace

class ValueTextTest : public QObject {
    Q_OBJECT
private slots:
    void ShowsValue_data()
    {
        const Rows<QVariant, int, int, QString> row;
        const qulonglong huge = std::numeric_limits<qulonglong>::max();
        row("invalid", QVariant(), -3, 0, QString());
        row("null of a type", QVariant(QMetaType::fromType<double>()), 0, 0, QString());
        row("pico", 1e-11, -12, MeasurementUnit::Farad, "10");
        row("no prefix of its own", 1.5, 1, 0, "0.15");
        row("integer in kilo", 1500, 3, 0, "1.5");
        row("unsigned", huge, 0, 0, "18446744073709551615");
        row("unsigned in kilo", huge, 3, 0, "1.8446744073709551615e+16");
        row("boolean in milli", true, -3, 0, "1000");
        row("single precision", 0.1f, 0, 0, "0.1");
        row("text in hex", "255", 0, Hex, "255");
        row("nan", std::numeric_limits<double>::quiet_NaN(), -3, 0, "nan");
        row("-inf", -std::numeric_limits<double>::infinity(), -3, 0, "-inf");
        row("hex is not scaled", 0xBEEF, -3, Hex, "beef");
        row("hex of 64 bits", huge, 0, Hex, "ffffffffffffffff");
        row("hex of a negative number", -1, 0, Hex, "ffffffffffffffff");
        row("hex of a whole real", 255.0, 0, Hex, "ff");
        row("hex of a real above 63 bits", 9223372036854775808.0, 0, Hex, "8000000000000000");
        row("hex of a real above 64 bits", 1e20, 0, Hex, "1e+20");
        row("hex of a negative real", -2.0, 0, Hex, "fffffffffffffffe");
        row("hex of a fraction", 1.5, 0, Hex, "1.5");
        row("binary", 10, 0, Bin, "1010");
        row("binary of a boolean", true, 0, Bin, "1");
        row("extreme factor", 5.0, std::numeric_limits<int>::min(), 0, "5e+2147483647");
    }
    void ShowsValue()
    {
        const auto [value, factor, unit, text] = CurrentRow<QVariant, int, int, QString>();
        const ValueDisplay display(ValueDisplay::ScaleFactor(factor), unit);
        QCOMPARE(display.ToString(value), text);
        QCOMPARE(int(display.GetScaleFactor()), factor);
    }

    void ShowsDuration_data()
    {
        const Rows<double, QString> row;
        row("rounded", 0.0016, "0.002 s");
        row("just below a minute", 59.9994, "59.999 s");
        row("rounded to a minute", 59.9996, "1 min 00 s");
        row("rounded to an hour", 3599.7, "1 h 00 min 00 s");
        row("many hours", 360'000.0, "100 h 00 min 00 s");
        row("clock set back", -1.5, "-1.500 s");
        row("absurd", 1e300, "1e+300 s");
        row("not a number", std::numeric_limits<double>::quiet_NaN(), "nan s");
    }
    void ShowsDuration()
    {
        const auto [seconds, text] = CurrentRow<double, QString>();
        QCOMPARE(DurationText::ForPeople(seconds), text);
    }

    void DurationInMillisecondsKeepsEveryDigit()
    {
        QCOMPARE(DurationText::Milliseconds(1.5), "1500");
        QCOMPARE(DurationText::Milliseconds(0.0012345678901234567), "1.2345678901234567");
        QCOMPARE(DurationText::Milliseconds(1.001), "1001"); // 1.001 * 1000 is 1000.9999999999999
    }

    void UnitsAndPrefixes()
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
            QCOMPARE(ValueDisplay::ScaleFactorToString(ValueDisplay::ScaleFactor(factor)), "#");
    }
};

QTEST_APPLESS_MAIN(ValueTextTest)
#include "ValueTextTest.moc"
