#include "ReportPieces.h"
#include "support/Test.h"

#include <ZYNCommon/UnitUnderTest.h>

#include <limits>

using namespace ZYN;
using namespace ZYN::ReportFiles;
using namespace Qt::StringLiterals;

class ReportValuesTest : public QObject {
    Q_OBJECT
private slots:
    /// A text as an integer of 32 bits and as a duration in milliseconds; what is neither is 0 and found.
    void Numbers_data()
    {
        const Rows<long, double> row;
        row("2147483647", 2147483647L, 2147483.647);
        row("2147483648", 0L, 2147483.648);
        row("300.00000000000004", 0L, 0.30000000000000004); // correctly rounded
        row("1e-9", 0L, 1e-12);
        for (const char* text : {"12a", "0x10", "", "1,5", "1e999"})
            row(text, 0L, 0.0);
    }
    void Numbers()
    {
        const auto [number, seconds] = CurrentRow<long, double>();
        const QByteArray text = QTest::currentDataTag();
        QByteArray report = StepReport("<TestMeasurement ID='4' Name='M' Type='8'><Result Code='1'>" +
                                       Property("Duration", text) + "</Result></TestMeasurement>");
        report.replace("<TestResults>", "<UnitUnderTest>" + Property("Name", "") +
                                            Property("PanelIndex", text) + "</UnitUnderTest><TestResults>");
        const Reading reading = Read(report);
        QCOMPARE(reading.test->GetUnitUnderTest()->GetPanelIndex(), number);
        QCOMPARE(ResultOf(reading)->GetDuration(), seconds);
        QCOMPARE(reading.findings.size(), int(number == 0) + int(seconds == 0.0));
    }

    void Values_data()
    {
        const Rows<int, QByteArray, QByteArray, QVariant, bool> row;
        row("real out of range", 8, "Factor='0'", "1e999", 0.0, true);
        row("real, no number", 8, "Factor='0'", "3,3", 0.0, true);
        row("real, empty", 8, "Factor='0'", "", 0.0);
        row("integer with small prefix", 7, "Factor='-3'", "7000", 7LL);
        row("integer, only a sign", 7, "Factor='3'", "-", 0LL, true);
        row("integer of huge power", 7, "Factor='2147483647'", "1", 0LL, true);
        row("fraction of an integer", 7, "Factor='0'", "2.5", 2.5);
        row("hexadecimal, too long", 7, "Code='25' Factor='0'", "1ffffffffffffffff", 0LL, true);
        row("hexadecimal, 64 bits", 7, "Code='25' Factor='0'", "fffffffffffffff6", -10LL);
        row("hexadecimal, sign", 7, "Code='25' Factor='0'", "-10", -16LL);
        row("hexadecimal, not whole", 8, "Code='25' Factor='0'", "12.5", 0LL, true);
        row("binary, sign", 7, "Code='26' Factor='0'", "-10", -2LL);
        row("binary, other digit", 7, "Code='26' Factor='0'", "2", 0LL, true);
    }
    void Values()
    {
        const auto [type, unit, text, value, found] =
            CurrentRow<int, QByteArray, QByteArray, QVariant, bool>();
        const Reading reading = Read(StepReport(Measurement(type, Limits(type, unit), text)));
        QCOMPARE(ResultOf(reading)->GetValue(), value);
        QCOMPARE(ResultOf(reading)->GetValue().typeId(), value.typeId());
        QVERIFY2(!reading.findings.isEmpty() == found, qPrintable(reading.Texts()));
    }

