#include "support/Test.h"
#include "SamplePlan.h"
#include "support/Golden.h"
#include "support/Model.h"

#include "testplan/CTestPlanReaderXML.h"

#include <ZYNPersistence/CExportServiceTestPlan.h>
#include <ZYNPersistence/CReadServiceTestPlan.h>

using namespace ZYN;

namespace {

QByteArray Plan(const QByteArray& content, const QByteArray& version = "3.0.0")
{
    return "<TestPlan Version=\"" + version + "\">" + content + "</TestPlan>";
}

} // namespace

class TestPlanReaderTest : public QObject {
    Q_OBJECT

private slots:
    // Integer and real attributes keep their types; everything else comes back as text: booleans and unknown
    // types of attributes, all of a validation, both switches. Unit and type of a validation do not come
    // back.
    void WhatComesBackAsWhat()
    {
        const QString fileName = folder.filePath("board.tpl");
        CExportServiceTestPlan service(false);
        service.SetOutputFileName(fileName);
        QVERIFY(service.Export(SamplePlan::Program().get()));
        const std::unique_ptr<TestPlan> plan(CReadServiceTestPlan().ReadTestPlan(fileName));
        QVERIFY(plan);
        QCOMPARE(plan->GetFileInfo().fileName(), "board.tpl");
        QCOMPARE(Golden::Difference("test-plan", "board-read-back.txt", SamplePlan::Describe(*plan).toUtf8()),
                 QString());
    }

    void Content_data()
    {
        const Rows<QByteArray, QString> row;
        row("root without content", "<TestPlan Version='3.0.0'/>", "");
        row("version 2 by the same rules",
            Plan("<Properties Ident='7'><Property Name='X'>true</Property></Properties>", "2.0.0"),
            "Properties 7\n  X: QString 'true'\n");
        row("integers",
            Plan("<Attributes Ident='1'><Attribute Name='a' Type='Integer'>12ab</Attribute>"
                 "<Attribute Name='b' Type='Integer'>2147483648</Attribute>"
                 "<Attribute Name='c' Type='Integer'>-5</Attribute>"
                 "<Attribute Name='d' Type='Integer'/></Attributes>"),
            "Attributes 1\n  a: int '0'\n  b: int '0'\n  c: int '-5'\n  d: int '0'\n");
        row("reals",
            Plan("<Attributes Ident='1'><Attribute Name='a' Type='Real'>1,5</Attribute>"
                 "<Attribute Name='b' Type='Real'>1.5e3</Attribute>"
                 "<Attribute Name='c' Type='Real'>x</Attribute></Attributes>"),
            "Attributes 1\n  a: double '0'\n  b: double '1500'\n  c: double '0'\n");
        row("other types are texts",
            Plan("<Attributes Ident='1'><Attribute Name='a' Type='integer'>1</Attribute>"
                 "<Attribute Name='b'>2</Attribute><Attribute Name='c' "
                 "Type='Category'>3</Attribute></Attributes>"),
            "Attributes 1\n  a: QString '1'\n  b: QString '2'\n  c: QString '3'\n");
        row("empty sets",
            Plan("<Attributes Ident='1'/><Properties Ident='1'/><Validation Ident='1' Name='n'/>"),
            "Validation 1\n  Name: QString 'n'\nAttributes 1\nProperties 1\n");
        row("unknown elements are skipped with their content",
            Plan("<Extra><Properties Ident='9'/></Extra>"
                 "<Properties Ident='1'><Comment><Property Name='x'>1</Property></Comment>"
                 "<Property Name='y'>2</Property></Properties>"
                 "<Attributes Ident='1'><Property Name='x'>1</Property><Category Name='c'><b>text</b>"
                 "<Attribute Name='z' Type='Integer'>3</Attribute></Category></Attributes>"
                 "<Validation Ident='1'><Attribute Name='x'/></Validation>"),
            "Validation 1\n  Name: QString ''\nAttributes 1\n  c/\n    z: int '3'\nProperties 1\n"
            "  y: QString '2'\n");
        row("text, CDATA, references and comments",
            Plan("<Properties Ident='&lt;&#x3a9;'><Property Name='&amp;'>a<![CDATA[<b>]]>&gt;<!-- x -->c"
                 "</Property></Properties>"),
            "Properties <Ω\n  &: QString 'a<b>>c'\n");
        row("a document type without entities", "<!DOCTYPE TestPlan [<!ELEMENT a ANY>]>" + Plan(""), "");
    }
    void Content()
    {
        const auto [document, plan] = CurrentRow<QByteArray, QString>();
        QString errorText;
        const std::unique_ptr<TestPlan> read(
            CReadServiceTestPlan().ReadTestPlan(Write(document), &errorText));
        QVERIFY2(read, qPrintable(errorText));
        QVERIFY(errorText.isEmpty());
        QCOMPARE(SamplePlan::Describe(*read), plan);
    }

