#include "support/Test.h"

#include "SampleRuns.h"
#include "archive/Archive.h"

#include <QtSql/QSqlQuery>
#include <QtSql/QSqlRecord>

using namespace ZYN;

namespace {

using Runs = std::vector<Run>;

template <class Change>
Run With(Run run, const Change& change)
{
    change(run);
    return run;
}

/// All rows of a query, "a|b|c", joined by blanks.
QString Ask(const Archive& archive, const QString& sql)
{
    QSqlQuery query(archive.GetDatabase());
    if (!query.exec(sql))
        return archive.GetErrorText();
    QStringList rows;
    while (query.next()) {
        QStringList row;
        for (int i = 0; i < query.record().count(); ++i)
            row += query.value(i).toString();
        rows += row.join('|');
    }
    return rows.join(' ');
}

QString CountsOf(const AddedRuns& counts)
{
    return QString("%1 %2 %3").arg(counts.added).arg(counts.present).arg(counts.revised);
}

const char* const runsOfUnits = "SELECT u.serial || u.ident, (r.start / 60000) % 60, r.code, r.first, "
                                "r.current FROM run r JOIN unit u ON u.id = "
                                "r.unit ORDER BY u.is_panel, u.lot, u.serial, r.start, r.id";

} // namespace

class ArchiveTest : public QObject {
    Q_OBJECT

private slots:
    void adding_data()
    {
        using SampleRuns::Of;
        // Each list is added on its own; then what it counted, and all runs: serial, minute, code, first,
        // current.
        const Rows<std::vector<Runs>, QString, QString> row;
        const auto rows = [&](const char* name, const std::vector<Runs>& adds, const char* counts,
                              const char* runs) { row(name, adds, QString(counts), QString(runs)); };
        const Run anonymous = With(Of("", 1), [](Run& run) { run.ident.clear(); });
        const Run otherLimits = With(Of("A", 1), [](Run& run) { run.limits = SampleRuns::Limits(1.0); });
        rows("a retest", {{Of("A", 1, -1), Of("A", 5)}}, "2 0 0", "A|1|-1|1|1 A|5|1|0|1");
        rows("late", {{Of("A", 5)}, {Of("A", 1, -1)}}, "1 0 0; 1 0 0", "A|1|-1|1|1 A|5|1|0|1");
        rows("a copy", {{Of("A", 1), With(Of("A", 1), [](Run& run) { run.source = "copy"; })}, {Of("A", 1)}},
             "1 1 0; 0 1 0", "A|1|1|1|1");
        rows("a revision", {{Of("A", 1, -1), Of("A", 5)}, {Of("A", 1), otherLimits}, {Of("A", 1, -1)}},
             "2 0 0; 0 0 2; 0 1 0", "A|1|-1|0|0 A|1|1|0|0 A|1|1|1|1 A|5|1|0|1");
        rows("equal serials", {{Of("A", 1), With(Of("A", 1), [](Run& run) { run.lot = "L2"; })}}, "2 0 0",
             "A|1|1|1|1 A|1|1|1|1");
        rows("without a serial", {{Of("", 1), Of("", 5)}}, "2 0 0", "DUT|1|1|1|1 DUT|5|1|0|1");
        rows("without serial and ident",
             {{anonymous, anonymous, With(anonymous, [](Run& run) { run.code = -1; })}}, "2 1 0",
             "|1|1|1|1 |1|-1|1|1");
        rows("a panel", {{Of("A", 1), With(Of("A", 1), [](Run& run) { run.isPanel = true; })}}, "2 0 0",
             "A|1|1|1|1 A|1|1|1|1");
        rows("an unreadable start comes last",
             {{With(Of("A", 1), [](Run& run) { run.start.reset(); }), Of("A", 5)}}, "2 0 0",
             "A|5|1|1|1 A|12|1|0|1");
        rows("programs",
             {{Of("A", 1), With(Of("A", 5), [](Run& run) { run.layout = SampleRuns::Layout("Final"); })}},
             "2 0 0", "A|1|1|1|1 A|5|1|1|1");
    }
    void adding()
    {
        const auto [adds, counts, runs] = CurrentRow<std::vector<Runs>, QString, QString>();
        Archive archive;
        QVERIFY2(archive.OpenTemporary(true), qPrintable(archive.GetErrorText()));
        QStringList counted;
        for (const Runs& add : adds) {
            AddedRuns added;
            QVERIFY2(archive.Add(add, &added), qPrintable(archive.GetErrorText()));
            counted += CountsOf(added);
        }
        QCOMPARE(counted.join("; "), counts);
        QCOMPARE(Ask(archive, runsOfUnits), runs);
    }

    void valuesComeBack()
    {
        Run run = SampleRuns::Of("A", 1, -1);
        run.values[6] = -0.0;
        run.texts = {{4, "\"a\\b\"\n\u00fc"}, {6, "9007199254740993"}};
        QTemporaryDir folder;
        const QString url = folder.filePath("line.zya");
        QVERIFY(Archive().Create(url));
        {
            Archive archive;
            QVERIFY(archive.Open(url, Archive::Mode::ReadWrite));
            QVERIFY2(archive.Add({&run, 1}, nullptr), qPrintable(archive.GetErrorText()));
        }
        Archive archive;
        QVERIFY(archive.Open(url, Archive::Mode::ReadOnly));
        QCOMPARE(Ask(archive, "SELECT path, unit, num, text, code, lower, upper FROM value WHERE kind = 7"),
                 QString("Supply / Core / Core voltage|V|1.05||-1|1.1|1.3 "
                         "Supply / Core / State|||\"a\\b\"\n\u00fc|1|| "
                         "Supply / I/O / I/O voltage|V|0|9007199254740993|1||"));
        QCOMPARE(
            Ask(archive, "SELECT path, num, is_first FROM failure f JOIN component c ON c.id = f.component"),
            QString("Supply / Core / Core voltage|1.05|1"));
    }
};

QTEST_MAIN(ArchiveTest)
#include "ArchiveTest.moc"
