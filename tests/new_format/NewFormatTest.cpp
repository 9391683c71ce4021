#include "CReportBuilderFailures.h"

#include "support/SampleModels.h"
#include "support/Test.h"

#include "export/CExportDirectorReport.h"

using namespace ZYN;

/// The format of docs/adding-a-format.md.
class NewFormatTest : public QObject {
    Q_OBJECT

private slots:
    void Report()
    {
        const QTemporaryDir folder;
        const QString name = folder.filePath("panel.fails");
        CReportBuilderFailures builder;
        QVERIFY(builder.OpenFile(name));
        QVERIFY(CExportDirectorReport().ExportUUTTest(SampleModels::Panel().data(), &builder));
        QVERIFY(builder.OutputComplete());
        QCOMPARE(Files::Content(name), "1\t5V rail\t4.5\tV\n2\t3V3 rail\t\tV\n");
    }
};

QTEST_GUILESS_MAIN(NewFormatTest)
#include "NewFormatTest.moc"
