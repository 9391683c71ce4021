#include "ReportPieces.h"

#include <ZYNCommon/UnitUnderTest.h>

#include <QtTest/QtTest>

#include <limits>

using namespace ZYN;
using namespace ZYN::ReportFiles;
using namespace Qt::StringLiterals;

class ReportValuesTest : public QObject {
    Q_OBJECT
private slots:
    void integers_data();
    void integers();
    void durations_data();
    void durations();
    void values_data();
    void values();
    void limits_data();
    void limits();
    void limitsAreCarriedOver();
    void scaleIsCarriedOver();
    void propertyText_data();
    void propertyText();
};

void ReportValuesTest::integers_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<long>("number");
    QTest::addColumn<bool>("found");
    QTest::newRow("largest") << QByteArray("2147483647") << 2147483647L << false;
    QTest::newRow("too large") << QByteArray("2147483648") << 0L << true;
    QTest::newRow("no number") << QByteArray("12a") << 0L << true;
    QTest::newRow("hexadecimal") << QByteArray("0x10") << 0L << true;
    QTest::newRow("empty") << QByteArray() << 0L << true;
}

void ReportValuesTest::integers()
{
    QFETCH(QByteArray, text);
    QFETCH(long, number);
    QFETCH(bool, found);
    const Reading reading = Read(
        Report("<UnitUnderTest>" + Property("Name", "") + Property("PanelIndex", text) + "</UnitUnderTest>"));
    QCOMPARE(reading.test->GetUnitUnderTest()->GetPanelIndex(), number);
    QCOMPARE(!reading.findings.isEmpty(), found);
}

void ReportValuesTest::durations_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<double>("seconds");
    QTest::newRow("correctly rounded") << QByteArray("300.00000000000004") << 0.30000000000000004;
    QTest::newRow("scientific") << QByteArray("1e-9") << 1e-12;
    QTest::newRow("comma") << QByteArray("1,5") << 0.0;
    QTest::newRow("out of range") << QByteArray("1e999") << 0.0;
}

void ReportValuesTest::durations()
{
    QFETCH(QByteArray, text);
    QFETCH(double, seconds);
    const Reading reading = Read(StepReport("<TestMeasurement ID='4' Name='M' Type='8'><Result Code='1'>" +
                                            Property("Duration", text) + "</Result></TestMeasurement>"));
    QCOMPARE(ResultOf(reading)->GetDuration(), seconds);
    QCOMPARE(reading.findings.isEmpty(), seconds != 0.0);
}

void ReportValuesTest::values_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<QByteArray>("unit");
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<bool>("found");
    const auto row = [](const char* name, int type, const char* unit, const char* text, const QVariant& value,
                        bool found = false) {
        QTest::newRow(name) << type << QByteArray(unit) << QByteArray(text) << value << found;
    };
    row("real with prefix", 8, "Code='1' Factor='-3'", "12.3", 0.0123);
    row("real out of range", 8, "Factor='0'", "1e999", 0.0, true);
    row("real, no number", 8, "Factor='0'", "3,3", 0.0, true);
    row("real, empty", 8, "Factor='0'", "", 0.0);
    row("integer with prefix", 7, "Factor='3'", "9007199254740.993", 9007199254740993LL);
    row("integer with small prefix", 7, "Factor='-3'", "7000", 7LL);
    row("integer, only a sign", 7, "Factor='3'", "-", 0LL, true);
    row("integer of huge power", 7, "Factor='2147483647'", "1", 0LL, true);
    row("fraction of an integer", 7, "Factor='0'", "2.5", 2.5);
    row("hexadecimal, 64 bits", 7, "Code='25' Factor='0'", "ffffffffffffffff", -1LL);
    row("hexadecimal, too long", 7, "Code='25' Factor='0'", "1ffffffffffffffff", 0LL, true);
    row("binary", 7, "Code='26' Factor='0'", "101", 5LL);
    row("binary, other digit", 7, "Code='26' Factor='0'", "102x", 0LL, true);
    row("text, empty", 9, "Code='0' Factor='0'", "", u""_s);
}

