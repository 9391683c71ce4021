#include "support/ReportRun.h"
#include "support/SampleModels.h"

#include "export/CExportDirectorReport.h"
#include "report/CReportBuilderJSON.h"

#include <ZYNCommon/TestResultSet.h>

#include <QtCore/QBuffer>
#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>
#include <QtCore/QProcess>
#include <QtCore/QTemporaryDir>
#include <QtTest/QtTest>

using namespace ZYN;
using namespace Qt::StringLiterals;

class JsonReportTest : public QObject {
    Q_OBJECT
private slots:
    void schema_data();
    void schema();
    void schemaRefuses_data();
    void schemaRefuses();
    void secondReportRepeatsTheFirst();
    void failedWalkLeavesNoPanelBehind();

private:
    QString Validate(const QByteArray& report);

    QTemporaryDir m_folder;
};

namespace {

QByteArray Report(const QString& caseName)
{
    const auto sample = SampleModels::MakeReportCase(caseName);
    return sample ? ExportSample(u"JSON"_s, *sample).content : QByteArray();
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

QJsonObject Exported(CReportBuilderJSON& builder, UUTTest* test)
{
    QBuffer buffer;
    builder.SetDevice(&buffer);
    CExportDirectorReport director;
    director.ExportUUTTest(test, &builder);
    return QJsonDocument::fromJson(buffer.data())[u"UUTTest"].toObject();
}

} // namespace

QString JsonReportTest::Validate(const QByteArray& report)
{
    QFile file(m_folder.filePath(u"report.json"_s));
    if (!file.open(QIODevice::WriteOnly) || file.write(report) != report.size())
        return file.errorString();
    file.close();
    const QString source = QStringLiteral(ZYN_SOURCE_DIR);
    QProcess process;
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.start(u"/usr/bin/python3"_s, {source + u"/tests/report/check_json.py"_s,
                                          source + u"/schema/report.schema.json"_s, file.fileName()});
    if (!process.waitForFinished())
        return process.errorString();
    return process.exitCode() == 0 ? QString() : QString::fromUtf8(process.readAll()) + QLatin1Char('!');
}

void JsonReportTest::schema_data()
{
    QTest::addColumn<QString>("caseName");
    for (const QString& name : SampleModels::ReportCaseNames())
        QTest::newRow(qPrintable(name)) << name;
}

void JsonReportTest::schema()
{
    QFETCH(QString, caseName);
    const QString fault = Validate(Report(caseName));
    QVERIFY2(fault.isEmpty(), qPrintable(fault));
}

void JsonReportTest::schemaRefuses_data()
{
    const QJsonValue removed(QJsonValue::Undefined);
    const QString group = u"UUTTest/Programs/0/Groups/0"_s;
    QTest::addColumn<QString>("path");
    QTest::addColumn<QJsonValue>("value");
    QTest::newRow("no information") << "UUTTest/Information" << removed;
    QTest::newRow("no programs") << "UUTTest/Programs" << removed;
    QTest::newRow("unknown header item") << "UUTTest/Information/0/Something" << QJsonValue(1);
    QTest::newRow("unit without ident") << "UUTTest/Information/1/UnitUnderTest/Ident" << removed;
    QTest::newRow("panel index as text")
        << "UUTTest/Information/1/UnitUnderTest/PanelIndex" << QJsonValue("1");
    QTest::newRow("program without header") << "UUTTest/Programs/0/" << removed;
    QTest::newRow("group without steps") << group + "/Steps" << removed;
    QTest::newRow("code as text") << group + "/Result/Code" << QJsonValue("1");
    QTest::newRow("id out of range") << group + "/TestGroup/ID" << QJsonValue(4294967296.0);
    QTest::newRow("value without unit") << group + "/Result/Value" << QJsonValue(1.5);
}

void JsonReportTest::schemaRefuses()
{
    QFETCH(QString, path);
    QFETCH(QJsonValue, value);
    const QByteArray report = Report(SampleModels::ReportCaseNames().first());
    const QJsonObject tree = QJsonDocument::fromJson(report).object();
    const QJsonObject damaged = Changed(tree, path.split(QLatin1Char('/')), value).toObject();
    QVERIFY(damaged != tree);
    QVERIFY(!Validate(QJsonDocument(damaged).toJson()).isEmpty());
}

void JsonReportTest::secondReportRepeatsTheFirst()
{
    CReportBuilderJSON builder;
    const auto unit = SampleModels::PassedUnit();
    const QJsonObject first = Exported(builder, unit.get());
    const QJsonObject second = Exported(builder, unit.get());
    QVERIFY(!first[u"Programs"].toArray().isEmpty());
    for (const QString& key : {u"Information"_s, u"Programs"_s})
        QCOMPARE(second[key].toArray().size(), 2 * first[key].toArray().size());
    QVERIFY(builder.OutputComplete());
}

void JsonReportTest::failedWalkLeavesNoPanelBehind()
{
    CReportBuilderJSON builder;
    const auto panel = SampleModels::Panel();
    auto item = QSharedPointer<UUTTest>::create(1, QString());
    item->AssignResultSet(new TestResultSet(nullptr, nullptr)); // no program: the walk ends here
    panel->AddUUTTest(item);
    QBuffer broken;
    builder.SetDevice(&broken);
    CExportDirectorReport director;
    QVERIFY(!director.ExportUUTTest(panel.get(), &builder));
    QVERIFY(!builder.OutputComplete());

    QTemporaryDir folder;
    QVERIFY(builder.OpenFile(folder.filePath(u"next.json"_s)));
    QVERIFY(director.ExportUUTTest(SampleModels::BareUnit().get(), &builder));
    QFile file(folder.filePath(u"next.json"_s));
    QVERIFY(file.open(QIODevice::ReadOnly));
    QVERIFY(QJsonDocument::fromJson(file.readAll())[u"UUTTest"][u"PanelItems"].isUndefined());
}

QTEST_GUILESS_MAIN(JsonReportTest)
#include "JsonReportTest.moc"
