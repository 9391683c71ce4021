#include "stdf/LotFiles.h"
#include "stdf/LotModels.h"

#include <ZYNCommon/TestResultSet.h>
#include <ZYNCommon/UUTTest.h>
#include <ZYNPersistence/CExportServiceReport.h>

#include <QtCore/QTemporaryDir>
#include <QtTest/QTest>

using namespace ZYN;
using namespace Qt::StringLiterals;
using LotModels::SimpleUnit;
using LotModels::UnitData;

namespace {

/// A service as a line has one: the format once, then unit after unit.
struct Line {
    CExportServiceReport service;

    Line() { service.SetFormat(u"STDF"_s); }

    bool Add(const UnitData& unit, const QString& fileName)
    {
        service.SetOutputFileName(fileName);
        const auto test = LotModels::MakeTest(unit);
        return service.Export(test.get()) && service.OutputComplete();
    }
};

/// One part by a service of its own.
bool Append(const UnitData& unit, const QString& fileName)
{
    return Line().Add(unit, fileName);
}

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
    UnitData unit = SimpleUnit(ident);
    for (auto& measurement : unit.groups[0].steps[0].measurements)
        measurement.hasResult = false;
    return unit;
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
        QVERIFY(first.Add(SimpleUnit(u"SN1"_s, 1), lot));
        QCOMPARE(LotFiles::Read(lot).Faults(), QString());
        UnitData bad = SimpleUnit(u"SN2"_s, 1);
        bad.result = ZYN_RESULT_FAILED;
        QVERIFY(second.Add(bad, lot));
        QVERIFY(first.Add(SimpleUnit(u"SN3"_s, 1), lot));
        const auto contents = LotFiles::Read(lot);
        QCOMPARE(contents.Names(), u"FAR MIR PIR PTR PRR PIR PTR PRR PIR PTR PRR PCR MRR"_s);
        QCOMPARE(contents.Of("PCR")[0].Number("PART_CNT"), 3U);
        QCOMPARE(contents.Of("PCR")[0].Number("GOOD_CNT"), 2U);
        QCOMPARE(Parts(lot), u"SN1 SN2 SN3"_s);
    }

    void OneServiceGoesOnInItsFileWhateverTheLot()
    {
        const QString lot = NewLot();
        Line line;
        QVERIFY(line.Add(SimpleUnit(u"SN1"_s), lot));
        QVERIFY(line.Add(OtherLot(u"SN2"_s), lot));
        QCOMPARE(LotFiles::Read(lot).Of("MIR").size(), 1);
        QCOMPARE(Parts(lot), u"SN1 SN2"_s);
    }

    void OneServiceWritesTwoFiles()
    {
        const QString one = NewLot();
        const QString two = NewLot();
        Line line;
        for (const auto& [ident, lot] : {std::pair("SN1", one), {"SN2", two}, {"SN3", one}, {"SN4", two}})
            QVERIFY(line.Add(SimpleUnit(QLatin1StringView(ident)), lot));
        QCOMPARE(Parts(one), u"SN1 SN3"_s);
        QCOMPARE(Parts(two), u"SN2 SN4"_s);
    }

    void LotFileThatWasMovedAwayBeginsAnew()
    {
        const QString lot = NewLot();
        Line line;
        QVERIFY(line.Add(SimpleUnit(u"SN1"_s), lot));
        QVERIFY(QFile::rename(lot, lot + u".done"_s));
        QVERIFY(line.Add(OtherLot(u"SN2"_s), lot));
        QCOMPARE(LotFiles::Read(lot).Of("MIR")[0].Text("LOT_ID"), u"LOT-2"_s);
        QCOMPARE(Parts(lot), u"SN2"_s);
    }

    void OtherLotProductOrMachineGoesToAFailureFile_data()
    {
        QTest::addColumn<QString>("field");
        for (const char* field : {"lot", "product", "machine"})
            QTest::addRow("%s", field) << QString::fromLatin1(field);
    }
    void OtherLotProductOrMachineGoesToAFailureFile()
    {
        QFETCH(QString, field);
        const QString lot = NewLot();
        QVERIFY(Append(SimpleUnit(u"SN0"_s), lot));
        const QByteArray before = LotFiles::Bytes(lot);

        UnitData other = SimpleUnit(u"SN1"_s);
        (field == u"lot" ? other.lot : field == u"product" ? other.product : other.machine) += u'x';
        const QString failureFile = QFileInfo(lot).path() + u"/report_SN1_failure.stdf"_s;
        // What lies there already is replaced, not added to.
        QVERIFY(LotFiles::Save(failureFile, QByteArray(100000, 'x')));
        QVERIFY(Append(other, lot));

        QCOMPARE(LotFiles::Bytes(lot), before);
        QCOMPARE(Parts(failureFile), u"SN1"_s);
    }

    void ServiceStaysAwayFromTheLotThatItWasRedirectedFrom()
    {
        const QString lot = NewLot();
        const QString path = QFileInfo(lot).path();
        QVERIFY(Append(SimpleUnit(u"SN0"_s), lot));
        const QByteArray before = LotFiles::Bytes(lot);

        Line line;
        QVERIFY(line.Add(OtherLot(u"SN1"_s), lot));
        QVERIFY(line.Add(OtherLot(u"SN2"_s), lot));
        QVERIFY(line.Add(SimpleUnit(u"SN3"_s), lot));
        QVERIFY(line.Add(OtherLot(u"SN1"_s), lot)); // a retest
        QCOMPARE(LotFiles::Bytes(lot), before);
        for (const auto& [ident, idents] : {std::pair("SN1", "SN1 SN1"), {"SN2", "SN2"}, {"SN3", "SN3"}}) {
            QCOMPARE(Parts(path + u"/report_%1_failure.stdf"_s.arg(QLatin1StringView(ident))),
                     QLatin1StringView(idents));
        }

        // The same service still adds to another file instead of truncating it.
        const QString next = NewLot();
        QVERIFY(Append(SimpleUnit(u"SN4"_s), next));
        QVERIFY(line.Add(SimpleUnit(u"SN5"_s), next));
        QCOMPARE(Parts(next), u"SN4 SN5"_s);
    }

    void IdentCannotLeaveTheFolder_data()
    {
        QTest::addColumn<QString>("ident");
        QTest::addColumn<QString>("fileName");
        QTest::newRow("slashes") << u"../../etc/x"_s << u"report_.._.._etc_x_failure.stdf"_s;
        QTest::newRow("backslash, drive") << u"C:..\\x"_s << u"report_C_.._x_failure.stdf"_s;
        QTest::newRow("NUL and line feed") << u"a\n"_s + QChar(0) + u'b' << u"report_a__b_failure.stdf"_s;
        QTest::newRow("empty") << QString() << u"report__failure.stdf"_s;
        QTest::newRow("placeholders") << u"%1%2%3"_s << u"report_%1%2%3_failure.stdf"_s;
        QTest::newRow("dots") << u".."_s << u"report_.._failure.stdf"_s;
    }
    void IdentCannotLeaveTheFolder()
    {
        QFETCH(QString, ident);
        QFETCH(QString, fileName);
        const QString lot = NewLot();
        QVERIFY(Append(SimpleUnit(u"SN0"_s), lot));
        QVERIFY(Append(OtherLot(ident), lot));
        QCOMPARE(QFileInfo(lot).dir().entryList(QDir::Files | QDir::Hidden),
                 QStringList({u"report.stdf"_s, fileName}));
    }

    void LongIdentsKeepTheirOwnFiles()
    {
        const QString lot = NewLot(u"a.b.stdf"_s);
        QVERIFY(Append(SimpleUnit(u"SN0"_s), lot));
        const QString start = u"Ä\U0001F600"_s.repeated(200);
        QVERIFY(Append(OtherLot(start + u'1'), lot));
        QVERIFY(Append(OtherLot(start + u'2'), lot));
        const QStringList files = QFileInfo(lot).dir().entryList({u"a_*_failure.b.stdf"_s});
        QCOMPARE(files.size(), 2);
        for (const QString& file : files)
            QCOMPARE(LotFiles::Read(QFileInfo(lot).path() + u'/' + file).PartIds().size(), 1);
    }

    void UnitsWithoutResultsDoNotSpoilTheLot_data()
    {
        QTest::addColumn<bool>("program");
        QTest::newRow("no results") << true;
        QTest::newRow("no program") << false;
    }
    void UnitsWithoutResultsDoNotSpoilTheLot()
    {
        QFETCH(bool, program);
        const QString lot = NewLot();
        const auto empty = program ? WithoutResults : WithoutProgram;
        QVERIFY(Append(empty(u"SN1"_s), lot));
        if (program)
            QCOMPARE(LotFiles::Read(lot).Names(), u"FAR MIR PCR MRR"_s);
        QVERIFY(Append(empty(u"SN2"_s), lot));
        for (const char* ident : {"SN3", "SN4"})
            QVERIFY(Append(SimpleUnit(QLatin1StringView(ident)), lot));
        const QByteArray before = LotFiles::Bytes(lot);
        QVERIFY(Append(empty(u"SN5"_s), lot));
        QCOMPARE(LotFiles::Bytes(lot), before);
        const auto contents = LotFiles::Read(lot);
        QCOMPARE(contents.PartIds().join(u' '), u"SN3 SN4"_s);
        QCOMPARE(contents.Of("PCR").back().Number("PART_CNT"), 2U);
        QCOMPARE(contents.Faults(), QString());
    }

    void WalkThatFailsStillLeavesItsPartCounted()
    {
        const QString lot = NewLot();
        QVERIFY(Append(SimpleUnit(u"SN1"_s), lot));
        {
            Line line;
            line.service.SetOutputFileName(lot);
            const auto test = LotModels::MakeTest(SimpleUnit(u"SN2"_s));
            test->AssignResultSet(new TestResultSet(nullptr, nullptr)); // cannot be reported
            QVERIFY(!line.service.Export(test.get()) && !line.service.OutputComplete());
        }
        QVERIFY(Append(SimpleUnit(u"SN3"_s), lot));
        QCOMPARE(Parts(lot), u"SN1 SN2 SN3"_s);
    }

    void ResultSetAloneHasNoPart()
    {
        const QString lot = NewLot();
        const auto test = LotModels::MakeTest(SimpleUnit(u"SN1"_s));
        CExportServiceReport service;
        service.SetFormat(u"STDF"_s);
        service.SetOutputFileName(lot);
        QVERIFY(service.Export(test->GetResultSets().front()));
        QCOMPARE(LotFiles::Read(lot).Names(), u"FAR PCR"_s);

        // Nor does it touch a lot.
        const QString full = NewLot();
        QVERIFY(Append(SimpleUnit(u"SN1"_s), full));
        const QByteArray before = LotFiles::Bytes(full);
        service.SetOutputFileName(full);
        QVERIFY(service.Export(test->GetResultSets().front()));
        QCOMPARE(LotFiles::Bytes(full), before);
    }

    void NamesThatOnlyMatchBeforeEncodingAreAnotherLot_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<bool>("appended");
        QTest::newRow("empty") << u""_s << true;
        QTest::newRow("255 characters") << QString(255, u'x') << true;
        QTest::newRow("256 characters") << QString(256, u'x') << false;
        QTest::newRow("Latin-1") << u"Größe"_s << false;
    }
    void NamesThatOnlyMatchBeforeEncodingAreAnotherLot()
    {
        QFETCH(QString, name);
        QFETCH(bool, appended);
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
        QTest::addColumn<QByteArray>("bytes");
        QTest::newRow("text") << QByteArray("This is no lot file, but notes of somebody.\n");
        QTest::newRow("one byte") << QByteArray("x");
        QTest::newRow("big-endian") << QByteArray::fromHex("0002000a0104"
                                                           "0002050a0101");
        QTest::newRow("no MIR") << QByteArray::fromHex("0200000a0204"
                                                       "0200050a0101");
    }
    void ForeignFilesAreLeftAlone()
    {
        QFETCH(QByteArray, bytes);
        const QString lot = NewLot();
        QVERIFY(LotFiles::Save(lot, bytes));
        QVERIFY(Append(SimpleUnit(u"SN1"_s), lot));
        QVERIFY(Append(WithoutProgram(u"SN2"_s), lot));
        QCOMPARE(LotFiles::Bytes(lot), bytes);
        QCOMPARE(LotFiles::Read(QFileInfo(lot).path() + u"/report_SN1_failure.stdf"_s).Faults(), QString());
    }

    void StreamBehindAClosingRecordIsKept()
    {
        // Two lots that somebody joined: going on at the counts of the first would destroy the second.
        const QString one = NewLot();
        const QString two = NewLot();
        QVERIFY(Append(SimpleUnit(u"SN1"_s), one));
        QVERIFY(Append(SimpleUnit(u"SN2"_s), two));
        const QByteArray joined = LotFiles::Bytes(one) + LotFiles::Bytes(two) +
                                  QByteArray::fromHex("0000322100"); // an unknown record, a torn one
        QVERIFY(LotFiles::Save(one, joined));
        QVERIFY(Append(SimpleUnit(u"SN3"_s), one));
        const auto contents = LotFiles::Read(one);
        QCOMPARE(contents.PartIds().join(u' '), u"SN1 SN2 SN3"_s);
        QVERIFY(LotFiles::Bytes(one).startsWith(joined.chopped(1)));
        QVERIFY(!contents.fault);
    }
};

QTEST_GUILESS_MAIN(StdfLotTest)
#include "StdfLotTest.moc"