void ReportValuesTest::values()
{
    QFETCH(int, type);
    QFETCH(QByteArray, unit);
    QFETCH(QByteArray, text);
    QFETCH(QVariant, value);
    QFETCH(bool, found);
    const Reading reading = Read(StepReport(Measurement(type, Limits(type, unit), text)));
    QCOMPARE(ResultOf(reading)->GetValue(), value);
    QCOMPARE(ResultOf(reading)->GetValue().typeId(), value.typeId());
    QVERIFY2(!reading.findings.isEmpty() == found, qPrintable(reading.Texts()));
}

void ReportValuesTest::limits_data()
{
    QTest::addColumn<QByteArray>("limits");
    QTest::addColumn<QVariant>("lower");
    QTest::addColumn<QVariant>("upper");
    QTest::addColumn<QString>("operators");
    QTest::addColumn<QVariant>("nominal");
    QTest::addColumn<bool>("found");
    const auto row = [](const char* name, const QByteArray& texts, const QVariant& lower,
                        const QVariant& upper, const QString& operators, const QVariant& nominal = QVariant(),
                        bool found = false) {
        QTest::newRow(name) << texts << lower << upper << operators << nominal << found;
    };
    const auto lower = [](const QByteArray& text, const QByteArray& op) {
        return Property("Lower", text) + Property("CompLower", op);
    };
    const auto upper = [](const QByteArray& text, const QByteArray& op) {
        return Property("Upper", text) + Property("CompUpper", op);
    };
    const QVariant none;
    row("both", Limits(8, "Factor='-3'", lower("10", "&lt;=") + upper("15.5", "&lt;")), 0.01, 0.0155,
        u"<= <"_s);
    row("nominal", Limits(8, "Factor='-3'", Property("Nominal", "12.3")), none, none, u" "_s, 0.0123);
    row("not a number", Limits(8, "Factor='0'", lower("x", "&lt;")), 0.0, none, u"< "_s, none, true);
    row("unknown operator", Limits(8, "Factor='0'", lower("1", "about")), none, none, u" "_s, none, true);
    row("integer, truncated", Limits(7, "Factor='0'", lower("-1.9", "&lt;")), -1LL, none, u"< "_s, none,
        true);
    row("integer beyond 32 bits", Limits(7, "Factor='0'", upper("5000000000", "&lt;")), none, 2147483647LL,
        u" <"_s, none, true);
    row("integer, not a number", Limits(7, "Factor='0'", upper("nan", "&lt;")), none, 0LL, u" <"_s, none,
        true);
    row("hexadecimal beyond 32 bits", Limits(7, "Code='25' Factor='0'", upper("1000000ff", "&lt;")), none,
        255LL, u" <"_s, none, true);
    row("text", Limits(9, "Code='0' Factor='0'", lower("V1.2", "==")), u"V1.2"_s, none, u"== "_s);
}

void ReportValuesTest::limits()
{
    QFETCH(QByteArray, limits);
    QFETCH(QVariant, lower);
    QFETCH(QVariant, upper);
    QFETCH(QString, operators);
    QFETCH(QVariant, nominal);
    QFETCH(bool, found);
    const Reading reading = Read(StepReport(Measurement(8, limits, "0")));
    const auto validation = ResultOf(reading)->GetValidation();
    QCOMPARE(validation->GetLowerLimit(), lower);
    QCOMPARE(validation->GetUpperLimit(), upper);
    QCOMPARE(validation->GetLowerOperator().ToString() + u' ' + validation->GetUpperOperator().ToString(),
             operators);
    QCOMPARE(validation->GetNominal(), nominal);
    QVERIFY(!validation->IsResultInverted());
    QVERIFY2(!reading.findings.isEmpty() == found, qPrintable(reading.Texts()));
}