    void LimitsAreRead_data()
    {
        const Rows<QByteArray, QVariant, QVariant, QString, QVariant, bool> row;
        const auto lower = [](const QByteArray& text, const QByteArray& op) {
            return Property("Lower", text) + Property("CompLower", op);
        };
        const auto upper = [](const QByteArray& text, const QByteArray& op) {
            return Property("Upper", text) + Property("CompUpper", op);
        };
        const QVariant none;
        row("not a number", Limits(8, "Factor='0'", lower("x", "&lt;")), 0.0, none, "< ");
        row("unknown operator", Limits(8, "Factor='0'", lower("1", "about")), none, none, " ");
        row("integer, truncated", Limits(7, "Factor='0'", lower("-1.9", "&lt;")), -1LL, none, "< ");
        row("integer beyond 32 bits", Limits(7, "Factor='0'", upper("5000000000", "&lt;")), none,
            2147483647LL, " <");
        row("integer, not a number", Limits(7, "Factor='0'", upper("nan", "&lt;")), none, 0LL, " <");
        row("hexadecimal beyond 32 bits", Limits(7, "Code='25' Factor='0'", upper("1000000ff", "&lt;")), none,
            255LL, " <");
        // The unit and the scale are those that are known by then; a nominal value is decimal in every unit.
        row("before the unit",
            "<Limits Type='8'>" + lower("10", "&lt;") + "<Property Name='Unit' Code='25' Factor='1'/>" +
                upper("10", "&lt;") + Property("Nominal", "10") + "</Limits>",
            10.0, 16.0, "< <", 100.0, true);
    }
    void LimitsAreRead()
    {
        const auto [limits, lower, upper, operators, nominal, isGood] =
            CurrentRow<QByteArray, QVariant, QVariant, QString, QVariant, bool>();
        const Reading reading = Read(StepReport(Measurement(8, limits, "0")));
        const auto validation = ResultOf(reading)->GetValidation();
        QCOMPARE(validation->GetLowerLimit(), lower);
        QCOMPARE(validation->GetUpperLimit(), upper);
        QCOMPARE(validation->GetLowerOperator().ToString() + u' ' + validation->GetUpperOperator().ToString(),
                 operators);
        QCOMPARE(validation->GetNominal(), nominal);
        QVERIFY(!validation->IsResultInverted());
        QCOMPARE(reading.findings.isEmpty(), isGood);
    }

    void LimitsAreCarriedOver()
    {
        const QByteArray inverted = Limits(8, "Code='1' Factor='0'", Property("InvertResult", "1"));
        CImportServiceReport service;
        const Reading first =
            Read(StepReport(Measurement(8, QByteArray(), "1") + Measurement(8, inverted, "2") +
                            Measurement(7, QByteArray(), "3") +
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

    void ScaleIsCarriedOver()
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

        // What is a text is decided by the limits, by the last ones where there are none.
        const Reading third = Read(
            StepReport(Measurement(9, QByteArray(), "7") + Measurement(9, Limits(8, "Factor='0'"), "7") +
                       Measurement(9, Limits(9, "Factor='0'"), "7") + Measurement(8, QByteArray(), "7")));
        for (const auto& [place, value] : {std::pair(0, QVariant(7.0)), {1, 7.0}, {2, "7"}, {3, "7"}})
            QCOMPARE(ResultOf(third, place)->GetValue(), value);
    }

    void PropertyText_data()
    {
        const Rows<QByteArray, QString, bool> row;
        row("escapes", "a &amp; b &#65;&lt;", "a & b A<", false);
        row("long", QByteArray(100000, 'x') + "&amp;", QString(100000, u'x') + u'&', false);
        row("line ends", "a\nb\r\nc", "a\nb\nc", false);
        row("control byte is removed", "a\022b\022", "ab", false);
        row("section", "<![CDATA[<a>]]>", "<a>", false);
        row("comment first", "<!-- c -->", QString(), false);
        row("pieces", "one<!-- c -->two", "one", true);
        row("element inside", "<b>bold</b>", QString(), true);
    }
    void PropertyText()
    {
        const auto [written, text, found] = CurrentRow<QByteArray, QString, bool>();
        const Reading reading = Read(Report("<UUTTest>" + Property("Description", written) + "</UUTTest>"));
        QCOMPARE(reading.test->GetResultDescription(), text);
        QVERIFY2(!reading.findings.isEmpty() == found, qPrintable(reading.Texts()));
    }
};

QTEST_GUILESS_MAIN(ReportValuesTest)
#include "ReportValuesTest.moc"
