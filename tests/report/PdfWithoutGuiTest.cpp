#include "support/SampleModels.h"
#include "support/Test.h"

#include <ZYNPersistence/CExportServiceReport.h>

using namespace ZYN;

/// Fonts need a `QGuiApplication`; Qt would end the process without one.
class PdfWithoutGuiTest : public QObject {
    Q_OBJECT
private slots:
    void SaysSoAndMakesNoFile()
    {
        QTemporaryDir folder;
        const QString path = folder.filePath(QStringLiteral("report.pdf"));
        CExportServiceReport service;
        service.SetFormat(QStringLiteral("PDF"));
        service.SetOutputFileName(path);
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral("needs a QGuiApplication")));
        QVERIFY(service.Export(SampleModels::BareUnit().get()));
        QVERIFY(!service.OutputComplete());
        QVERIFY(service.GetOutputError().contains("needs a QGuiApplication"));
        QVERIFY(!QFile::exists(path));
    }
};

QTEST_GUILESS_MAIN(PdfWithoutGuiTest)
#include "PdfWithoutGuiTest.moc"
