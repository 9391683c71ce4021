#include "support/Golden.h"
#include "support/ReportRun.h"

#include <QtCore/QDir>
#include <QtCore/QLocale>
#include <QtTest/QtTest>

#include <clocale>

using namespace ZYN;
using namespace Qt::StringLiterals;

/// Every text format against its expected files; under ctest also in other locales.
class ReportGoldenTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void RunsInItsLocale();
    void Report_data();
    void Report();
    void EveryExpectationHasATest();
};

namespace {

/// Formats whose reports are compared byte for byte.
const QStringList formats{u"XML"_s, u"TXT"_s, u"CSV"_s, u"HTML"_s, u"JSON"_s};

/// Folders of expectations that are no reports; each is gone through by a test of its own.
const QStringList otherFolders{u"statistics"_s, u"test-plan"_s, u"tool"_s};

} // namespace

void ReportGoldenTest::RunsInItsLocale()
{
    const QString wanted = qEnvironmentVariable("ZYN_TEST_LOCALE");
    if (wanted.isEmpty())
        QSKIP("only in the runs of other locales");
    QVERIFY(std::setlocale(LC_ALL, ""));
    const bool decimalComma = wanted != u"C";
    QCOMPARE(QString::fromLatin1(std::localeconv()->decimal_point), decimalComma ? u","_s : u"."_s);
    QCOMPARE(QLocale().decimalPoint(), decimalComma ? u","_s : u"."_s);
    QCOMPARE(QLocale().name(), wanted);
}

void ReportGoldenTest::EveryExpectationHasATest()
{
    const QStringList folders = QDir(Golden::Folder()).entryList(QDir::Dirs | QDir::NoDotAndDotDot);
    for (const QString& folder : folders) {
        const bool known = SampleModels::ReportCaseNames().contains(folder) || otherFolders.contains(folder);
        QVERIFY2(known, qPrintable(folder + u" is no sample of a report"_s));
        QVERIFY2(!QDir(Golden::Folder() + u'/' + folder).isEmpty(), qPrintable(folder + u" is empty"_s));
    }
}

void ReportGoldenTest::Report_data()
{
    QTest::addColumn<QString>("format");
    QTest::addColumn<QString>("caseName");
    for (const QString& format : formats) {
        const QStringList rows = ReportGoldenRows(format);
        for (const QString& row : rows)
            QTest::newRow(qPrintable(format + u' ' + row)) << format << row;
    }
}

void ReportGoldenTest::Report()
{
    QFETCH(QString, format);
    QFETCH(QString, caseName);
    const QString difference = CheckReportGolden(format, caseName);
    QVERIFY2(difference.isEmpty(), qPrintable(difference));
}

QTEST_GUILESS_MAIN(ReportGoldenTest)
#include "ReportGoldenTest.moc"
