#include "support/Test.h"
#include "text/DecimalText.h"

#include <bit>
#include <cmath>
#include <limits>
#include <random>

using namespace ZYN;

namespace {

using Limits = std::numeric_limits<double>;

constexpr double Infinity = Limits::infinity();

quint64 Bits(double value)
{
    return std::bit_cast<quint64>(value);
}

/// Numbers at the edges of the type and of the text's forms.
QList<double> EdgeValues()
{
    QList<double> values{1.0 / 3.0, Limits::min(), Limits::max(), 9007199254740993.0};
    for (const char* text : {"0", "5e-324", "2.2250738585072011e-308", "9.999999999999999e22", "0.0123"})
        values.append(QByteArray(text).toDouble());
    for (int exponent = -323; exponent <= 308; ++exponent)
        values.append(QString("1e%1").arg(exponent).toDouble());
    const QList<double> positive = values;
    for (const double value : positive)
        values.append(-value);
    return values;
}

} // namespace

class DecimalTextTest : public QObject {
    Q_OBJECT
private slots:
    void ShowsReal_data()
    {
        const Rows<double, int, QString> row;
        row("negative zero", -0.0, 3, "-0");
        row("zeros appended", 1.5, 6, "1500000");
        row("zeros in front", -1.5, -3, "-0.0015");
        row("smallest plain", 1.5e-7, 0, "0.00000015");
        row("shifted out of plain", 2.0, -8, "2e-08");
        row("shifted into plain", 1.5e-9, 12, "1500");
        row("largest plain", 1e15, 0, "1000000000000000");
        row("above plain", 1e16, 0, "1e+16");
        row("largest shifted", Limits::max(), 12, "1.7976931348623157e+320");
        row("shift far out", -1.0, std::numeric_limits<int>::min(), "-1e-2147483648");
        row("nan", Limits::quiet_NaN(), 3, "nan");
        row("-inf", -Infinity, 0, "-inf");
    }
    void ShowsReal()
    {
        const auto [value, shift, text] = CurrentRow<double, int, QString>();
        QCOMPARE(DecimalText::FromReal(value, shift), text);
    }

    void ShowsDecimalsAsInstrumentsGiveThem()
    {
        std::mt19937_64 random(20261125);
        for (int i = 0; i < 20'000; ++i) {
            // Up to fifteen digits name a double unambiguously; the last one is no zero.
            const quint64 digits = random() % 100'000'000'000 * 10 + 1 + random() % 9;
            const int places = 1 + int(random() % 7);
            QString text = QString::number(digits).rightJustified(places + 1, QLatin1Char('0'));
            text.insert(text.size() - places, QLatin1Char('.'));
            QCOMPARE(DecimalText::FromReal(text.toDouble()), text);
            QCOMPARE(DecimalText::FromReal(-text.toDouble()), '-' + text);
        }
    }

    void ShowsInteger_data()
    {
        const Rows<qint64, int, QString> row;
        const qint64 smallest = std::numeric_limits<qint64>::min();
        row("never scientific", smallest, 0, "-9223372036854775808");
        row("zero", qint64(0), 6, "0");
        row("no digit lost", smallest, -12, "-9223372.036854775808");
        row("scientific", smallest, 3, "-9.223372036854775808e+21");
    }
    void ShowsInteger()
    {
        const auto [value, shift, text] = CurrentRow<qint64, int, QString>();
        QCOMPARE(DecimalText::FromInteger(value, shift), text);
    }

