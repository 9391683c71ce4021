#include "ToolFolder.h"
#include "stdf/LotFiles.h"
#include "support/Test.h"

#include <sys/resource.h>

using namespace ZYN;
using namespace Qt::StringLiterals;

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

        const QByteArray before = folder.Content("lot.stdf");
        QCOMPARE(folder.Zyn("convert lot lot -o lot.stdf").errors,
                 QByteArray("24 parts stand there already and are left out; --again adds them all the same\n"
                            "lot.stdf holds 12 parts\n"));
        QCOMPARE(folder.Content("lot.stdf"), before);
        QCOMPARE(folder.Zyn("convert lot -o lot.stdf --again").errors,
                 QByteArray("lot.stdf holds 24 parts\n"));
        QCOMPARE(folder.Zyn("check lot.stdf").code, 0);
    }

    // One board of a panel was converted before: the other is added, and the counts are right.
    void PartOfAPanelIsAdded()
    {
        static const QRegularExpression item("<SubUnitTest>(?!.*<SubUnitTest>).*</SubUnitTest>",
                                             QRegularExpression::DotMatchesEverythingOption);
        folder.Write("half.zyr", QString(folder.Content("lot/panel-0001.zyr")).remove(item).toUtf8());
        QCOMPARE(folder.Zyn("convert half.zyr -o half.stdf").errors, QByteArray("half.stdf holds 1 part\n"));
        const auto outcome = folder.Zyn("convert lot/panel-0001.zyr -o half.stdf --json");
        QVERIFY2(outcome.output.contains("\"added\":1") && outcome.output.contains("\"present\":1"),
                 outcome.output);
        QCOMPARE(folder.Zyn("convert lot/panel-0001.zyr -o whole.stdf").code, 0);
        QCOMPARE(folder.Content("half.stdf"), folder.Content("whole.stdf"));
    }

    void UnitsWithoutPartsAreCounted()
    {
        static const QRegularExpression results("<Result [^>]*DataType=\"(Real|Integer|String)\".*?</Result>",
                                                QRegularExpression::DotMatchesEverythingOption);
        const QByteArray untested = Files::Content(ZYN_SOURCE_DIR "/tests/golden/bare-unit/report.zyr");
        folder.Write("without/1.zyr", untested);
        folder.Write("without/2.zyr", QByteArray(untested).replace("SN000001", "SN000002"));
        folder.Write("without/3.zyr", QString(folder.Content("lot/panel-0001.zyr")).remove(results).toUtf8());
        folder.Write("without/4.zyr", folder.Content("lot/panel-0002.zyr"));
        QCOMPARE(folder.Zyn("convert without -o without.stdf").errors,
                 QByteArray("2 units gave no part, first in without/3.zyr: no measurement has a result\n"
                            "2 units gave no part, first in without/1.zyr: no test program ran\n"
                            "without.stdf holds 2 parts\n"));
        QCOMPARE(folder.Zyn("convert without -q -o quiet.stdf").errors, QByteArray());
    }

    void NamesBeyondAsciiAreSaid()
    {
        QByteArray report = folder.Content("lot/panel-0001.zyr");
        report.replace("\"LotNumber\">", "\"LotNumber\">Gr\u00fcn ");
        folder.Write("umlaut.zyr", report);
        folder.Write("umlaut2.zyr", report.replace("L00001-", "L00002-"));
        const auto first = folder.Zyn("convert umlaut.zyr -o umlaut.stdf");
        QVERIFY2(first.errors.contains("umlaut.zyr: LOT_ID 'Gr\u00fcn L00001' goes beyond ASCII"),
                 first.errors);
        const auto second = folder.Zyn("convert umlaut.zyr umlaut2.zyr -o umlaut.stdf");
        QVERIFY2(second.errors.contains("so that umlaut.stdf is not recognised as the lot of umlaut2.zyr"),
                 second.errors);
        QVERIFY2(second.errors.contains("2 parts stand there already"), second.errors);
        const auto check = folder.Zyn("check umlaut.stdf");
        QCOMPARE(check.code, 0);
        QVERIFY2(check.output.contains("texts beyond ASCII, first MIR LOT_ID"), check.output);
    }

    void LotsAreNoReports()
    {
        const auto refused = folder.Zyn("convert lot.stdf -o x.csv");
        QCOMPARE(refused.code, 2);
        QVERIFY2(refused.errors.contains("a lot becomes many reports"), refused.errors);
        // Its parts are units of which statistics are made, each with the values of its tests.
        const auto outcome = folder.Zyn("statistics lot.stdf -q --force -o x.csv");
        QVERIFY2(outcome.code == 0, outcome.errors);
        const auto expected = folder.Zyn("measure lot.stdf --name Temperature --json");
        const auto object = QJsonDocument::fromJson(expected.output.split('\n').first()).object();
        const QByteArray mean = QByteArray::number(object.value(u"mean"_s).toDouble(), 'f', 6).chopped(3);
        QVERIFY2(folder.Content("x.csv").contains(mean), mean);
    }

    void TwoProcessesLoseNothing()
    {
        QProcess one;
        QProcess two;
        for (QProcess* process : {&one, &two}) {
            process->setWorkingDirectory(folder.Path("."));
            process->start(ZYN_TOOL, {"convert", "lot", "--again", "-o", "both.stdf"});
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

        // In a later run: what stands there is left out, and what is of a third lot takes no other's place.
        folder.Write("third.zyr", QByteArray(report).replace("\"LotNumber\">X2", "\"LotNumber\">X3"));
        QVERIFY(QFile::link("victim", folder.Path(QString(files[0]).replace("_failure", "-2_failure"))));
        QCOMPARE(folder.Zyn("convert other.zyr third.zyr other.zyr third.zyr -o lot.stdf").code, 0);
        QCOMPARE(folder.Content("lot.stdf"), before);
        QVERIFY(!QFile::exists(folder.Path("victim")));
        QStringList lots;
        for (const QString& file : QDir(folder.Path(".")).entryList({"lot_*_failure.stdf"}, QDir::Files))
            lots +=
                Lot(file).Of("MIR")[0].Text("LOT_ID") + u' ' + QString::number(Lot(file).PartIds().size());
        lots.sort();
        QCOMPARE(lots.join(", "), "X2 2, X3 2");
    }

    void LotThatIsCutOffInItsHeaderIsSaid()
    {
        const QByteArray cut = folder.Content("lot.stdf").first(20);
        folder.Write("cut.stdf", cut);
        const auto outcome = folder.Zyn("convert lot/panel-0002.zyr -o cut.stdf");
        QCOMPARE(outcome.code, 0);
        QVERIFY2(outcome.errors.contains("cut.stdf is cut off or damaged before it says which lot it is"),
                 outcome.errors);
        QCOMPARE(folder.Content("cut.stdf"), cut);
    }

    void LinkToAMissingFileIsFollowed()
    {
        QVERIFY(QFile::link("far.stdf", folder.Path("link.stdf")));
        QCOMPARE(folder.Zyn("convert lot/panel-0001.zyr -o link.stdf").code, 0);
        QCOMPARE(Lot("far.stdf").PartIds().size(), 2);
    }

    void PackedLotsAreLots_data()
    {
        const Rows<QString> row;
        for (const char* const packer : {"gzip", "bzip2", "xz", "zstd"})
            row(packer, packer);
    }
    void PackedLotsAreLots()
    {
        const auto [packer] = CurrentRow<QString>();
        const QByteArray packed = Program::Run(packer, {"-c"}, {}, folder.Content("lot.stdf")).output;
        QVERIFY(!packed.isEmpty() && packed != folder.Content("lot.stdf"));
        const QString name = packer + ".std";
        folder.Write(name, packed);
        QCOMPARE(folder.Zyn("check " + name).output, QByteArray());
        for (const QString question : {"yield", "measure", "show"}) {
            const QByteArray plain = folder.Zyn(question + " --json lot.stdf").output;
            QVERIFY(!plain.isEmpty());
            QCOMPARE(folder.Zyn(question + " --json " + name).output.replace(name.toUtf8(), "lot.stdf"),
                     plain);
        }
        QCOMPARE(folder.Zyn("convert -q lot.stdf " + name + " -f csv -d reports --force").code, 0);
        const QString last = "/" + QDir(folder.Path("reports/lot")).entryList(QDir::Files).constLast();
        QCOMPARE(folder.Content("reports/" + packer + last), folder.Content("reports/lot" + last));

        folder.Write("cut.std", packed.first(packed.size() / 2));
        for (const QString command : {"check", "show", "show --json", "yield", "convert -d cut -f csv"}) {
            const auto cut = folder.Zyn(command + " cut.std");
            QCOMPARE(cut.code, 1);
            QVERIFY2((cut.output + cut.errors).contains("cut.std"), command.toUtf8());
        }
    }

    void CompressedLotsOfAFolderAreFound()
    {
        folder.Write("packed/a.std.gz", Program::Run("gzip", {"-n"}, {}, folder.Content("lot.stdf")).output);
        const auto outcome = folder.Zyn("check -v packed");
        QVERIFY2(outcome.code == 0 && outcome.errors.contains("a.std.gz: good"), outcome.errors);
    }

    void LotIsPutBackWhenThereIsNoRoom()
    {
        const QString beside = QDir(folder.Path(".")).entryList({"lot_*_failure.stdf"}, QDir::Files).at(0);
        for (const QString& name : {QString("lot.stdf"), QString("new.stdf"), beside}) {
            const bool exists = QFile::exists(folder.Path(name));
            const QByteArray before = folder.Content(name);
            // A file size limit a little above what is there acts like a full disk.
            const QString arguments =
                name == beside ? "other.zyr -o lot.stdf" : "lot/panel-0001.zyr -o " + name;
            const auto outcome = folder.Zyn("convert --again " + arguments, {}, [&before] {
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
