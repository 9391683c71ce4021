#include "ToolFolder.h"
#include "stdf/LotFiles.h"
#include "support/Test.h"

#include <sys/resource.h>

using namespace ZYN;

/// STDF lot files by the command line.
class StdfToolTest : public QObject {
    Q_OBJECT

private:
    ToolFolder folder;

    LotFiles::Contents Lot(const QString& name) const { return LotFiles::Read(folder.Path(name)); }

private slots:
    void initTestCase() { QCOMPARE(folder.Zyn("simulate -q -d lot --panels 6 --items 2").code, 0); }

    void PartsStandInInputOrder()
    {
        const auto first = folder.Zyn("convert lot -o lot.stdf");
        QCOMPARE(first.code, 0);
        QCOMPARE(first.errors, QByteArray("lot.stdf holds 12 parts\n"));
        const auto contents = Lot("lot.stdf");
        QVERIFY(contents.findings.isEmpty());
        QStringList sorted = contents.PartIds();
        sorted.sort();
        QCOMPARE(contents.PartIds(), sorted);

        QCOMPARE(folder.Zyn("convert lot -o lot.stdf").errors, QByteArray("lot.stdf holds 24 parts\n"));
        QCOMPARE(folder.Zyn("check lot.stdf").code, 0);
    }

    void TwoProcessesLoseNothing()
    {
        QProcess one;
        QProcess two;
        for (QProcess* process : {&one, &two}) {
            process->setWorkingDirectory(folder.Path("."));
            process->start(ZYN_TOOL, {"convert", "lot", "-o", "both.stdf"});
        }
        QVERIFY(one.waitForFinished(120000) && two.waitForFinished(120000));
        QCOMPARE(one.exitCode() + two.exitCode(), 0);
        QCOMPARE(Lot("both.stdf").PartIds().size(), 24);
        QVERIFY(Lot("both.stdf").findings.isEmpty());
    }

    void ReportOfAnotherLotIsNamed()
    {
        QByteArray report = folder.Content("lot/panel-0001.zyr");
        report.replace(Lot("lot.stdf").Of("MIR")[0].Text("LOT_ID").toUtf8(), "X2");
        folder.Write("other.zyr", report);
        const QByteArray before = folder.Content("lot.stdf");
        const auto outcome = folder.Zyn("convert other.zyr -o lot.stdf");
        QCOMPARE(outcome.code, 0);
        QCOMPARE(folder.Content("lot.stdf"), before);
        const QStringList files = QDir(folder.Path(".")).entryList({"lot_*_failure.stdf"});
        QCOMPARE(files.size(), 1);
        QVERIFY2(outcome.errors.contains(files[0].toUtf8()), outcome.errors);
        QVERIFY(Lot(files[0]).findings.isEmpty());

        // Tested again, and under the same ident in a third lot: no part takes the place of another.
        folder.Write("third.zyr", QByteArray(report).replace("\"LotNumber\">X2", "\"LotNumber\">X3"));
        QCOMPARE(folder.Zyn("convert other.zyr third.zyr other.zyr third.zyr third.zyr -o lot.stdf").code, 0);
        QCOMPARE(folder.Content("lot.stdf"), before);
        QStringList lots;
        for (const QString& file : QDir(folder.Path(".")).entryList({"lot_*_failure*.stdf"}))
            lots +=
                Lot(file).Of("MIR")[0].Text("LOT_ID") + u' ' + QString::number(Lot(file).PartIds().size());
        QCOMPARE(lots.join(", "), "X2 4, X3 6");
    }

    void LinkToAMissingFileIsFollowed()
    {
        QVERIFY(QFile::link("far.stdf", folder.Path("link.stdf")));
        QCOMPARE(folder.Zyn("convert lot/panel-0001.zyr -o link.stdf").code, 0);
        QCOMPARE(Lot("far.stdf").PartIds().size(), 2);
    }

    void CompressedLotsOfAFolderAreFound()
    {
        folder.Write("packed/a.std.gz", Program::Run("gzip", {"-n"}, {}, folder.Content("lot.stdf")).output);
        const auto outcome = folder.Zyn("check -v packed");
        QVERIFY2(outcome.code == 0 && outcome.errors.contains("a.std.gz: good"), outcome.errors);
    }

    void LotIsPutBackWhenThereIsNoRoom()
    {
        for (const QString name : {"lot.stdf", "new.stdf"}) {
            const bool exists = QFile::exists(folder.Path(name));
            const QByteArray before = folder.Content(name);
            // A file size limit a little above what is there acts like a full disk.
            const auto outcome = folder.Zyn("convert lot/panel-0001.zyr -o " + name, {}, [&before] {
                const rlimit limit{rlim_t(before.size() + 1024), rlim_t(before.size() + 1024)};
                setrlimit(RLIMIT_FSIZE, &limit);
            });
            QCOMPARE(outcome.code, 1);
            QVERIFY2(outcome.errors.contains("the lot is as it was"), outcome.errors);
            QCOMPARE(folder.Content(name), before);
            QCOMPARE(QFile::exists(folder.Path(name)), exists);
        }
    }

    void BrokenReportsAreLeftOut()
    {
        folder.Write("lot/panel-0003.zyr", folder.Content("lot/panel-0003.zyr").first(20000));
        const auto outcome = folder.Zyn("convert lot -o part.stdf");
        QCOMPARE(outcome.code, 1);
        QVERIFY2(outcome.errors.contains("panel-0003.zyr"), outcome.errors);
        QVERIFY2(outcome.errors.contains("part.stdf holds 10 parts\n"), outcome.errors);
    }

    void ShowAndCheckTellOfDamage()
    {
        folder.Write("torn.stdf", folder.Content("lot.stdf").first(5000));
        const auto check = folder.Zyn("check torn.stdf");
        QCOMPARE(check.code, 1);
        QVERIFY2(check.output.startsWith("torn.stdf:offset "), check.output);
        const auto show = folder.Zyn("show torn.stdf");
        QCOMPARE(show.code, 1);
        QVERIFY2(show.output.contains("Damaged at offset"), show.output);
        // A record that is cut off inside, with the rest of the file as it should be.
        folder.Write("inside.stdf", folder.Content("lot.stdf") + QByteArray::fromHex("0200011e0101"));
        for (const QString option : {"", " --json"}) {
            const auto inside = folder.Zyn("show inside.stdf" + option);
            QCOMPARE(inside.code, 1);
            QVERIFY2(inside.errors.contains("PCR: the record ends before the field PART_CNT"), inside.errors);
        }
        const QByteArrayList lines = folder.Zyn("show --json torn.stdf").output.trimmed().split('\n');
        QVERIFY(lines.first().contains("\"record\":\"FAR\""));
        QVERIFY(lines.last().contains("\"error\":"));
    }
};

QTEST_GUILESS_MAIN(StdfToolTest)
#include "StdfToolTest.moc"
