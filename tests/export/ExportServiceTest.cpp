#include "export/CExportBuilderImp.h"
#include "export/CExportServicePrivate.h"

#include <ZYNPersistence/CExportServiceReport.h>

#include <ZYNCommon/UUTTest.h>

#include <QtCore/QTemporaryDir>
#include <QtTest/QtTest>

#include <new>
#include <stdexcept>

using namespace ZYN;
using namespace Qt::StringLiterals;

namespace {

class EmptyDocumentBuilder : public CExportBuilderImp {
public:
    bool Open() override
    {
        SetOpened(true);
        return true;
    }
    bool Close() override
    {
        CheckOutput();
        SetDevice(nullptr);
        SetOpened(false);
        return true;
    }
};

} // namespace

class ExportServiceTest : public QObject {
    Q_OBJECT

private slots:
    void StartFailures_data();
    void StartFailures();
    void NullModel();
    void DefaultLogo_data();
    void DefaultLogo();
    void SettingsStayUntilTheNextFormat();
    void OutputCompleteFollowsTheLastRun();
    void ExceptionsStayInside();

private:
    /// Exports a bare unit, with a fresh builder unless the format is null.
    QString ExportedText(CExportServiceReport& service, const QString& format) const
    {
        UUTTest test(1, u"unit"_s);
        QFile report(Path(u"report"_s));
        service.SetOutputFileName(report.fileName());
        if (!format.isNull())
            service.SetFormat(format);
        if (!service.Export(&test) || !service.OutputComplete() || !report.open(QIODevice::ReadOnly))
            return u"no report"_s;
        return QString::fromUtf8(report.readAll());
    }
    QString Path(const QString& name) const { return folder.filePath(name); }
    QTemporaryDir folder;
};

void ExportServiceTest::StartFailures_data()
{
    QTest::addColumn<QString>("format");
    QTest::addColumn<QString>("fileName");
    QTest::addColumn<QString>("errorText");

    const QString missing = Path(u"missing/report.xml"_s);
    const QString percent = Path(u"100%1 %2/report.xml"_s);
    QTest::newRow("nothing set") << QString(u"none"_s) << QString() << u"No valid format provided."_s;
    QTest::newRow("no file name") << u"XML"_s << QString() << u"No filename provided."_s;
    QTest::newRow("missing folder") << u"XML"_s << missing << u"Could not create file: "_s + missing;
    QTest::newRow("placeholders in the name")
        << u"XML"_s << percent << u"Could not create file: "_s + percent;
}

void ExportServiceTest::StartFailures()
{
    QFETCH(QString, format);
    QFETCH(QString, fileName);
    QFETCH(QString, errorText);
    CExportServiceReport service;
    service.SetFormat(format);
    service.SetOutputFileName(fileName);

    QVERIFY(!service.Export(static_cast<UUTTest*>(nullptr)));
    QCOMPARE(service.GetErrorText(), errorText);
    QVERIFY(!service.OutputComplete());
}

void ExportServiceTest::NullModel()
{
    const QString fileName = Path(u"old.xml"_s);
    QFile old(fileName);
    QVERIFY(old.open(QIODevice::WriteOnly) && old.write("old report") > 0);
    old.close();

    CExportServiceReport service;
    QVERIFY(service.SetFormat(u"XML"_s));
    service.SetOutputFileName(fileName);
    QVERIFY(!service.Export(static_cast<UUTTest*>(nullptr)));
    QCOMPARE(service.GetErrorText(), QString());
    QVERIFY(!service.OutputComplete());
    // The file was opened before the walk found nothing to do.
    QCOMPARE(QFileInfo(fileName).size(), 0);
}

void ExportServiceTest::DefaultLogo_data()
{
    QTest::addColumn<QStringList>("files");
    QTest::addColumn<QString>("logo");

    QTest::newRow("no folder") << QStringList() << QString();
    QTest::newRow("png") << QStringList(u"ReportLogo.png"_s) << u"ReportLogo.png"_s;
    QTest::newRow("the JPEG of both")
        << QStringList{u"ReportLogo.png"_s, u"ReportLogo.jpg"_s} << u"ReportLogo.jpg"_s;
}