    void ReadsReal_data()
    {
        const Rows<int, bool, double> add;
        const auto row = [&](const char* text, int shift, double value) { add(text, shift, true, value); };
        row("+1.5", 0, 1.5);
        row("-0", -3, -0.0);
        row(" \t12.3\n", -3, 0.0123);
        row("\u00A07\u2003", 0, 7.0);
        row(".5", 1, 5.0);
        row("5.", 0, 5.0);
        row("1E3", 0, 1000.0);
        row("1e+3", -3, 1.0);
        row("1.5e-09", 12, 1500.0);
        row("0000012", 0, 12.0);
        row("5.5", -1, 0.55); // 5.5 * 0.1 is 0.55000000000000004
        row("-0.1e-999", 0, -0.0);
        row("0e999999999999999999999", 12, 0.0);
        row("1e-99999999999999999999999", 12, 0.0);
        row("1e320", -12, 1e308);
        row("123.45e-400", 390, 123.45e-10);
        row("-inf", 0, -Infinity);
        row("+INF", 3, Infinity);
        for (const char* text : {"nan", "NaN", "-nan", " nan "})
            row(text, 3, Limits::quiet_NaN());
        for (const char* text : {"",    "   ",      "+",     "-",      ".",      "-.e5",  "e5",    "1e",
                                 "1e+", "1e5.0",    "+-1",   "--1",    "1,5",    "1 5",   "1.5.2", "0x10",
                                 "12V", "infinity", "--inf", "nan(1)", "\u0661", "1e999", "-1e999"})
            add(text);
        add("1", 400);
        add("0.001e400", -50);
        add("1e99999999999999999999999");
    }
    void ReadsReal()
    {
        const auto [shift, isNumber, value] = CurrentRow<int, bool, double>();
        bool ok = false;
        const double read = DecimalText::ToReal(QString::fromUtf8(QTest::currentDataTag()), shift, &ok);
        QCOMPARE(ok, isNumber);
        QVERIFY(Bits(read) == Bits(value) || (std::isnan(read) && std::isnan(value)));
    }

    void ReadsLongTexts()
    {
        const QString zeros(100'000, QLatin1Char('0'));
        QCOMPARE(DecimalText::ToReal(zeros + "7"), 7.0);
        QCOMPARE(DecimalText::ToReal("0." + zeros + "7e100001"), 7.0);
        QCOMPARE(DecimalText::ToReal("7" + zeros + "e-100003", 3), 7.0);
        // Too small without an exponent is zero, too large is no number.
        bool ok = false;
        const QString manyZeros = zeros.first(400);
        QCOMPARE(DecimalText::ToReal("0." + manyZeros + QLatin1Char('1'), 0, &ok), 0.0);
        QVERIFY(ok);
        DecimalText::ToReal(QLatin1Char('1') + manyZeros, 0, &ok);
        QVERIFY(!ok);
        // Half way between two neighbours but for the last digit: only exact reading rounds up.
        const QString half = "1.00000000000000011102230246251565404236316680908203125";
        QCOMPARE(DecimalText::ToReal(half), 1.0);
        QCOMPARE(DecimalText::ToReal(half + zeros.first(500) + QLatin1Char('1')), std::nextafter(1.0, 2.0));
    }

    void EveryNumberComesBackThroughEveryFactor()
    {
        std::mt19937_64 random(20240917);
        QList<double> values = EdgeValues();
        for (const double value : values) {
            const QString text = DecimalText::FromReal(value);
            QCOMPARE(Bits(text.toDouble()), Bits(value)); // another reader
            QVERIFY2(text.size() <= 24, qPrintable(text));
        }
        for (int i = 0; i < 20'000; ++i)
            values.append(std::bit_cast<double>(random()));
        for (const double value : values) {
            for (int factor = -12; factor <= 12 && std::isfinite(value); ++factor) {
                const QString text = DecimalText::FromReal(value, -factor);
                bool ok = false;
                if (Bits(DecimalText::ToReal(text, factor, &ok)) != Bits(value) || !ok)
                    QFAIL(
                        qPrintable(QString("%1 by 10^%2: %3").arg(value, 0, 'g', 17).arg(factor).arg(text)));
            }
        }
    }
};

QTEST_APPLESS_MAIN(DecimalTextTest)
#include "DecimalTextTest.moc"
