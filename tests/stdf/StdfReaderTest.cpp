#include "LotFiles.h"
#include "RecordRows.h"
#include "support/Golden.h"
#include "support/Test.h"

#include "stdf/JsonPrinter.h"
#include "stdf/TestDefaults.h"
#include "stdf/TextPrinter.h"

using namespace ZYN;

namespace {

/// Bytes of a record body from tokens: "2a", "002a", "0000002a" are numbers of one, two and four bytes, the
/// high byte first, turned round for a little-endian file; 'text' is a text with its length in front;
/// =0f1e are bytes as they are.
QByteArray Body(const char* tokens, bool bigEndian)
{
    QByteArray body;
    for (const QByteArray& token : QByteArray(tokens).split(' ')) {
        if (token.startsWith('\'')) {
            const QByteArray text = token.mid(1, token.size() - 2);
            body += static_cast<char>(text.size()) + text;
        } else if (token.startsWith('=')) {
            body += QByteArray::fromHex(token.mid(1));
        } else {
            QByteArray number = QByteArray::fromHex(token);
            if (!bigEndian)
                std::reverse(number.begin(), number.end());
            body += number;
        }
    }
    return body;
}

QByteArray RecordBytes(int type, int subType, const QByteArray& body, bool bigEndian)
{
    QByteArray header = QByteArray::fromHex(QByteArray::number(int(body.size()), 16).rightJustified(4, '0'));
    if (!bigEndian)
        std::reverse(header.begin(), header.end());
    return header + static_cast<char>(type) + static_cast<char>(subType) + body;
}

QByteArray Far(bool bigEndian)
{
    return bigEndian ? QByteArray::fromHex("0002000a0104") : QByteArray::fromHex("0200000a0204");
}

/// Bytes that are read like a file.
struct Input : QBuffer {
    explicit Input(const QByteArray& bytes)
    {
        setData(bytes);
        open(ReadOnly);
    }
};

LotFiles::Contents ReadBytes(const QByteArray& bytes)
{
    Input input(bytes);
    return LotFiles::Read(&input);
}

/// The lines of a file as `zyn show --json` prints them.
QList<QByteArray> JsonLines(const QByteArray& bytes)
{
    Input input(bytes);
    Stdf::Reader reader(&input);
    QList<QByteArray> lines;
    for (Stdf::RawRecord raw; reader.Next(raw);)
        lines += Stdf::ToJsonLine(raw, reader.IsBigEndian());
    if (reader.GetFault())
        lines += Stdf::ToJsonLine(*reader.GetFault());
    return lines;
}

/// The lines of a file as `zyn show` prints them.
QStringList Lines(QIODevice* input, bool failedOnly = false)
{
    QStringList lines;
    Stdf::Reader reader(input);
    Stdf::TextPrinter printer([&](const QString& line) { lines += line; }, failedOnly);
    for (Stdf::RawRecord raw; reader.Next(raw);)
        printer.Take(raw, Stdf::Decode(raw, reader.IsBigEndian()));
    printer.Finish(reader);
    return lines;
}

/// A file of little-endian records from lines "TYPE SUBTYPE body tokens".
QByteArray FileOf(std::initializer_list<const char*> records)
{
    QByteArray bytes;
    for (const char* text : records) {
        const QByteArrayList parts = QByteArray(text).split(' ');
        const QByteArray tokens = parts.mid(2).join(' ');
        bytes += RecordBytes(parts[0].toInt(), parts[1].toInt(),
                             tokens.isEmpty() ? QByteArray() : Body(tokens, false), false);
    }
    return bytes;
}

constexpr const char* far = "0 10 02 04";
constexpr const char* mir = "1 10 00000001 00000002 01 50 20 20 ffff 20 'L'";
constexpr const char* pir = "5 10 01 01";
constexpr const char* ptr = "15 10 00000001 01 01 00 00 3f800000 'T' '' cc";
constexpr const char* prr = "5 20 01 01 00 0001 0000 ffff 8000 8000 00000001 'P'";
constexpr const char* pcr = "1 30 01 01 00000001 ffffffff ffffffff 00000001";
constexpr const char* mrr = "1 20 00000003";

} // namespace

