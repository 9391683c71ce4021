#include "support/Rows.h"
#include <ZYNCommon/DecimalText.h>

#include <QtTest/QTest>

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
    QList<double> values{0.0,
                         1.0 / 3.0,
                         5e-324,
                         Limits::min(),
                         Limits::max(),
                         2.2250738585072011e-308,
                         9007199254740993.0,
                         9.999999999999999e22,
                         0.0123};
    for (int exponent = -323; exponent <= 308; ++exponent)
        values.append(QString("1e%1").arg(exponent).toDouble());
    const qsizetype positive = values.size();
    for (qsizetype i = 0; i < positive; ++i)
        values.append(-values.at(i));
    return values;
}

void VerifyComesBack(double value, int factor)
{
    const QString text = DecimalText::FromReal(value, -factor);
    bool ok = false;
    const double back = DecimalText::ToReal(text, factor, &ok);
    if (!ok || Bits(back) != Bits(value))
        QFAIL(qPrintable(QString("%1 with factor %2 is shown as %3 and read as %4")
                             .arg(value, 0, 'g', 17)
                             .arg(factor)
                             .arg(text)
                             .arg(back, 0, 'g', 17)));
}

} // namespace

class DecimalTextTest : public QObject {
    Q_OBJECT
private slots:
    void ShowsReal_data()
    {
        const Rows<double, int, QString> row;
        row("zero", 0.0, 0, "0");
        row("negative zero", -0.0, 3, "-0");
        row("milli", 0.0123, 3, "12.3");
        row("zeros appended", 1.5, 6, "1500000");
        row("zeros in front", -1.5, -3, "-0.0015");
        row("smallest plain", 1.5e-7, 0, "0.00000015");
        row("shifted out of plain", 2.0, -8, "2e-08");
        row("shifted into plain", 1.5e-9, 12, "1500");
        row("largest plain", 1e15, 0, "1000000000000000");
        row("above plain", 1e16, 0, "1e+16");
        row("smallest", 5e-324, 0, "5e-324");
        row("largest", Limits::max(), 0, "1.7976931348623157e+308");
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
        row("point moved", qint64(1500), -3, "1.5");
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
        QTest::addColumn<QString>("text");
        QTest::addColumn<int>("shift");
        QTest::addColumn<bool>("isNumber");
        QTest::addColumn<double>("value");
        const auto number = [](const char* text, int shift, double value) {
            QTest::addRow("'%s' shifted by %d", text, shift)
                << QString::fromUtf8(text) << shift << true << value;
        };
        const auto none = [](const char* text, int shift = 0) {
            QTest::addRow("'%s' shifted by %d", text, shift)
                << QString::fromUtf8(text) << shift << false << 0.0;
        };
        number("1", 0, 1.0);
        number("+1.5", 0, 1.5);
        number("-0", -3, -0.0);
        number(" \t12.3\n", -3, 0.0123);
        number("\u00A07\u2003", 0, 7.0);
        number(".5", 1, 5.0);
        number("5.", 0, 5.0);
        number("1E3", 0, 1000.0);
        number("1e+3", -3, 1.0);
        number("1.5e-09", 12, 1500.0);
        number("0000012", 0, 12.0);
        number("5.5", -1, 0.55); // 5.5 * 0.1 is 0.55000000000000004
        number("1e-999", 0, 0.0);
        number("-0.1e-999", 0, -0.0);
        number("0e999999999999999999999", 12, 0.0);
        number("1e-99999999999999999999999", 12, 0.0);
        number("1e320", -12, 1e308);
        number("123.45e-400", 390, 123.45e-10);
        number("inf", 3, Infinity);
        number("-inf", 0, -Infinity);
        number("+INF", 0, Infinity);
        for (const char* text : {"",    "   ",      "+",     "-",      ".",      "-.e5",  "e5",    "1e",
                                 "1e+", "1e5.0",    "+-1",   "--1",    "1,5",    "1 5",   "1.5.2", "0x10",
                                 "12V", "infinity", "--inf", "nan(1)", "\u0661", "1e999", "-1e999"})
            none(text);
        none("1", 400);
        none("0.001e400", -50);
        none("1e99999999999999999999999");
    }
    void ReadsReal()
    {
        QFETCH(QString, text);
        QFETCH(int, shift);
        QFETCH(double, value);
        bool ok = false;
        const double read = DecimalText::ToReal(text, shift, &ok);
        QTEST(ok, "isNumber");
        QCOMPARE(Bits(read), Bits(value));
    }

    void ReadsNotANumber()
    {
        for (const char* text : {"nan", "NaN", "-nan", " nan "}) {
            bool ok = false;
            QVERIFY2(std::isnan(DecimalText::ToReal(QString::fromUtf8(text), 3, &ok)), text);
            QVERIFY2(ok, text);
        }
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
        QCOMPARE(DecimalText::ToReal(half + QString(500, QLatin1Char('0')) + QLatin1Char('1')),
                 std::nextafter(1.0, 2.0));
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
            for (int factor = -12; factor <= 12 && std::isfinite(value); ++factor)
                VerifyComesBack(value, factor);
            if (QTest::currentTestFailed())
                return;
        }
    }
};

QTEST_APPLESS_MAIN(DecimalTextTest)
#include "DecimalTextTest.moc"
