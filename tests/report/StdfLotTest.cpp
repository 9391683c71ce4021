#include "stdf/LotFiles.h"
#include "stdf/LotModels.h"
#include "support/Rows.h"

#include <ZYNCommon/TestResultSet.h>
#include <ZYNCommon/UUTTest.h>
#include <ZYNPersistence/CExportServiceReport.h>

#include <QtCore/QTemporaryDir>
#include <QtTest/QTest>

using namespace ZYN;
using namespace Qt::StringLiterals;
using LotModels::Append;
using LotModels::SimpleUnit;
using LotModels::UnitData;

namespace {

/// A service as a line has one: the format once, then unit after unit.
struct Line {
    CExportServiceReport service;

    Line() { service.SetFormat("STDF"); }
    bool Add(const UnitData& unit, const QString& fileName) { return Append(unit, fileName, service); }
};

/// Idents of the parts in a file, and what the reader finds.
QString Parts(const QString& lot)
{
    const auto contents = LotFiles::Read(lot);
    QString text = contents.PartIds().join(u' ');
    for (const Stdf::Finding& finding : contents.findings)
        text += u'\n' + finding.text;
    return text;
}

UnitData OtherLot(const QString& ident)
{
    UnitData unit = SimpleUnit(ident);
    unit.lot = u"LOT-2"_s;
    return unit;
}

UnitData WithoutResults(const QString& ident)
{
    return SimpleUnit(ident, 0);
}

UnitData WithoutProgram(const QString& ident)
{
    UnitData unit = SimpleUnit(ident);
    unit.hasResultSet = false;
    return unit;
}

} // namespace

class StdfLotTest : public QObject {
    Q_OBJECT

private:
    QTemporaryDir folder;
    int used = 0;

    /// A lot file in a folder of its own.
    QString NewLot(const QString& name = u"report.stdf"_s)
    {
        const QString path = folder.filePath(QString::number(++used));
        QDir().mkpath(path);
        return path + u'/' + name;
    }

private slots:
    void ServicesTakeTurnsOnOneFile()
    {
        const QString lot = NewLot();
        Line first;
        Line second;
        QVERIFY(first.Add(SimpleUnit("SN1", 1), lot));
        QCOMPARE(LotFiles::Read(lot).Faults(), QString());
        UnitData bad = SimpleUnit("SN2", 1);
        bad.result = ZYN_RESULT_FAILED;
        QVERIFY(second.Add(bad, lot));
        QVERIFY(first.Add(SimpleUnit("SN3", 1), lot));
        const auto contents = LotFiles::Read(lot);
        QCOMPARE(contents.Names(), "FAR MIR PIR PTR PRR PIR PTR PRR PIR PTR PRR PCR MRR");
        QCOMPARE(contents.Of("PCR")[0].Number("PART_CNT"), 3U);
        QCOMPARE(contents.Of("PCR")[0].Number("GOOD_CNT"), 2U);
        QCOMPARE(Parts(lot), "SN1 SN2 SN3");
    }

    void OneServiceGoesOnInItsFileWhateverTheLot()
    {
        const QString lot = NewLot();
        Line line;
        QVERIFY(line.Add(SimpleUnit("SN1"), lot));
        QVERIFY(line.Add(OtherLot("SN2"), lot));
        QCOMPARE(LotFiles::Read(lot).Of("MIR").size(), 1);
        QCOMPARE(Parts(lot), "SN1 SN2");
    }

    void OneServiceWritesTwoFiles()
    {
        const QString one = NewLot();
        const QString two = NewLot();
        Line line;
        for (const auto& [ident, lot] : {std::pair("SN1", one), {"SN2", two}, {"SN3", one}, {"SN4", two}})
            QVERIFY(line.Add(SimpleUnit(QLatin1StringView(ident)), lot));
        QCOMPARE(Parts(one), "SN1 SN3");
        QCOMPARE(Parts(two), "SN2 SN4");
    }

    void LotFileThatWasMovedAwayBeginsAnew()
    {
        const QString lot = NewLot();
        Line line;
        QVERIFY(line.Add(SimpleUnit("SN1"), lot));
        QVERIFY(QFile::rename(lot, lot + u".done"_s));
        QVERIFY(line.Add(OtherLot("SN2"), lot));
        QCOMPARE(LotFiles::Read(lot).Of("MIR")[0].Text("LOT_ID"), "LOT-2");
        QCOMPARE(Parts(lot), "SN2");
    }

