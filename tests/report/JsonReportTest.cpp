#include "support/ReportRun.h"
#include "support/Test.h"

#include "export/CExportDirectorReport.h"
#include "report/CReportBuilderJSON.h"

#include <ZYNCommon/ProductType.h>
#include <ZYNCommon/TestProgram.h>
#include <ZYNCommon/TestResult.h>
#include <ZYNCommon/TestResultSet.h>

using namespace ZYN;

namespace {

QByteArray Report(const QString& caseName)
{
    return ExportSample("JSON", *SampleModels::MakeReportCase(caseName)).content;
}

/// A builder's output after one more export.
QJsonObject Exported(CReportBuilderJSON& builder, UUTTest* test)
{
    QBuffer buffer;
    builder.SetDevice(&buffer);
    CExportDirectorReport().ExportUUTTest(test, &builder);
    builder.SetDevice(nullptr);
    return QJsonDocument::fromJson(buffer.data())["UUTTest"].toObject();
}

} // namespace

class JsonReportTest : public QObject {
    Q_OBJECT

private:
    QTemporaryDir folder;

    /// What another reader has against a report; empty when it is strict JSON that the schema allows.
    QByteArray Faults(const QByteArray& report) const
    {
        const auto check =
            Program::Run("/usr/bin/python3", {ZYN_SOURCE_DIR "/tests/report/check_json.py",
                                              ZYN_SOURCE_DIR "/schema/report.schema.json",
                                              Files::Write(folder.filePath("report.json"), report)});
        return check.code == 0 ? QByteArray() : check.errors + '!';
    }

private slots:
    void Schema()
    {
        for (const QString& name : SampleModels::ReportCaseNames())
            QCOMPARE(Faults(Report(name)), QByteArray());
    }

    void SchemaRefuses_data()
    {
        const Rows<QByteArray, QByteArray> row;
        row("no information", "\"Information\"", "\"Informations\"");
        row("no programs", "\"Programs\"", "\"Program\"");
        row("unknown header item", "{\"UUTTest\":{\"DateTime\"",
            "{\"Something\":1,\"UUTTest\":{\"DateTime\"");
        row("unit without ident", "\"Ident\":\"MC40;SN000123\",", "");
        row("panel index as text", "\"PanelIndex\":0", "\"PanelIndex\":\"0\"");
        row("program without header", "\"\":{", "\"x\":{");
        row("group without steps", "\"Steps\"", "\"Step\"");
        row("code as text", "\"Code\":1", "\"Code\":\"1\"");
        row("id out of range", "\"ID\":111", "\"ID\":4294967296");
        row("value without unit", "\"Unit\":\"\",", "");
    }
    void SchemaRefuses()
    {
        const auto [before, after] = CurrentRow<QByteArray, QByteArray>();
        const QByteArray report =
            QJsonDocument::fromJson(Report("passed-unit")).toJson(QJsonDocument::Compact);
        QCOMPARE(Faults(report), QByteArray());
        QVERIFY2(report.contains(before), report);
        QVERIFY(!Faults(QByteArray(report).replace(before, after)).isEmpty());
    }

    void LaidOutAsQtDoes()
    {
        CReportBuilderJSON builder;
        QBuffer buffer;
        builder.SetDevice(&buffer);
        QVERIFY(builder.Open());
        // Looks like structure, ends with an escape, is longer than what is buffered.
        for (const QString& text : {QString("],\"Values\":[{:"), QString("\\"), QString(1 << 17, '"')}) {
            ProductType product(1, text);
            QVERIFY(builder.BeginProductType(&product));
        }
        // Items without anything in them.
        const auto program = QSharedPointer<TestProgram>::create(1, "", 0UL);
        TestResult result(program);
        QVERIFY(builder.BeginSubUnitTest() && builder.EndSubUnitTest());
        QVERIFY(builder.BeginTestProgram(program.data(), &result) && builder.EndTestProgram(program.data()));
        QVERIFY(builder.EndSubUnitTest() && builder.Close() && builder.OutputComplete());

        const auto document = QJsonDocument::fromJson(buffer.data());
        QCOMPARE(buffer.data(), document.toJson());
        QCOMPARE(document["UUTTest"]["Information"].toArray().size(), 3);
        const QJsonArray items = document["UUTTest"]["PanelItems"].toArray();
        QCOMPARE(items.first().toObject(), QJsonObject());
        QCOMPARE(items.last()["Groups"], QJsonArray());
    }

    void SecondReportRepeatsTheFirst()
    {
        CReportBuilderJSON builder;
        const auto unit = SampleModels::PassedUnit();
        const QJsonObject first = Exported(builder, unit.get());
        const QJsonObject second = Exported(builder, unit.get());
        QVERIFY(!first["Programs"].toArray().isEmpty());
        for (const char* key : {"Information", "Programs"})
            QCOMPARE(second[key].toArray().size(), 2 * first[key].toArray().size());
        QVERIFY(builder.OutputComplete());
    }

    void FailedWalkLeavesNoPanelBehind()
    {
        CReportBuilderJSON builder;
        const auto panel = SampleModels::Panel();
        // No program: the walk ends here.
        panel->GetUUTTests().last()->AssignResultSet(new TestResultSet(nullptr, nullptr));
        Exported(builder, panel.get());
        QVERIFY(!builder.OutputComplete());
        QVERIFY(builder.OpenFile(folder.filePath("next.json")));
        QVERIFY(CExportDirectorReport().ExportUUTTest(SampleModels::BareUnit().get(), &builder));
        const auto next = QJsonDocument::fromJson(Files::Content(folder.filePath("next.json")));
        QVERIFY(next["UUTTest"].isObject());
        QVERIFY(next["UUTTest"]["PanelItems"].isUndefined());
    }
};

QTEST_GUILESS_MAIN(JsonReportTest)
#include "JsonReportTest.moc"