void ReportValuesTest::limitsAreCarriedOver()
{
    const QByteArray inverted = Limits(8, "Code='1' Factor='0'", Property("InvertResult", "1"));
    CImportServiceReport service;
    const Reading first = Read(StepReport(Measurement(8, QByteArray(), "1") + Measurement(8, inverted, "2") +
                                          Measurement(8, QByteArray(), "3") +
                                          Measurement(5, Limits(5, "Code='2' Factor='0'"), "4")),
                               service);
    QVERIFY(!ResultOf(first, 0)->GetValidation());
    const auto validation = ResultOf(first, 1)->GetValidation();
    QVERIFY(validation->IsResultInverted());
    QCOMPARE(ResultOf(first, 2)->GetValidation(), validation);
    QCOMPARE(ResultOf(first, 3)->GetValidation(), validation);
    QCOMPARE(first.Texts(), u"measurement 'M' has no limits, takes those of the one before; "
                            "no limits are known for data type 5"_s);

    const Reading second = Read(StepReport(Measurement(8, QByteArray(), "1")), service);
    QCOMPARE(ResultOf(second)->GetValidation(), validation);
}

void ReportValuesTest::scaleIsCarriedOver()
{
    CImportServiceReport service;
    const Reading first =
        Read(StepReport(Measurement(8, Limits(8, "Code='25' Factor='3'"), "ff") +
                        Measurement(8, Limits(8, ""), "12") + Measurement(8, QByteArray(), "13")),
             service);
    // The unit code begins anew with each measurement, the scale does not.
    QCOMPARE(ResultOf(first, 0)->GetValue(), QVariant(255LL));
    QCOMPARE(ResultOf(first, 1)->GetValue(), QVariant(12000.0));
    QCOMPARE(ResultOf(first, 2)->GetValue(), QVariant(13000.0));
    const Reading second = Read(StepReport(Measurement(8, QByteArray(), "14")), service);
    QCOMPARE(ResultOf(second)->GetValue(), QVariant(14000.0));

    // Limits of texts are no reason to read a later number as one, nor the other way round.
    const Reading third =
        Read(StepReport(Measurement(9, QByteArray(), "V1") + Measurement(9, Limits(9, "Factor='0'"), "V2")));
    QCOMPARE(ResultOf(third, 0)->GetValue(), QVariant(u"V1"_s));
    QCOMPARE(ResultOf(third, 1)->GetValue(), QVariant(u"V2"_s));
}

void ReportValuesTest::propertyText_data()
{
    QTest::addColumn<QByteArray>("written");
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("found");
    QTest::newRow("escapes") << QByteArray("a &amp; b &#65;&lt;") << u"a & b A<"_s << false;
    QTest::newRow("long") << QByteArray(100000, 'x') + "&amp;" << QString(100000, u'x') + u'&' << false;
    QTest::newRow("line ends") << QByteArray("a\nb\r\nc") << u"a\nb\nc"_s << false;
    QTest::newRow("control byte is removed") << QByteArray("a\022b\022") << u"ab"_s << false;
    QTest::newRow("section") << QByteArray("<![CDATA[<a>]]>") << u"<a>"_s << false;
    QTest::newRow("comment first") << QByteArray("<!-- c -->") << QString() << false;
    QTest::newRow("pieces") << QByteArray("one<!-- c -->two") << u"one"_s << true;
    QTest::newRow("element inside") << QByteArray("<b>bold</b>") << QString() << true;
}

void ReportValuesTest::propertyText()
{
    QFETCH(QByteArray, written);
    QFETCH(QString, text);
    QFETCH(bool, found);
    const Reading reading = Read(Report("<UUTTest>" + Property("Description", written) + "</UUTTest>"));
    QCOMPARE(reading.test->GetResultDescription(), text);
    QVERIFY2(!reading.findings.isEmpty() == found, qPrintable(reading.Texts()));
}

QTEST_GUILESS_MAIN(ReportValuesTest)
#include "ReportValuesTest.moc"
