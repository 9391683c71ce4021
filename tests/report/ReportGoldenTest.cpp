#include "support/Golden.h"
#include "support/ReportRun.h"
#include "support/Test.h"

#include <clocale>

using namespace ZYN;

/// Every format but PDF against its expected files; under ctest also in other locales.
class ReportGoldenTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void RunsInItsLocale()
    {
        const QString wanted = qEnvironmentVariable("ZYN_TEST_LOCALE");
        if (wanted.isEmpty())
            QSKIP("only in the runs of other locales");
        QVERIFY(std::setlocale(LC_ALL, ""));
        const QString point = wanted == "C" ? "." : ",";
        QCOMPARE(QString(std::localeconv()->decimal_point), point);
        QCOMPARE(QLocale().decimalPoint(), point);
        QCOMPARE(QLocale().name(), wanted);
    }

    void Report_data()
    {
        const Rows<QString, QString> row;
        for (const QString format : {"XML", "TXT", "CSV", "HTML", "JSON", "STDF"}) {
            for (const QString& name : ReportGoldenRows(format))
                row(qPrintable(format + ' ' + name), format, name);
        }
    }
    void Report()
    {
        const auto [format, caseName] = CurrentRow<QString, QString>();
        const QString difference = CheckReportGolden(format, caseName);
        QVERIFY2(difference.isEmpty(), qPrintable(difference));
    }
};

QTEST_GUILESS_MAIN(ReportGoldenTest)
#include "ReportGoldenTest.moc"