class StdfReaderTest : public QObject {
    Q_OBJECT

private slots:
    void EveryRecordType_data()
    {
        const Rows<RecordRows::Row> row;
        for (const RecordRows::Row& record : RecordRows::rows)
            row(record.name, record);
    }
    void EveryRecordType()
    {
        const auto [row] = CurrentRow<RecordRows::Row>();
        const QByteArray name = QByteArray(QTest::currentDataTag()).first(3);
        for (const bool bigEndian : {false, true}) {
            const auto lines = JsonLines(
                Far(bigEndian) + RecordBytes(row.type, row.subType, Body(row.tokens, bigEndian), bigEndian));
            QCOMPARE(lines.size(), 2);
            QCOMPARE(lines[0], QByteArray("{\"offset\":0,\"record\":\"FAR\",\"CPU_TYPE\":") +
                                   (bigEndian ? '1' : '2') + ",\"STDF_VER\":4}");
            QCOMPARE(lines[1],
                     "{\"offset\":6,\"record\":\"" + name + '"' + (*row.json ? "," : "") + row.json + '}');
        }
    }

    void DamageIsNamedWithItsPlace_data()
    {
        const Rows<QByteArray, QString> row;
        const QByteArray good = FileOf({far, mir, pir, ptr, prr, pcr, mrr});

        row("good", good, "");
        row("empty", QByteArray(), "0: the file is empty");
        row("cut in a header", FileOf({far}) + "ab", "6: the file ends inside a record header");
        row("cut in a body", FileOf({far}) + QByteArray::fromHex("0500010a01"),
            "6: the file ends inside a record: MIR, 1 of 5 bytes");
        row("no FAR", FileOf({mir, mrr}), "0: the file begins with MIR, not with a FAR");
        row("no MIR", FileOf({far, pir, prr, pcr, mrr}), "6: PIR where the MIR is expected");
        row("ATR before MIR", FileOf({far, "0 20 00000001 'x'", mir, mrr}), "");
        row("two MIRs", FileOf({far, mir, mir, mrr}), "27: a second MIR");
        row("version 3", FileOf({"0 10 02 03", mir, mrr}), "0: FAR: version 3 instead of 4");
        row("short FAR", FileOf({"0 10 02", mir, mrr}), "0: FAR: it has two bytes of data, not 1");
        row("test outside", FileOf({far, mir, ptr, mrr}),
            "27: PTR: test 1 at head 1, site 1 belongs to no part: there is no PIR before it");
        row("test of another site", FileOf({far, mir, "5 10 01 02", ptr, "5 20 01 02 00 0000 0000", mrr}),
            "33: PTR: test 1 at head 1, site 1 belongs to no part: there is no PIR before it");
        row("no PIR", FileOf({far, mir, prr, pcr, mrr}),
            "27: PRR: there is no PIR before it at head 1, site 1");
        row("no PRR", FileOf({far, mir, pir, ptr, pir, ptr, prr, pcr, mrr}),
            "53: PIR: the part at head 1, site 1 from offset 27 has no PRR");
        row("no PRR at the end", FileOf({far, mir, pir, mrr}),
            "33: the part at head 1, site 1 from offset 27 has no PRR");
        row("two sites at once",
            FileOf({far, mir, pir, "5 10 01 02", ptr, prr, "5 20 01 02 00 0000 0000", mrr}), "");
        row("too few tests stated", FileOf({far, mir, pir, ptr, ptr, prr, pcr, mrr}),
            "73: PRR: NUM_TEST is 1, the part has 2 tests");
        row("wrong count", FileOf({far, mir, pir, ptr, prr, "1 30 01 01 00000002", mrr}),
            "76: PCR: PART_CNT is 2, there are 1 parts");
        row("wrong count of all sites", FileOf({far, mir, pir, ptr, prr, "1 30 ff 01 00000000", mrr}),
            "76: PCR: PART_CNT is 0, there are 1 parts");
        row("too many good",
            FileOf({far, mir, pir, "5 20 01 01 08 0000 0000",
                    "1 30 01 01 00000001 ffffffff ffffffff 00000001", mrr}),
            "44: PCR: GOOD_CNT is 1, only 0 parts have passed");
        row("no MRR", good.chopped(8), "98: the file ends without an MRR");
        row("behind the MRR", good + FileOf({pir, prr}), "106: PIR follows the MRR");
        row("zero bytes at the end", good + QByteArray(4099, '\0'),
            "106: the rest of the file is zero bytes, as a power loss leaves them; the next part that is "
            "added "
            "goes over them");
        row("zero bytes between", good + QByteArray(8, '\0') + good, "106: a record follows the MRR");
        row("further stream", good + good, "");
        row("unknown type", FileOf({far, mir, "180 1 00", mrr}), "");
        row("field cut off", FileOf({far, mir, "1 20 0000"}),
            "27: MRR: the record ends inside the field FINISH_T");
        row("required field missing", FileOf({far, mir, pir, "15 10 00000001 01 01"}),
            "33: PTR: the record ends before the field TEST_FLG");
        row("other byte order", FileOf({"0 10 01 04", mir, mrr}),
            "0: FAR: CPU_TYPE is 1, but the records are little-endian");
        row("too many in a bin", FileOf({far, mir, pir, prr, "1 40 ff 01 0000 00000002", mrr}),
            "56: HBR: the count of bin 0 is 2, only 1 parts are in it");
        row("bin of another site", FileOf({far, mir, pir, prr, "1 50 01 02 ffff 00000001", mrr}),
            "56: SBR: the count of bin 65535 is 1, only 0 parts are in it");
        row("text too long", FileOf({far, mir, "50 30 =056162", mrr}),
            "27: DTR: the record ends inside the field TEXT_DAT");
        row("array cut off", FileOf({far, mir, "1 70 0003 0001 0002", mrr}),
            "27: RDR: the record ends inside the field RTST_BIN");
        row("too long", FileOf({far, mir, "5 10 01 01 07", prr, mrr}),
            "27: PIR: 1 bytes follow the last field");
        row("unknown type code", FileOf({far, mir, "50 10 0001 09 01", mrr}),
            "27: GDR: the record ends inside the field GEN_DATA");
    }
    void DamageIsNamedWithItsPlace()
    {
        const auto [bytes, fault] = CurrentRow<QByteArray, QString>();
        QCOMPARE(ReadBytes(bytes).Faults().section(u'\n', 0, 0), fault);
    }

