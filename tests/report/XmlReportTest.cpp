#include "support/Model.h"
#include "support/Test.h"

#include "report/CReportBuilderXML.h"
#include "report/XmlText.h"

#include <functional>

using namespace ZYN;
using namespace Qt::StringLiterals;

namespace {

/// What a document begins with; the root is closed by what the call writes.
constexpr auto head = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<TestReport Version=\"1.4.0\"";

/// The children of the root that a call writes, without the indentation of their level.
QString Written(const std::function<void(CReportBuilderXML&)>& call)
{
    QBuffer device;
    CReportBuilderXML builder;
    builder.SetDevice(&device);
    builder.Open();
    call(builder);
    builder.Close();
    return QString::fromUtf8(device.data())
        .remove(QString(head) + ">\n    ")
        .remove("\n</TestReport>\n")
        .replace("\n    ", "\n");
}

} // namespace

class XmlReportTest : public QObject {
    Q_OBJECT
private slots:
    void text_data()
    {
        const Rows<QString, QString> row;
        const QChar high(0xd83d);
        const QChar low(0xde00);
        const QChar mark(QChar::ReplacementCharacter);
        row("white space", "\t\n\r ", "\t\n\r ");
        row("pair", QString("a") + high + low + "b", QString("a") + high + low + "b");
        row("high alone", QString("a") + high + "b", QString("a") + mark + "b");
        row("high at the end", QString("a") + high, QString("a") + mark);
        row("low alone", QString(low) + "b", QString(mark) + "b");
        row("high before a pair", QString(high) + high + low, QString(mark) + high + low);
        row("wrong way round", QString(low) + high, QString(mark) + mark);
        row("control", QString("a\x01\x1f\x7f") + QChar(0), QString("a") + mark + mark + "\x7f" + mark);
        row("no characters", QString(QChar(0xfffe)) + QChar(0xffff) + QChar(0xfffd),
            QString(mark) + mark + mark);
    }
    void text()
    {
        const auto [text, clean] = CurrentRow<QString, QString>();
        QCOMPARE(XmlText(text), clean);
    }

    void productTypeParameters()
    {
        ProductType productType(7, "P");
        for (const char* key :
             {"b", "_GoldenDevice", "_GoldenDevice_7", "a_GoldenDevice", "B", "_goldendevice", "no & name"})
            productType.SetParameter(key, QString(key).toUpper());
        const auto written = [&](CReportBuilderXML& builder) { builder.BeginProductType(&productType); };
        QCOMPARE(Written(written), uR"(<ProductType ID="7">
    <Property Name="Name">P</Property>
    <Property Name="Description"></Property>
    <Property Name="ArticelCode"></Property>
    <Property Name="Customer"></Property>
    <Parameter B="B"/>
    <Parameter _goldendevice="_GOLDENDEVICE"/>
    <Parameter a_GoldenDevice="A_GOLDENDEVICE"/>
    <Parameter b="B"/>
    <Parameter no & name="NO &amp; NAME"/>
    <Property Name="ClusterLevel"></Property>
</ProductType>)"_s);
    }

    /// Components that a caller made without controls, without a line, without a result.
    void bareComponents()
    {
        const QSharedPointer<TestGroup> group(
            new TestGroup(3, "G", nullptr, 0, -1, ZYN_GROUP_CLEANUP, nullptr));
        group->SetEnableCtrl(nullptr);
        group->SetLogInReportCtrl(nullptr);
        TestResult result(group);
        const QString written = Written([&](CReportBuilderXML& builder) {
            QVERIFY(!builder.BeginUUTTest(nullptr));
            QVERIFY(!builder.BeginUnitUnderTest(nullptr));
            QVERIFY(!builder.BeginTestResultSet(nullptr));
            QVERIFY(!builder.BeginTestProgram(nullptr, &result));
            QVERIFY(!builder.BeginTestGroup(group.data(), nullptr));
            QVERIFY(!builder.BeginTestStep(nullptr, &result));
            QVERIFY(!builder.BeginTestMeasurement(nullptr, &result));
            QVERIFY(builder.BeginTestGroup(group.data(), &result));
            builder.EndTestGroup(group.data());
        });
        QVERIFY2(written.startsWith(uR"(<TestGroup ID="3" Name="G" Type="2">
    <Property Name="Ident">3</Property>
    <Property Name="Enabled">0</Property>
    <Property Name="Type">2</Property>
    <Property Name="ReportInc">0</Property>
    <Result Code="0")"_s),
                 qPrintable(written));
    }

    void styleSheet_data()
    {
        const Rows<QString, QString> row;
        const QString instruction = "<?xml-stylesheet type=\"text/xsl\" href=\"%1\"?>\n";
        row("none", QString(), QString());
        row("absolute, not escaped", "/styles/a & b.xsl", instruction.arg("/styles/a & b.xsl"));
        row("relative", "plain.xsl", instruction.arg(QDir::current().absoluteFilePath("plain.xsl")));
    }
    void styleSheet()
    {
        const auto [path, line] = CurrentRow<QString, QString>();
        QBuffer device;
        CReportBuilderXML builder;
        builder.SetProperty("XMLStyle", path);
        builder.SetDevice(&device);
        QVERIFY(builder.Open() && builder.Close());
        QString expected = QLatin1String(head) + "/>\n";
        expected.insert(expected.indexOf(u'\n') + 1, line);
        QCOMPARE(QString::fromUtf8(device.data()), expected);
    }
};

QTEST_GUILESS_MAIN(XmlReportTest)
#include "XmlReportTest.moc"