    void Refused_data()
    {
        const Rows<QByteArray, QString> row;
        const char* const otherRoot = "The file is not an TestPlan file\tLine 1, column ";
        const char* const otherVersion =
            "Only TestPlan file versions 2.0.0 and 3.0.0 are supported\tLine 1, column ";

        row("empty", "", "Premature end of document.\tLine 1, column 0");
        row("other root", "<Testplan Version='3.0.0'/>", otherRoot);
        row("no version", "<TestPlan/>", otherVersion);
        row("short version", Plan("", "3.0"), otherVersion);
        row("cut off", "<TestPlan Version='3.0.0'>\n<Properties Ident='1'>\n",
            "Premature end of document.\tLine 3, column 0");
        row("wrong end deep in a category",
            Plan("\n<Attributes Ident='1'><Category Name='a'><Category Name='b'>\n</Attributes>"),
            "Opening and ending tag mismatch.\tLine 3, column 13");
        row("element in an attribute",
            Plan("<Attributes Ident='1'><Attribute Name='a' Type='Integer'>1<b/></Attribute></Attributes>"),
            "Expected character data.\tLine 1, column ");
        row("undeclared entity", Plan("<Properties Ident='1'><Property Name='a'>&x;</Property></Properties>"),
            "Entity 'x' not declared.\tLine 1, column ");
        const char* const entities = "Documents that declare entities are not supported\tLine 1, column ";
        row("entity", "<!DOCTYPE TestPlan [<!ENTITY x 'y'>]>" + Plan(""), entities);
        row("parameter entity that is used",
            "<!DOCTYPE TestPlan [<!ENTITY % x '<!ELEMENT a ANY>'>%x;]>" + Plan(""),
            "Entity expands to more characters than the entity expansion limit.");
        row("parameter entity", "<!DOCTYPE TestPlan [<!ENTITY % x '<!ELEMENT a ANY>'>]>" + Plan(""),
            entities);
        QByteArray crowd;
        for (int i = 0; i < 65; ++i)
            crowd += " a" + QByteArray::number(i) + "='x'";
        row("start tag with many attributes", Plan("\n<Properties Ident='1'" + crowd + "/>"),
            "The start tag in line 2 has more than 64 attributes\tLine 1, column ");
    }
    void Refused()
    {
        const auto [document, errorText] = CurrentRow<QByteArray, QString>();
        QString text;
        const std::unique_ptr<TestPlan> plan(CReadServiceTestPlan().ReadTestPlan(Write(document), &text));
        QVERIFY(!plan);
        QVERIFY2(text.startsWith(errorText), qPrintable(text));
        static const QRegularExpression position("\\tLine \\d+, column \\d+$");
        QVERIFY2(text.contains(position), qPrintable(text));
    }

    void CannotBeOpened()
    {
        const QString missing = folder.filePath("missing %1.tpl");
        QString text;
        QVERIFY(!CReadServiceTestPlan().ReadTestPlan(missing, &text));
        QCOMPARE(text, QString("Could not open file: %1 (No such file or directory)").arg(missing));
        QVERIFY(!CReadServiceTestPlan().ReadTestPlan(missing));

        CTestPlanReaderXML reader;
        QVERIFY2(!reader.Read(), "nothing is open");
        QVERIFY(!reader.Open(folder.path()));
        QVERIFY(!reader.IsOpened());
        QVERIFY(!reader.Read());
        QVERIFY(!reader.TakeTestPlan());
    }

private:
    QString Write(const QByteArray& content) { return Files::Write(folder.filePath("in.tpl"), content); }

    QTemporaryDir folder;
};

QTEST_APPLESS_MAIN(TestPlanReaderTest)
#include "TestPlanReaderTest.moc"