    void OtherLotProductOrMachineGoesToAFailureFile()
    {
        for (QString UnitData::*const field : {&UnitData::lot, &UnitData::product, &UnitData::machine}) {
            const QString lot = NewLot();
            QVERIFY(Append(SimpleUnit("SN0"), lot));
            const QByteArray before = Files::Content(lot);
            UnitData other = SimpleUnit("SN1");
            other.*field += 'x';
            const QString failureFile = QFileInfo(lot).path() + "/report_SN1_failure.stdf";
            // What lies there already is replaced, not added to.
            Files::Write(failureFile, QByteArray(100000, 'x'));
            QVERIFY(Append(other, lot));

            QCOMPARE(Files::Content(lot), before);
            QCOMPARE(Parts(failureFile), "SN1");
        }
    }

    void ServiceStaysAwayFromTheLotThatItWasRedirectedFrom()
    {
        const QString lot = NewLot();
        const QString path = QFileInfo(lot).path();
        QVERIFY(Append(SimpleUnit("SN0"), lot));
        const QByteArray before = Files::Content(lot);

        Line line;
        QVERIFY(line.Add(OtherLot("SN1"), lot));
        QVERIFY(line.Add(OtherLot("SN2"), lot));
        QVERIFY(line.Add(SimpleUnit("SN3"), lot));
        QVERIFY(line.Add(OtherLot("SN1"), lot)); // a retest
        QCOMPARE(Files::Content(lot), before);
        for (const auto& [ident, idents] : {std::pair("SN1", "SN1 SN1"), {"SN2", "SN2"}, {"SN3", "SN3"}}) {
            QCOMPARE(Parts(path + u"/report_%1_failure.stdf"_s.arg(QLatin1StringView(ident))),
                     QLatin1StringView(idents));
        }

        // The same service still adds to another file instead of truncating it.
        const QString next = NewLot();
        QVERIFY(Append(SimpleUnit("SN4"), next));
        QVERIFY(line.Add(SimpleUnit("SN5"), next));
        QCOMPARE(Parts(next), "SN4 SN5");
    }

    void IdentCannotLeaveTheFolder_data()
    {
        const Rows<QString, QString> row;
        row("slashes", "../../etc/x", "report_.._.._etc_x_failure.stdf");
        row("backslash, drive", "C:..\\x", "report_C_.._x_failure.stdf");
        row("NUL and line feed", u"a\n"_s + QChar(0) + u'b', "report_a__b_failure.stdf");
        row("empty", QString(), "report__failure.stdf");
        row("placeholders", "%1%2%3", "report_%1%2%3_failure.stdf");
        row("dots", "..", "report_.._failure.stdf");
    }
    void IdentCannotLeaveTheFolder()
    {
        const auto [ident, fileName] = CurrentRow<QString, QString>();
        const QString lot = NewLot();
        QVERIFY(Append(SimpleUnit("SN0"), lot));
        QVERIFY(Append(OtherLot(ident), lot));
        QCOMPARE(QFileInfo(lot).dir().entryList(QDir::Files | QDir::Hidden),
                 QStringList({"report.stdf", fileName}));
    }

    void LongIdentsKeepTheirOwnFiles()
    {
        const QString lot = NewLot("a.b.stdf");
        QVERIFY(Append(SimpleUnit("SN0"), lot));
        const QString start = u"Ä\U0001F600"_s.repeated(200);
        QVERIFY(Append(OtherLot(start + u'1'), lot));
        QVERIFY(Append(OtherLot(start + u'2'), lot));
        const QStringList files = QFileInfo(lot).dir().entryList({"a_*_failure.b.stdf"});
        QCOMPARE(files.size(), 2);
        for (const QString& file : files)
            QCOMPARE(LotFiles::Read(QFileInfo(lot).path() + u'/' + file).PartIds().size(), 1);
    }

    void UnitsWithoutResultsDoNotSpoilTheLot_data()
    {
        const Rows<bool> row;
        row("no results", true);
        row("no program", false);
    }
    void UnitsWithoutResultsDoNotSpoilTheLot()
    {
        const auto [program] = CurrentRow<bool>();
        const QString lot = NewLot();
        const auto empty = program ? WithoutResults : WithoutProgram;
        QVERIFY(Append(empty("SN1"), lot));
        if (program)
            QCOMPARE(LotFiles::Read(lot).Names(), "FAR MIR PCR MRR");
        QVERIFY(Append(empty("SN2"), lot));
        for (const char* ident : {"SN3", "SN4"})
            QVERIFY(Append(SimpleUnit(QLatin1StringView(ident)), lot));
        const QByteArray before = Files::Content(lot);
        QVERIFY(Append(empty("SN5"), lot));
        QCOMPARE(Files::Content(lot), before);
        const auto contents = LotFiles::Read(lot);
        QCOMPARE(contents.PartIds().join(u' '), "SN3 SN4");
        QCOMPARE(contents.Of("PCR").back().Number("PART_CNT"), 2U);
        QCOMPARE(contents.Faults(), QString());
    }

