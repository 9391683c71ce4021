#include <ZYNCommon/DurationText.h>
#include <ZYNCommon/LimitOperator.h>
#include <ZYNCommon/MeasurementUnit.h>
#include <ZYNCommon/ValueDisplay.h>
#include <ZYNCommon/ZYNApplication.h>
#include <ZYNCommon/ZYNTools.h>

#include <QtCore/QSet>
#include <QtTest/QTest>

#include <limits>

using namespace ZYN;

namespace {

constexpr int Hex = MeasurementUnit::Hexadecimal;
constexpr int Bin = MeasurementUnit::Binary;

} // namespace

class ValueTextTest : public QObject {
    Q_OBJECT
private slots:
    void ShowsValue_data();
    void ShowsValue();
    void NamesScales();
    void ShowsDuration_data();
    void ShowsDuration();
    void DurationInMillisecondsKeepsEveryDigit();
    void UnitsHaveDistinctTexts();
    void UnknownUnitKeepsItsCode();
    void OperatorsComeBack();
    void UnknownOperatorIsNone();
    void MediaDirIsChosenByEnvironment();
    void VersionIsKnownForTheTestEngineOnly();
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
    row("milli", 0.0123, -3, MeasurementUnit::Volt, QStringLiteral("12.3"));
    row("kilo", 4700.0, 3, MeasurementUnit::Ohm, QStringLiteral("4.7"));
    row("pico", 1e-11, -12, MeasurementUnit::Farad, QStringLiteral("10"));
    row("no prefix of its own", 1.5, 1, 0, QStringLiteral("0.15"));
    row("integer in kilo", 1500, 3, 0, QStringLiteral("1.5"));
    row("unsigned", huge, 0, 0, QStringLiteral("18446744073709551615"));
    row("unsigned in kilo", huge, 3, 0, QStringLiteral("1.8446744073709551615e+16"));
    row("boolean", true, 0, 0, QStringLiteral("1"));
    row("boolean in milli", true, -3, 0, QStringLiteral("1000"));
    row("single precision", 0.1f, 0, 0, QStringLiteral("0.1"));
    row("text", QStringLiteral("0.5 rev B"), -3, 0, QStringLiteral("0.5 rev B"));
    row("text in hex", QStringLiteral("255"), 0, Hex, QStringLiteral("255"));
    row("nan", std::numeric_limits<double>::quiet_NaN(), -3, 0, QStringLiteral("nan"));
    row("-inf", -std::numeric_limits<double>::infinity(), -3, 0, QStringLiteral("-inf"));
    row("hex", 0xBEEF, 0, Hex, QStringLiteral("beef"));
    row("hex is not scaled", 0xBEEF, -3, Hex, QStringLiteral("beef"));
    row("hex of 64 bits", huge, 0, Hex, QStringLiteral("ffffffffffffffff"));
    row("hex of a negative number", -1, 0, Hex, QStringLiteral("ffffffffffffffff"));
    row("hex of a whole real", 255.0, 0, Hex, QStringLiteral("ff"));
    row("hex of a real above 63 bits", 9223372036854775808.0, 0, Hex, QStringLiteral("8000000000000000"));
    row("hex of a real above 64 bits", 1e20, 0, Hex, QStringLiteral("1e+20"));
    row("hex of a negative real", -2.0, 0, Hex, QStringLiteral("fffffffffffffffe"));
    row("hex of a fraction", 1.5, 0, Hex, QStringLiteral("1.5"));
    row("hex of inf", std::numeric_limits<double>::infinity(), 0, Hex, QStringLiteral("inf"));
    row("binary", 10, 0, Bin, QStringLiteral("1010"));
    row("binary of a boolean", true, 0, Bin, QStringLiteral("1"));
    row("extreme factor", 5.0, std::numeric_limits<int>::min(), 0, QStringLiteral("5e+2147483647"));
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

void ValueTextTest::NamesScales()
{
    QString prefixes;
    for (int factor = -12; factor <= 12; factor += 3)
        prefixes += ValueDisplay::ScaleFactorToString(ValueDisplay::ScaleFactor(factor)) + QLatin1Char(' ');
    QCOMPARE(prefixes, QStringLiteral("p n u m  k M G T "));
    for (const int factor : {1, -1, 5, 15, -15})
        QCOMPARE(ValueDisplay::ScaleFactorToString(ValueDisplay::ScaleFactor(factor)), QStringLiteral("#"));
}

void ValueTextTest::ShowsDuration_data()
{
    QTest::addColumn<double>("seconds");
    QTest::addColumn<QString>("text");
    QTest::newRow("none") << 0.0 << "0.000 s";
    QTest::newRow("seconds") << 1.25 << "1.250 s";
    QTest::newRow("rounded") << 0.0016 << "0.002 s";
    QTest::newRow("just below a minute") << 59.9994 << "59.999 s";
    QTest::newRow("rounded to a minute") << 59.9996 << "1 min 00 s";
    QTest::newRow("minutes") << 123.4 << "2 min 03 s";
    QTest::newRow("rounded to an hour") << 3599.7 << "1 h 00 min 00 s";
    QTest::newRow("hours") << 3723.0 << "1 h 02 min 03 s";
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
    QCOMPARE(DurationText::Milliseconds(1.5), QStringLiteral("1500"));
    QCOMPARE(DurationText::Milliseconds(0.0012345678901234567), QStringLiteral("1.2345678901234567"));
    QCOMPARE(DurationText::Milliseconds(1.001), QStringLiteral("1001")); // 1.001 * 1000 is 1000.9999999999999
}

void ValueTextTest::UnitsHaveDistinctTexts()
{
    QSet<QString> texts;
    QSet<QString> asciiTexts;
    for (const int code : MeasurementUnit::KnownCodes()) {
        const MeasurementUnit unit(code);
        texts.insert(unit.ToString());
        asciiTexts.insert(unit.ToAsciiString());
        for (const QChar c : unit.ToAsciiString())
            QVERIFY2(c.unicode() < 0x80, qPrintable(unit.ToAsciiString()));
    }
    QCOMPARE(texts.size(), MeasurementUnit::KnownCodes().size());
    QCOMPARE(asciiTexts.size(), MeasurementUnit::KnownCodes().size());
    QCOMPARE(MeasurementUnit(MeasurementUnit::Ohm).ToString(), QString(QChar(0x03A9)));
    QCOMPARE(MeasurementUnit(MeasurementUnit::DegreeCelsius).ToAsciiString(), QStringLiteral("degC"));
    QCOMPARE(MeasurementUnit(MeasurementUnit::Siemens).ToString(), QStringLiteral("S"));
    QCOMPARE(MeasurementUnit(MeasurementUnit::Binary).ToString(), QStringLiteral("bin"));
}

void ValueTextTest::UnknownUnitKeepsItsCode()
{
    for (const int code : {-1, 27, 999, std::numeric_limits<int>::min()}) {
        QCOMPARE(MeasurementUnit(code).GetCode(), code);
        QCOMPARE(MeasurementUnit(code).ToString(), QString());
        QCOMPARE(MeasurementUnit(code).ToAsciiString(), QString());
    }
}

void ValueTextTest::OperatorsComeBack()
{
    QString texts;
    for (int code = LimitOperator::None; code <= LimitOperator::GreaterEqual; ++code) {
        const LimitOperator op(static_cast<LimitOperator::Code>(code));
        texts += op.ToString() + QLatin1Char(' ');
        QCOMPARE(LimitOperator::FromString(QStringLiteral(" %1\t").arg(op.ToString())).GetCode(),
                 op.GetCode());
        QCOMPARE(LimitOperator::FromString(op.ToString().toLatin1().constData()).GetCode(), op.GetCode());
    }
    QCOMPARE(texts, QStringLiteral(" == != < <= > >= "));
}

void ValueTextTest::UnknownOperatorIsNone()
{
    for (const char* text : {"=", "<>", "< =", "=<", "less", "\xE2\x89\xA4"}) {
        QCOMPARE(LimitOperator::FromString(text).GetCode(), LimitOperator::None);
        QCOMPARE(LimitOperator::FromString(QString::fromUtf8(text)).GetCode(), LimitOperator::None);
    }
    QCOMPARE(LimitOperator::FromString(static_cast<const char*>(nullptr)).GetCode(), LimitOperator::None);
}

void ValueTextTest::MediaDirIsChosenByEnvironment()
{
    const QByteArray before = qgetenv("ZYN_MEDIA_DIR");
    qputenv("ZYN_MEDIA_DIR", "/tmp/line 7/media");
    QCOMPARE(ZYNTools::GetMediaDir().path(), QStringLiteral("/tmp/line 7/media"));
    qunsetenv("ZYN_MEDIA_DIR");
    QVERIFY2(ZYNTools::GetMediaDir().path().endsWith(QStringLiteral("/zyn/media")),
             qPrintable(ZYNTools::GetMediaDir().path()));
    QVERIFY(ZYNTools::GetMediaDir().isAbsolute());
    if (!before.isNull())
        qputenv("ZYN_MEDIA_DIR", before);
}

void ValueTextTest::VersionIsKnownForTheTestEngineOnly()
{
    QVERIFY(!ZYNApplication::GetVersion(ZYNAppType::TestEngine).isEmpty());
    QVERIFY(ZYNApplication::GetVersion(ZYNAppType::Unknown).isEmpty());
}

QTEST_APPLESS_MAIN(ValueTextTest)
#include "ValueTextTest.moc"
