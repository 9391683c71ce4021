#include "RunText.h"
#include "support/Golden.h"
#include "support/Test.h"

#include "runs/ReportRuns.h"

using namespace ZYN;

namespace {

QByteArray Report(const QString& name)
{
    return Files::Content(Golden::Folder() + u'/' + name + "/report.zyr");
}

/// The runs of a report, or what is wrong with it: "line:column: text".
QString Reading(ReportRuns& reader, const QByteArray& report, std::vector<Run>* runs)
{
    const std::size_t before = runs->size();
    const std::optional<RunFault> fault = reader.Read(report.toStdString(), "report", runs);
    if (!fault)
        return RunText(std::span(*runs).subspan(before));
    return QStringLiteral("%1:%2: %3").arg(fault->line).arg(fault->column).arg(fault->text.c_str());
}

} // namespace

class ReportRunsTest : public QObject {
    Q_OBJECT
private slots:
    void Samples_data()
    {
        QTest::addColumn<QString>("name");
        for (const QString& name : Golden::Rows({}, QStringLiteral("runs.txt")))
            QTest::newRow(qPrintable(name)) << name;
    }
    void Samples()
    {
        QFETCH(QString, name);
        ReportRuns reader;
        std::vector<Run> runs;
        const QString text = Reading(reader, Report(name), &runs);
        const QString difference = Golden::Difference(name, QStringLiteral("runs.txt"), text.toUtf8());
        QVERIFY2(difference.isEmpty(), qPrintable(difference));
    }
};

QTEST_GUILESS_MAIN(ReportRunsTest)
#include "ReportRunsTest.moc"
