#include "export/FaultDevices.h"
#include "support/SampleModels.h"

#include "export/CExportDirectorReport.h"
#include "report/CReportBuilderXML.h"
#include "report/XmlText.h"

#include <ZYNCommon/CtrlEnable.h>
#include <ZYNCommon/CtrlLogInReport.h>
#include <ZYNCommon/ProductType.h>
#include <ZYNCommon/ProductTypeMultiPanel.h>
#include <ZYNCommon/TestGroup.h>
#include <ZYNCommon/TestProgram.h>
#include <ZYNCommon/TestResult.h>
#include <ZYNCommon/TestResultSet.h>
#include <ZYNCommon/TestStep.h>
#include <ZYNCommon/UUTTest.h>

#include <QtCore/QBuffer>
#include <QtCore/QDir>
#include <QtCore/QTemporaryDir>
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

QByteArray FileContent(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("unreadable");
}

} // namespace

class XmlReportTest : public QObject {
    Q_OBJECT
private slots:
    void text_data();
    void text();
    void textOfNothingToReplaceIsNotCopied();
    void productTypeParameters();
    void multiPanel_data();
    void multiPanel();
    void countedNumbers();
    void switches_data();
    void switches();
    void sourceLine();
    void nullModels();
    void componentsWithoutResult();
    void styleSheet_data();
    void styleSheet();
    void documentAfterAFailedWalk();
    void documentWithoutADevice();
    void outputComplete();
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

void XmlReportTest::textOfNothingToReplaceIsNotCopied()
{
    const QString text = u"12.5 \u00b0C \U0001f600"_s;
    QCOMPARE(XmlText(text).constData(), text.constData());
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

void XmlReportTest::multiPanel_data()
{
    QTest::addColumn<bool>("splitting");
    QTest::addColumn<QString>("splittingText");
    QTest::newRow("split") << true << u"1"_s;
    QTest::newRow("whole") << false << u"0"_s;
}

void XmlReportTest::multiPanel()
{
    QFETCH(bool, splitting);
    QFETCH(QString, splittingText);
    ProductType productType(0, QString());
    productType.GetMultiPanelInfo()->SetPanelItems(4);
    productType.GetMultiPanelInfo()->SetSplitting(splitting);
    productType.GetMultiPanelInfo()->SetSplittingString(u"10_2 11_2"_s);
    QVERIFY(!Written(productType).contains("MCP"_L1));

    productType.GetMultiPanelInfo()->SetMultiPanel(true);
    QVERIFY(Written(productType).endsWith(uR"(
    <Property Name="ClusterLevel"></Property>
    <Property Name="MCP">1</Property>
    <Property Name="MCPItems">4</Property>
    <Property Name="MCPSplitting">%1</Property>
    <Property Name="MCPSplittingMap">10_2 11_2</Property>
</ProductType>)"_s.arg(splittingText)));
}

void XmlReportTest::countedNumbers()
{
    ProductType productType(0, QString());
    for (const auto& [level, expected] : {std::pair(-1, u""_s), std::pair(0, u""_s), std::pair(1, u"1"_s)}) {
        productType.SetClusterLevel(level);
        QVERIFY(Written(productType).contains(u"\"ClusterLevel\">%1</Property>"_s.arg(expected)));
    }
    TestResultSet resultSet(nullptr, nullptr);
    const QString set = Written([&](CReportBuilderXML& builder) {
        builder.BeginTestResultSet(&resultSet);
        builder.EndTestResultSet(&resultSet);
    });
    QCOMPARE(set, uR"(<TestResultSet>
    <Property Name="StationID"></Property>
    <Property Name="StationDescription"></Property>
    <Property Name="TestIndex"></Property>
    <Property Name="FailedGroups"></Property>
    <Property Name="FailedSteps">0</Property>
</TestResultSet>)"_s);
}

void XmlReportTest::switches_data()
{
    QTest::addColumn<bool>("hasControls");
    QTest::addColumn<bool>("enabled");
    QTest::addColumn<bool>("reported");
    QTest::addColumn<QString>("enabledText");
    QTest::addColumn<QString>("reportedText");
    QTest::newRow("none") << false << false << false << u"0"_s << u"0"_s;
    QTest::newRow("off, on") << true << false << true << u"0"_s << u"1"_s;
    QTest::newRow("on, off") << true << true << false << u"1"_s << u"0"_s;
}

void XmlReportTest::switches()
{
    QFETCH(bool, hasControls);
    QFETCH(bool, enabled);
    QFETCH(bool, reported);
    QFETCH(QString, enabledText);
    QFETCH(QString, reportedText);
    const QSharedPointer<TestGroup> group(
        new TestGroup(3, u"G"_s, nullptr, 0, -1, ZYN_GROUP_CLEANUP, nullptr));
    group->SetEnableCtrl(hasControls ? new CtrlEnable(enabled) : nullptr);
    group->SetLogInReportCtrl(hasControls ? new CtrlLogInReport(reported) : nullptr);
    TestResult result(group);
    const QString written = Written([&](CReportBuilderXML& builder) {
        builder.BeginTestGroup(group.data(), &result);
        builder.EndTestGroup(group.data());
    });
    QVERIFY2(written.startsWith(uR"(<TestGroup ID="3" Name="G" Type="2">
    <Property Name="Ident">3</Property>
    <Property Name="Enabled">%1</Property>
    <Property Name="Type">2</Property>
    <Property Name="ReportInc">%2</Property>
    <Result Code="0")"_s.arg(enabledText, reportedText)),
             qPrintable(written));
}

void XmlReportTest::sourceLine()
{
    for (const unsigned int line : {0U, 1U}) {
        const QSharedPointer<TestStep> step(new TestStep(3, u"S"_s, nullptr, line, -1, QString()));
        TestResult result(step);
        const QString written = Written([&](CReportBuilderXML& builder) {
            builder.BeginTestStep(step.data(), &result);
            builder.EndTestStep(step.data());
        });
        QCOMPARE(written.contains("<Property Name=\"SourceLine\">1</Property>"_L1), line == 1);
        QCOMPARE(written.contains("SourceLine"_L1), line == 1);
    }
}

void XmlReportTest::nullModels()
{
    const QSharedPointer<TestGroup> group(new TestGroup(1, u"G"_s, nullptr, 0, -1, ZYN_GROUP_USER, nullptr));
    TestResult result(group);
    int refused = 0;
    const QString written = Written([&](CReportBuilderXML& builder) {
        refused += !builder.BeginUUTTest(nullptr);
        refused += !builder.BeginUnitUnderTest(nullptr);
        refused += !builder.BeginProductType(nullptr);
        refused += !builder.BeginProductionLot(nullptr);
        refused += !builder.BeginSession(nullptr);
        refused += !builder.BeginFixture(nullptr);
        refused += !builder.BeginTestResultSet(nullptr);
        refused += !builder.BeginTestProgram(nullptr, &result);
        refused += !builder.BeginTestGroup(nullptr, &result);
        refused += !builder.BeginTestGroup(group.data(), nullptr);
        refused += !builder.EndTestGroup(nullptr);
        refused += !builder.BeginTestStep(nullptr, &result);
        refused += !builder.BeginTestParameter(nullptr, &result);
        refused += !builder.BeginTestMeasurement(nullptr, &result);
    });
    QCOMPARE(refused, 14);
    QCOMPARE(written, QLatin1String(head) + u"/>\n"_s);
}

void XmlReportTest::componentsWithoutResult()
{
    // A program without a result is written without one; a group without one is left out with all in it.
    TestProgram program(9, u"P"_s, 0);
    const QSharedPointer<TestGroup> group(new TestGroup(1, u"G"_s, nullptr, 0, -1, ZYN_GROUP_USER, nullptr));
    program.AddGroup(group);
    const QString written = Written([&](CReportBuilderXML& builder) {
        if (builder.BeginTestProgram(&program, nullptr)) {
            if (builder.BeginTestGroup(group.data(), nullptr))
                builder.EndTestGroup(group.data());
            builder.EndTestProgram(&program);
        }
    });
    QVERIFY(written.startsWith("<Testprogram ID=\"9\" Name=\"P\" Type=\"1\">"_L1));
    QVERIFY(written.endsWith("<Property Name=\"Creator\"></Property>\n</Testprogram>"_L1));
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

void XmlReportTest::documentAfterAFailedWalk()
{
    const QTemporaryDir folder;
    CReportBuilderXML builder;
    CExportDirectorReport director;
    UUTTest broken(1, QString());
    broken.AssignResultSet(new TestResultSet(nullptr, nullptr));
    QVERIFY(builder.OpenFile(folder.filePath(u"broken"_s)));
    QVERIFY(!director.ExportUUTTest(&broken, &builder));

    const auto good = SampleModels::PassedUnit();
    CReportBuilderXML fresh;
    QVERIFY(fresh.OpenFile(folder.filePath(u"fresh"_s)) && director.ExportUUTTest(good.data(), &fresh));
    QVERIFY(builder.OpenFile(folder.filePath(u"next"_s)) && director.ExportUUTTest(good.data(), &builder));
    QVERIFY(builder.OutputComplete());
    QCOMPARE(FileContent(folder.filePath(u"next"_s)), FileContent(folder.filePath(u"fresh"_s)));
}

void XmlReportTest::documentWithoutADevice()
{
    CReportBuilderXML builder;
    QVERIFY(!builder.Open());
    QVERIFY(!builder.IsOpened());
}

void XmlReportTest::outputComplete()
{
    const auto sample = SampleModels::PassedUnit();
    CExportDirectorReport director;
    BreakingDevice enough(1 << 20);
    enough.open(QIODevice::WriteOnly);
    CReportBuilderXML good;
    good.SetDevice(&enough);
    QVERIFY(director.ExportUUTTest(sample.data(), &good) && good.OutputComplete());

    for (const int writes : {0, 1, 500}) {
        BreakingDevice device(writes);
        device.open(QIODevice::WriteOnly);
        CReportBuilderXML builder;
        builder.SetDevice(&device);
        QVERIFY(director.ExportUUTTest(sample.data(), &builder));
        QVERIFY(!builder.OutputComplete());
        QVERIFY(enough.written.startsWith(device.written));

        // The next document owes nothing to the one that was lost.
        QBuffer next;
        builder.SetDevice(&next);
        QVERIFY(director.ExportUUTTest(sample.data(), &builder) && builder.OutputComplete());
        QCOMPARE(next.data(), enough.written);
    }
}

QTEST_GUILESS_MAIN(XmlReportTest)
#include "XmlReportTest.moc"