    void RemarksAreNoFaults()
    {
        const QByteArray good =
            FileOf({far, mir, "180 7 00", "180 7 01", "50 30 'ok'", "50 30 '\xfcnit'", mrr});
        const auto contents = ReadBytes(good + good);
        QCOMPARE(contents.findings.size(), 5);
        QCOMPARE(contents.findings[0].text, "MRR: there is no PCR before it");
        QCOMPARE(contents.findings[1].text, "a further stream begins here");
        QCOMPARE(
            contents.findings[3].text,
            QString("2 records have texts beyond ASCII, first DTR TEXT_DAT '\u00fcnit': they are read as "
                    "Latin-1, and some other readers give up on them"));
        QCOMPARE(contents.findings[4].text, "4 records of the unknown type 180, subtype 7");
        QCOMPARE(contents.Faults(), QString());
        QCOMPARE(JsonLines(good)[2],
                 QByteArray(
                     "{\"offset\":27,\"record\":\"unknown\",\"REC_TYP\":180,\"REC_SUB\":7,\"data\":\"00\"}"));
    }

    // A megabyte of such records compresses to a kilobyte.
    void ListsHaveABound()
    {
        QCOMPARE(ReadBytes(FileOf({far}).repeated(5000)).findings.size(), 1002);
        QCOMPARE(ReadBytes(FileOf({far, mir}) + FileOf({mir}).repeated(5000)).findings.size(), 1001);

        Input input(FileOf({far, mir}) + FileOf({"1 40 ff 01 0001 00000001"}).repeated(30000));
        QCOMPARE(Lines(&input).size(), 10'005);
    }

    // More than the 16 bits of NUM_TEST hold (here it is 1), and more than are listed.
    void AllTestsOfAPartAreCounted()
    {
        constexpr quint32 count = Stdf::TextPrinter::MaximumTests + 1;
        QByteArray bytes = FileOf({far, mir, pir});
        QByteArray test = FileOf({"15 10 00000000 01 01 00"});
        for (quint32 number = 0; number < count; ++number) {
            qToLittleEndian(number, test.data() + 4);
            bytes += test;
        }
        Input input(bytes + FileOf({prr, mrr}));
        const QRegularExpression part(QString("^ +1 +1/1 +PASS .* %1 ").arg(count));
        QCOMPARE(Lines(&input).filter(part).size(), 1);
    }

    void LimitsComeFromTheFirstTestRecord_data()
    {
        const Rows<QByteArray, QString> row;
        row("nothing given", "15 10 00000001 01 01 00 00 40000000", "T 1 2 -3 V");
        row("another test", "15 10 00000001 01 01 00 00 40000000 'U'", "U - - 0 ");
        row("both by default", "15 10 00000001 01 01 00 00 40000000 'T' '' 31 07 00 00 40a00000 40a00000",
            "T 1 2 -3 V");
        row("no low limit", "15 10 00000001 01 01 00 00 40000000 'T' '' 40", "T - 2 -3 V");
        row("own limits", "15 10 00000001 01 01 00 00 40000000 'T' '' 0e 03 03 03 40400000 40800000 'A'",
            "T 3 4 3 A");
        row("another number", "15 10 00000002 01 01 00 00 40000000", " - - 0 ");
        row("functional test", "15 20 00000001 01 01 00", "T 1 2 -3 V");
    }
    void LimitsComeFromTheFirstTestRecord()
    {
        const auto [later, expected] = CurrentRow<QByteArray, QString>();
        const auto contents = ReadBytes(
            FileOf({far, "15 10 00000001 01 01 00 00 3f800000 'T' '' 0e fd 00 00 3f800000 40000000 'V'",
                    later.constData()}));
        Stdf::TestDefaults defaults;
        defaults.Complete(contents.records[1]);
        const auto text = [](const std::optional<float>& limit) {
            return limit ? QString::number(double(*limit)) : "-";
        };
        const Stdf::TestSettings settings = defaults.Complete(contents.records[2]);
        QCOMPARE(QStringList({settings.text, text(settings.lowLimit), text(settings.highLimit),
                              QString::number(settings.resultScale), settings.unit})
                     .join(u' '),
                 expected);
    }

    void GzipIsReadToo()
    {
        const QByteArray plain = FileOf({far, "20 20"});
        const QByteArray member = Program::Run("gzip", {"-n9"}, {}, plain).output;
        QVERIFY(member.startsWith("\x1f\x8b"));
        QCOMPARE(ReadBytes(member + member).Names(), "FAR EPS FAR EPS");
        const auto padded = ReadBytes(member + QByteArray(1000, '\0'));
        QVERIFY(!padded.fault && padded.Names() == "FAR EPS");

        const auto cut = ReadBytes(member.chopped(12));
        QVERIFY(cut.fault);
        QCOMPARE(cut.fault->text, "the gzip data breaks off");
        QByteArray damaged = member;
        damaged[12] = static_cast<char>(~damaged[12]);
        QVERIFY(ReadBytes(damaged).fault);
    }

    void TextForPeople()
    {
        Input input(
            FileOf({far,
                    "1 10 00000001 66471a68 01 50 20 20 ffff 20 'LOT-1' 'Board' 'TESTER-3' '' 'motor.tp' "
                    "'1.2' '' 'Anna'",
                    pir, "15 10 00000001 01 01 00 00 414ccccd '[1]' '' 0c 03 03 03 3f800000 43fa0000 'V'",
                    "15 10 00000002 01 01 80 00 00000000 'No' '' cd 00 00 00 00000000 00000000 ''",
                    "5 20 01 01 08 0002 0000 ffff 8000 8000 00003039 'SN1' 'Board'",
                    "1 40 01 01 0001 00000001 46 'bad'",
                    "1 30 01 01 00000001 ffffffff ffffffff 00000000 ffffffff", "1 20 66471a74"}));
        QCOMPARE(Golden::Difference("tool", "lot.txt", Lines(&input).join(u'\n').toUtf8()), QString());

        // Of a lot in which all passed only the counts are left.
        Input passed(FileOf({far, mir, pir, ptr, prr, pcr, mrr}));
        const QStringList lines = Lines(&passed, true);
        QVERIFY2(lines.filter("Test").isEmpty() && !lines.filter("1 good").isEmpty(),
                 qPrintable(lines.join(u'\n')));
    }
};

QTEST_GUILESS_MAIN(StdfReaderTest)
#include "StdfReaderTest.moc"
