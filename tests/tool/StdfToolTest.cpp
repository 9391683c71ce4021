#include "stdf/LotFiles.h"

#include <QtCore/QDir>
#include <QtCore/QProcess>
#include <QtCore/QTemporaryDir>
#include <QtTest/QTest>

using namespace ZYN;
using namespace Qt::StringLiterals;

/// STDF lot files by the command line.
class StdfToolTest : public QObject {
    Q_OBJECT

private:
    struct Outcome {
        int code = -1;
        QString output;
        QString errors;
    };

    QTemporaryDir folder;

    QString Path(const QString& name) const { return folder.filePath(name); }

    Outcome Run(const QStringList& arguments) const
    {
        QProcess process;
        process.setWorkingDirectory(folder.path());
        process.start(QStringLiteral(ZYN_TOOL), arguments);
        process.waitForFinished(120000);
        return {process.exitCode(), QString::fromUtf8(process.readAllStandardOutput()),
                QString::fromUtf8(process.readAllStandardError())};
    }

private slots:
    void initTestCase()
    {
        QCOMPARE(Run({u"simulate"_s, u"-q"_s, u"-d"_s, u"lot"_s, u"--panels"_s, u"6"_s, u"--items"_s, u"2"_s})
                     .code,
                 0);
        QCOMPARE(
            Run({u"simulate"_s, u"-q"_s, u"-d"_s, u"other"_s, u"--panels"_s, u"1"_s, u"--items"_s, u"1"_s})
                .code,
            0);
    }

    void PartsStandInInputOrder()
    {
        const Outcome first = Run({u"convert"_s, u"lot"_s, u"-o"_s, u"lot.stdf"_s});
        QCOMPARE(first.code, 0);
        QCOMPARE(first.errors, u"lot.stdf holds 12 parts\n"_s);
        const auto contents = LotFiles::Read(Path(u"lot.stdf"_s));
        QVERIFY(contents.findings.isEmpty());
        QStringList sorted = contents.PartIds();
        sorted.sort();
        QCOMPARE(contents.PartIds(), sorted);

        QCOMPARE(Run({u"convert"_s, u"lot"_s, u"-o"_s, u"lot.stdf"_s}).errors,
                 u"lot.stdf holds 24 parts\n"_s);
        QCOMPARE(Run({u"check"_s, u"lot.stdf"_s}).code, 0);
    }

    void TwoProcessesLoseNothing()
    {
        QProcess one;
        QProcess two;
        for (QProcess* process : {&one, &two}) {
            process->setWorkingDirectory(folder.path());
            process->start(QStringLiteral(ZYN_TOOL), {u"convert"_s, u"lot"_s, u"-o"_s, u"both.stdf"_s});
        }
        QVERIFY(one.waitForFinished(120000) && two.waitForFinished(120000));
        QCOMPARE(one.exitCode() + two.exitCode(), 0);
        const auto contents = LotFiles::Read(Path(u"both.stdf"_s));
        QCOMPARE(contents.PartIds().size(), 24);
        QVERIFY(contents.findings.isEmpty());
    }

    void ReportOfAnotherLotIsNamed()
    {
        QFile report(Path(u"other/panel-0001.zyr"_s));
        QVERIFY(report.open(QIODevice::ReadWrite));
        QByteArray text = report.readAll();
        const QString lot = LotFiles::Read(Path(u"lot.stdf"_s)).Of("MIR")[0].Text("LOT_ID");
        QVERIFY(text.contains(lot.toUtf8()));
        text.replace(lot.toUtf8(), "X2");
        report.resize(0);
        report.seek(0);
        report.write(text);
        report.close();

        const QByteArray before = LotFiles::Bytes(Path(u"lot.stdf"_s));
        const Outcome outcome = Run({u"convert"_s, u"other/panel-0001.zyr"_s, u"-o"_s, u"lot.stdf"_s});
        QCOMPARE(outcome.code, 0);
        QCOMPARE(LotFiles::Bytes(Path(u"lot.stdf"_s)), before);
        const QStringList files = QDir(folder.path()).entryList({u"lot_*_failure.stdf"_s});
        QCOMPARE(files.size(), 1);
        QVERIFY2(outcome.errors.contains(files[0]), qPrintable(outcome.errors));
        QVERIFY(LotFiles::Read(Path(files[0])).findings.isEmpty());
    }

    void LotIsPutBackWhenThereIsNoRoom_data()
    {
        QTest::addColumn<bool>("exists");
        QTest::newRow("lot that exists") << true;
        QTest::newRow("new lot") << false;
    }
    void LotIsPutBackWhenThereIsNoRoom()
    {
        QFETCH(bool, exists);
        const QString name = exists ? u"lot.stdf"_s : u"new.stdf"_s;
        const QByteArray before = LotFiles::Bytes(Path(name));
        QProcess shell;
        shell.setWorkingDirectory(folder.path());
        // A file size limit a little above what is there acts like a full disk.
        const qint64 blocks = before.size() / 1024 + 1;
        shell.start(u"bash"_s, {u"-c"_s, u"ulimit -f %1; exec '%2' convert lot/panel-0001.zyr -o %3"_s.arg(
                                             QString::number(blocks), QStringLiteral(ZYN_TOOL), name)});
        QVERIFY(shell.waitForFinished(60000));
        QCOMPARE(shell.exitCode(), 1);
        QVERIFY(shell.readAllStandardError().contains("the lot is as it was"));
        QCOMPARE(LotFiles::Bytes(Path(name)), before);
        QCOMPARE(QFile::exists(Path(name)), exists);
    }

    void BrokenReportsAreLeftOut()
    {
        QFile broken(Path(u"lot/panel-0003.zyr"_s));
        QVERIFY(broken.resize(broken.size() / 2));
        const Outcome outcome = Run({u"convert"_s, u"lot"_s, u"-o"_s, u"part.stdf"_s});
        QCOMPARE(outcome.code, 1);
        QVERIFY(outcome.errors.contains(u"panel-0003.zyr"_s));
        QVERIFY(outcome.errors.endsWith(u"part.stdf holds 10 parts\n"_s) ||
                outcome.errors.contains(u"part.stdf holds 10 parts\n"_s));
    }

    void ShowAndCheckTellOfDamage()
    {
        QVERIFY(QFile::copy(Path(u"lot.stdf"_s), Path(u"torn.stdf"_s)));
        QVERIFY(QFile::resize(Path(u"torn.stdf"_s), 5000));
        const Outcome check = Run({u"check"_s, u"torn.stdf"_s});
        QCOMPARE(check.code, 1);
        QVERIFY2(check.output.startsWith(u"torn.stdf:offset "_s), qPrintable(check.output));
        const Outcome show = Run({u"show"_s, u"torn.stdf"_s});
        QCOMPARE(show.code, 1);
        QVERIFY(show.output.contains(u"Damaged at offset"_s));
        const QStringList lines =
            Run({u"show"_s, u"--json"_s, u"torn.stdf"_s}).output.split(u'\n', Qt::SkipEmptyParts);
        QVERIFY(lines.first().contains(u"\"record\":\"FAR\""_s));
        QVERIFY(lines.last().contains(u"\"error\":"_s));
    }
};

QTEST_GUILESS_MAIN(StdfToolTest)
#include "StdfToolTest.moc"
