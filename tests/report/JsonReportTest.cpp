#include "support/ReportRun.h"
#include "support/Test.h"

#include "export/CExportDirectorReport.h"
#include "report/CReportBuilderJSON.h"

#include <ZYNCommon/TestResultSet.h>

using namespace ZYN;

namespace {

QByteArray Report(const QString& caseName)
{
    return ExportSample("JSON", *SampleModels::MakeReportCase(caseName)).content;
}

/// Replaces the value at a path of keys and indexes; an undefined value removes it.
QJsonValue Changed(const QJsonValue& tree, const QStringList& path, const QJsonValue& value)
{
    if (path.isEmpty())
        return value;
    const QString& key = path.first();
    if (tree.isArray()) {
        QJsonArray array = tree.toArray();
        array[key.toInt()] = Changed(array[key.toInt()], path.mid(1), value);
        return array;
    }
    QJsonObject object = tree.toObject();
    object[key] = Changed(object[key], path.mid(1), value);
    return object;
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
    void schema()
    {
        for (const QString& name : SampleModels::ReportCaseNames())
            QCOMPARE(Faults(Report(name)), QByteArray());
    }

    void schemaRefuses_data()
    {
        const QJsonValue removed(QJsonValue::Undefined);
        const Rows<QString, QJsonValue> row;
        row("no information", "UUTTest/Information", removed);
        row("no programs", "UUTTest/Programs", removed);
        row("unknown header item", "UUTTest/Information/0/Something", 1);
        row("unit without ident", "UUTTest/Information/1/UnitUnderTest/Ident", removed);
        row("panel index as text", "UUTTest/Information/1/UnitUnderTest/PanelIndex", "1");
        row("program without header", "UUTTest/Programs/0/", removed);
        row("group without steps", "UUTTest/Programs/0/Groups/0/Steps", removed);
        row("code as text", "UUTTest/Programs/0/Groups/0/Result/Code", "1");
        row("id out of range", "UUTTest/Programs/0/Groups/0/TestGroup/ID", 4294967296.0);
        row("value without unit", "UUTTest/Programs/0/Groups/0/Result/Value", 1.5);
    }
    void schemaRefuses()
    {
        const auto [path, value] = CurrentRow<QString, QJsonValue>();
        const QJsonObject tree = QJsonDocument::fromJson(Report("passed-unit")).object();
        const QJsonObject damaged = Changed(tree, path.split('/'), value).toObject();
        QVERIFY(damaged != tree);
        QVERIFY(!Faults(QJsonDocument(damaged).toJson()).isEmpty());
    }

    void secondReportRepeatsTheFirst()
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

    void failedWalkLeavesNoPanelBehind()
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
