#include "support/Model.h"
#include "support/Test.h"

#include "report/CReportBuilderXML.h"
#include "report/XmlText.h"

#include <functional>

using namespace ZYN;

namespace {

/// The lines of a document but for the declaration and the root, without the indentation of their level.
QStringList Written(const std::function<void(CReportBuilderXML&)>& call)
{
    QBuffer device;
    CReportBuilderXML builder;
    builder.SetDevice(&device);
    builder.Open();
    call(builder);
    builder.Close();
    return QString::fromUtf8(device.data()).replace("\n    ", "\n").trimmed().split('\n').mid(2);
}

} // namespace

class XmlReportTest : public QObject {
    Q_OBJECT
private slots:
    void Text_data()
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
    void Text()
    {
        const auto [text, clean] = CurrentRow<QString, QString>();
        QCOMPARE(XmlText(text), clean);
    }

    void ProductTypeParameters()
    {
        ProductType productType(7, "P");
        for (const char* key :
             {"b", "_GoldenDevice", "_GoldenDevice_7", "a_GoldenDevice", "B", "_goldendevice", "no & name"})
            productType.SetParameter(key, QString(key).toUpper());
        const QStringList written =
            Written([&](CReportBuilderXML& builder) { builder.BeginProductType(&productType); });
        QCOMPARE(written.filter("<Parameter "),
                 QStringList({"    <Parameter B=\"B\"/>", "    <Parameter _goldendevice=\"_GOLDENDEVICE\"/>",
                              "    <Parameter a_GoldenDevice=\"A_GOLDENDEVICE\"/>",
                              "    <Parameter b=\"B\"/>", "    <Parameter no & name=\"NO &amp; NAME\"/>"}));
    }

    /// Components that a caller made without controls, without a line, without a result.
    void BareComponents()
    {
        const QSharedPointer<TestGroup> group(
            new TestGroup(3, "G", nullptr, 0, -1, ZYN_GROUP_CLEANUP, nullptr));
        group->SetEnableCtrl(nullptr);
        group->SetLogInReportCtrl(nullptr);
        TestResult result(group);
        const QStringList written = Written([&](CReportBuilderXML& builder) {
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
        QCOMPARE(written.first(5).join('\n'), R"(<TestGroup ID="3" Name="G" Type="2">
    <Property Name="Ident">3</Property>
    <Property Name="Enabled">0</Property>
    <Property Name="Type">2</Property>
    <Property Name="ReportInc">0</Property>)");
    }

    void StyleSheet()
    {
        for (const QString path : {"", "/styles/a & b.xsl", "plain.xsl"}) {
            QBuffer device;
            CReportBuilderXML builder;
            builder.SetProperty("XMLStyle", path);
            builder.SetDevice(&device);
            QVERIFY(builder.Open() && builder.Close());
            // As an absolute path, not escaped.
            const QString style = path.isEmpty() ? QString()
                                                 : "<?xml-stylesheet type=\"text/xsl\" href=\"" +
                                                       QDir::current().absoluteFilePath(path) + "\"?>\n";
            QCOMPARE(QString::fromUtf8(device.data()), "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n" +
                                                           style + "<TestReport Version=\"1.4.0\"/>\n");
        }
    }
};

QTEST_GUILESS_MAIN(XmlReportTest)
#include "XmlReportTest.moc"
