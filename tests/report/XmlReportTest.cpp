#include "report/CReportBuilderXML.h"
#include "report/XmlText.h"

#include <ZYNCommon/CtrlEnable.h>
#include <ZYNCommon/CtrlLogInReport.h>
#include <ZYNCommon/ProductType.h>
#include <ZYNCommon/TestGroup.h>
#include <ZYNCommon/TestResult.h>

#include <QtCore/QBuffer>
#include <QtCore/QDir>
#include <QtCore/QXmlStreamReader>
#include <QtTest/QtTest>

#include <functional>

using namespace ZYN;
using namespace Qt::StringLiterals;

namespace {

/// What a document begins with; the root is closed by what the call writes.
constexpr auto head = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<TestReport Version=\"1.4.0\"";

using Call = std::function<void(CReportBuilderXML&)>;

/// The children of the root that a call writes, without the indentation of their level.
QString Written(const Call& call)
{
    QBuffer device;
    CReportBuilderXML builder;
    builder.SetDevice(&device);
    if (!builder.Open())
        return u"not opened"_s;
    call(builder);
    builder.Close();
    QString text = QString::fromUtf8(device.data());
    const QString begin = QLatin1String(head) + u">\n    "_s;
    const QString end = u"\n</TestReport>\n"_s;
    if (!text.startsWith(begin) || !text.endsWith(end))
        return text;
    return text.mid(begin.size(), text.size() - begin.size() - end.size()).replace(u"\n    "_s, u"\n"_s);
}

QString Written(ProductType& productType)
{
    return Written([&](CReportBuilderXML& builder) { builder.BeginProductType(&productType); });
}

} // namespace

class XmlReportTest : public QObject {
    Q_OBJECT
private slots:
    void text_data();
    void text();
    void productTypeParameters();
    void bareComponents();
    void styleSheet_data();
    void styleSheet();
};

void XmlReportTest::text_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("clean");

    const QChar high(0xd83d);
    const QChar low(0xde00);
    const QChar mark(QChar::ReplacementCharacter);
    QTest::newRow("white space") << u"\t\n\r "_s << u"\t\n\r "_s;
    QTest::newRow("pair") << u"a"_s + high + low + u"b"_s << u"a"_s + high + low + u"b"_s;
    QTest::newRow("high alone") << u"a"_s + high + u"b"_s << u"a"_s + mark + u"b"_s;
    QTest::newRow("high at the end") << u"a"_s + high << u"a"_s + mark;
    QTest::newRow("low alone") << QString(low) + u"b"_s << QString(mark) + u"b"_s;
    QTest::newRow("high before a pair") << QString(high) + high + low << QString(mark) + high + low;
    QTest::newRow("wrong way round") << QString(low) + high << QString(mark) + mark;
    QTest::newRow("control") << u"a\x01\x1f\x7f"_s + QChar(0) << u"a"_s + mark + mark + u"\x7f"_s + mark;
    QTest::newRow("no characters") << QString(QChar(0xfffe)) + QChar(0xffff) + QChar(0xfffd)
                                   << QString(mark) + mark + mark;
}

void XmlReportTest::text()
{
    QFETCH(QString, text);
    QFETCH(QString, clean);
    QCOMPARE(XmlText(text), clean);

    // What a reader gets back is what was written, in a text and in an attribute.
    ProductType productType(1, text);
    productType.SetParameter(u"key"_s, text);
    QXmlStreamReader reader(Written(productType));
    QString name;
    QString attribute;
    while (!reader.atEnd()) {
        reader.readNext();
        if (reader.isStartElement() && reader.attributes().value("Name"_L1) == "Name"_L1)
            name = reader.readElementText();
        else if (reader.isStartElement() && reader.name() == "Parameter"_L1)
            attribute = reader.attributes().value("key"_L1).toString();
    }
    QVERIFY2(!reader.hasError(), qPrintable(reader.errorString()));
    QCOMPARE(attribute, clean);
    QCOMPARE(name, clean.replace(u'\r', u'\n')); // XML knows one line end in a text
}

void XmlReportTest::productTypeParameters()
{
    ProductType productType(7, u"P"_s);
    for (const QString& key : {u"b"_s, u"_GoldenDevice"_s, u"_GoldenDevice_7"_s, u"a_GoldenDevice"_s, u"B"_s,
                               u"_goldendevice"_s, u"no & name"_s})
        productType.SetParameter(key, key.toUpper());
    QCOMPARE(Written(productType), uR"(<ProductType ID="7">
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
void XmlReportTest::bareComponents()
{
    const QSharedPointer<TestGroup> group(
        new TestGroup(3, u"G"_s, nullptr, 0, -1, ZYN_GROUP_CLEANUP, nullptr));
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

void XmlReportTest::styleSheet_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("line");
    const QString instruction = u"<?xml-stylesheet type=\"text/xsl\" href=\"%1\"?>\n"_s;
    QTest::newRow("none") << QString() << QString();
    QTest::newRow("absolute, not escaped")
        << u"/styles/a & b.xsl"_s << instruction.arg(u"/styles/a & b.xsl"_s);
    QTest::newRow("relative") << u"plain.xsl"_s
                              << instruction.arg(QDir::current().absoluteFilePath(u"plain.xsl"_s));
}

void XmlReportTest::styleSheet()
{
    QFETCH(QString, path);
    QFETCH(QString, line);
    QBuffer device;
    CReportBuilderXML builder;
    builder.SetProperty(u"XMLStyle"_s, path);
    builder.SetDevice(&device);
    QVERIFY(builder.Open() && builder.Close());
    QString expected = QLatin1String(head) + u"/>\n"_s;
    expected.insert(expected.indexOf(u'\n') + 1, line);
    QCOMPARE(QString::fromUtf8(device.data()), expected);
}

QTEST_GUILESS_MAIN(XmlReportTest)
#include "XmlReportTest.moc"