    void WalkThatFailsStillLeavesItsPartCounted()
    {
        const QString lot = NewLot();
        QVERIFY(Append(SimpleUnit("SN1"), lot));
        {
            Line line;
            line.service.SetOutputFileName(lot);
            const auto test = LotModels::MakeTest(SimpleUnit("SN2"));
            test->AssignResultSet(new TestResultSet(nullptr, nullptr)); // cannot be reported
            QVERIFY(!line.service.Export(test.get()) && !line.service.OutputComplete());
        }
        QVERIFY(Append(SimpleUnit("SN3"), lot));
        QCOMPARE(Parts(lot), "SN1 SN2 SN3");
    }

    void ResultSetAloneHasNoPart()
    {
        const QString lot = NewLot();
        const QString full = NewLot();
        QVERIFY(Append(SimpleUnit("SN1"), full));
        const QByteArray before = Files::Content(full);
        const auto test = LotModels::MakeTest(SimpleUnit("SN1"));
        Line line;
        for (const QString& fileName : {lot, full}) {
            line.service.SetOutputFileName(fileName);
            QVERIFY(line.service.Export(test->GetResultSets().front()));
        }
        QCOMPARE(LotFiles::Read(lot).Names(), "FAR PCR");
        QCOMPARE(Files::Content(full), before); // nor does it touch a lot
    }

    void NamesThatOnlyMatchBeforeEncodingAreAnotherLot_data()
    {
        const Rows<QString, bool> row;
        row("empty", "", true);
        row("255 characters", QString(255, u'x'), true);
        row("256 characters", QString(256, u'x'), false);
        row("Latin-1", "Größe", false);
    }
    void NamesThatOnlyMatchBeforeEncodingAreAnotherLot()
    {
        const auto [name, appended] = CurrentRow<QString, bool>();
        const QString lot = NewLot();
        for (const char* ident : {"SN1", "SN2"}) {
            UnitData unit = SimpleUnit(QLatin1StringView(ident));
            unit.lot = name;
            QVERIFY(Append(unit, lot));
        }
        QCOMPARE(Parts(lot), appended ? u"SN1 SN2"_s : u"SN1"_s);
    }

    void ForeignFilesAreLeftAlone_data()
    {
        const Rows<QByteArray> row;
        row("text", "This is no lot file, but notes of somebody.\n");
        row("one byte", "x");
        row("big-endian", QByteArray::fromHex("0002000a0104"
                                              "0002050a0101"));
        row("no MIR", QByteArray::fromHex("0200000a0204"
                                          "0200050a0101"));
    }
    void ForeignFilesAreLeftAlone()
    {
        const auto [bytes] = CurrentRow<QByteArray>();
        const QString lot = NewLot();
        Files::Write(lot, bytes);
        QVERIFY(Append(SimpleUnit("SN1"), lot));
        QVERIFY(Append(WithoutProgram("SN2"), lot));
        QCOMPARE(Files::Content(lot), bytes);
        QCOMPARE(LotFiles::Read(QFileInfo(lot).path() + u"/report_SN1_failure.stdf"_s).Faults(), QString());
    }

    void StreamBehindAClosingRecordIsKept()
    {
        // Two lots that somebody joined: going on at the counts of the first would destroy the second.
        const QString one = NewLot();
        const QString two = NewLot();
        QVERIFY(Append(SimpleUnit("SN1"), one));
        QVERIFY(Append(SimpleUnit("SN2"), two));
        const QByteArray joined = Files::Content(one) + Files::Content(two) +
                                  QByteArray::fromHex("0000322100"); // an unknown record, a torn one
        Files::Write(one, joined);
        QVERIFY(Append(SimpleUnit("SN3"), one));
        const auto contents = LotFiles::Read(one);
        QCOMPARE(contents.PartIds().join(u' '), "SN1 SN2 SN3");
        QVERIFY(Files::Content(one).startsWith(joined.chopped(1)));
        QVERIFY(!contents.fault);
    }
};

QTEST_GUILESS_MAIN(StdfLotTest)
#include "StdfLotTest.moc"
