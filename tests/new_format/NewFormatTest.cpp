#include "support/SampleModels.h"
#include "support/Test.h"

#include <ZYNPersistence/CExportServiceReport.h>

using namespace ZYN;

/// A format that was added as docs/adding-a-format.md says: a source pair, an include and a row of the table.
class NewFormatTest : public QObject {
    Q_OBJECT

private slots:
    void Lookups()
    {
        QCOMPARE(CExportServiceReport::ExtensionForFormat(" failures "), "fails");
        QCOMPARE(CExportServiceReport::FormatForExtension("out/panel.fails"), "FAILURES");
        QVERIFY(CExportServiceReport::ValidFormat("Failures"));
        QCOMPARE(CExportServiceReport::FormatForExtension("panel.csv"), "CSV");
    }

    void Report()
    {
        const QTemporaryDir folder;
        const QString name = folder.filePath("panel.fails");
        CExportServiceReport service;
        QVERIFY(service.SetFormat("FAILURES"));
        service.SetOutputFileName(name);
        QVERIFY(service.Export(SampleModels::Panel().data()));
        QVERIFY(service.OutputComplete());
        QFile file(name);
        QVERIFY(file.open(QIODevice::ReadOnly));
        QCOMPARE(file.readAll(), QByteArray("1\t5V rail\t4.5\tV\n2\t3V3 rail\t\tV\n"));
    }
};

QTEST_GUILESS_MAIN(NewFormatTest)
#include "NewFormatTest.moc"