void ExportServiceTest::DefaultLogo()
{
    QFETCH(QStringList, files);
    QFETCH(QString, logo);
    const QString media = u"media of "_s + QString::fromLatin1(QTest::currentDataTag());
    for (const QString& name : files) {
        QDir(folder.path()).mkdir(media);
        QVERIFY(QFile(Path(media + u'/' + name)).open(QIODevice::WriteOnly));
    }
    qputenv("ZYN_MEDIA_DIR", Path(media).toLocal8Bit());
    CExportServiceReport service;
    qunsetenv("ZYN_MEDIA_DIR");

    // The report names the logo as it is found from the report's folder.
    const QString report = ExportedText(service, u"HTML"_s);
    QCOMPARE(report.contains(u"<img"), !logo.isEmpty());
    QVERIFY(report.contains(logo.isEmpty() ? QString() : u"src=\"%1/%2\""_s.arg(media, logo)));
}

void ExportServiceTest::SettingsStayUntilTheNextFormat()
{
    CExportServiceReport service;
    service.SetReportLogoImage(Path(u"first.png"_s));
    QVERIFY(ExportedText(service, u"HTML"_s).contains(u"\"first.png\""));
    service.SetReportLogoImage(Path(u"second.png"_s));
    QVERIFY(ExportedText(service, {}).contains(u"\"first.png\""));
    QVERIFY(ExportedText(service, u"HTML"_s).contains(u"\"second.png\""));

    QVERIFY(!ExportedText(service, u"XML"_s).contains(u"xml-stylesheet"));
    service.SetXMLStyle(Path(u"style.xsl"_s));
    QVERIFY(ExportedText(service, {}).contains(u"style.xsl"));
}

void ExportServiceTest::OutputCompleteFollowsTheLastRun()
{
    CExportServicePrivate service;
    QVERIFY(service.SetBuilder([] { return new EmptyDocumentBuilder; }));
    QVERIFY(!service.Run([] { return true; }));
    QVERIFY(!service.errorText.isEmpty());
    const auto document = [&] { return service.builder->Open() && service.builder->Close(); };
    service.fileName = Path(u"document"_s);

    QVERIFY(service.Run(document));
    QCOMPARE(service.errorText, QString());
    // It tells about the last export, whatever is chosen for the next one.
    QVERIFY(service.SetBuilder([] { return new EmptyDocumentBuilder; }));
    QVERIFY(service.OutputComplete());

    QVERIFY(!service.Run([&] { return service.builder->Open() && false; }));
    QVERIFY(!service.OutputComplete());
    QVERIFY(service.Run(document));
    QVERIFY(service.OutputComplete());

    service.fileName = Path(u"missing/document"_s);
    QVERIFY(!service.Run(document));
    QVERIFY(!service.OutputComplete());
}

void ExportServiceTest::ExceptionsStayInside()
{
    CExportServicePrivate service;
    QVERIFY(service.SetBuilder([] { return new EmptyDocumentBuilder; }));
    service.fileName = Path(u"broken"_s);

    QVERIFY(!service.Run([]() -> bool { throw std::bad_alloc(); }));
    QCOMPARE(service.errorText, u"Not enough memory for the export."_s);
    QVERIFY(!service.OutputComplete());

    QVERIFY(!service.Run([&]() -> bool {
        service.builder->Open();
        service.builder->Close();
        throw std::runtime_error("site model");
    }));
    QCOMPARE(service.errorText, u"The export failed inside the test data."_s);
    QVERIFY(!service.OutputComplete());
    QVERIFY(!service.SetBuilder([]() -> IExportBuilder* { throw std::bad_alloc(); }));
    QVERIFY(!service.builder);
}

QTEST_GUILESS_MAIN(ExportServiceTest)
#include "ExportServiceTest.moc"
