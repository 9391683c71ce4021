#include <ZYNPersistence/BinningReader.h>

#include <QtCore/QTemporaryDir>
#include <QtTest/QTest>

#include <thread>
#include <vector>

using namespace ZYN;
using namespace Qt::StringLiterals;

namespace {

const char* const Unreadable = "Could not read from binning file or it has an ini syntax error";

/// A complete section; the three properties can be replaced.
QByteArray Section(const QByteArray& name, const QByteArray& binName, const QByteArray& type = "HARD",
                   const QByteArray& result = "PASS")
{
    return '[' + name + "]\n_NAME_=" + binName + "\n_TYPE_=" + type + "\n_RESULT_=" + result + '\n';
}

QString Describe(const Binning& binning)
{
    QStringList texts;
    for (auto it = binning.bins.cbegin(); it != binning.bins.cend(); ++it) {
        if (it.key() != it->id)
            return u"key and id differ"_s;
        texts += u"%1 %2 %3 %4"_s.arg(QString::number(it->id), it->name,
                                      it->type == BinType::Hard ? u"hard"_s : u"soft"_s,
                                      it->result == BinResult::Pass ? u"pass"_s : u"fail"_s);
    }
    return texts.join(u"; "_s);
}

} // namespace

class BinningReaderTest : public QObject {
    Q_OBJECT

private slots:
    void valid_data();
    void valid();
    void fault_data();
    void fault();
    void missingFileAndFolder();
    void manyBinsOnManyThreads();

private:
    QString Write(const QByteArray& content);

    QTemporaryDir folder;
};

QString BinningReaderTest::Write(const QByteArray& content)
{
    QFile file(folder.filePath(u"bins.ini"_s));
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
        qFatal("cannot write the test's input");
    return file.fileName();
}

void BinningReaderTest::valid_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QString>("bins");

    QTest::newRow("empty file") << QByteArray() << QString();
    QTest::newRow("ascending by id, not by place")
        << Section("BIN10", "Open", "SOFT", "FAIL") + Section("BIN2", "Good")
        << u"2 Good hard pass; 10 Open soft fail"_s;
    QTest::newRow("pattern anywhere in the name, first digits count")
        << Section("SUBBIN7X BIN8", "Seven") << u"7 Seven hard pass"_s;
    QTest::newRow("id too large is 0") << Section("BIN99999999999", "x") << u"0 x hard pass"_s;
    QTest::newRow("largest id") << Section("BIN2147483647", "x") << u"2147483647 x hard pass"_s;
    QTest::newRow("other properties, comments, CRLF, mark")
        << QByteArray("\xEF\xBB\xBF; bins\r\n[BIN1]\r\ncolour=red\r\n_NAME_=G\xC3\xBCt=1\r\n_TYPE_=HARD\r\n"
                      "_RESULT_=PASS\r\n")
        << u"1 Güt=1 hard pass"_s;
}

void BinningReaderTest::valid()
{
    QFETCH(QByteArray, content);
    QFETCH(QString, bins);
    const QString fileName = Write(content);
    QString errorText = u"untouched"_s;
    const Binning binning = BinningReader::read(fileName, errorText);
    QCOMPARE(errorText, u"untouched"_s);
    QVERIFY(binning.valid);
    QCOMPARE(binning.fileName, fileName);
    QCOMPARE(Describe(binning), bins);
}

void BinningReaderTest::fault_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QString>("message");
    const auto row = [](const char* name, const QByteArray& content, const QByteArray& message) {
        QTest::newRow(name) << content << QString::fromUtf8(message);
    };

    const char* const badName = "Section 'BIN1' must have property '_NAME_'";
    const char* const badType = "Section 'BIN1' must have property '_TYPE_' with value 'HARD' or 'SOFT'";
    const char* const badResult = "Section 'BIN1' must have property '_RESULT_' with value 'PASS' or 'FAIL'";
    for (const char* name : {"bin7", "Bin7", "BIN", "BIN\xD9\xA1", "%1 %2"})
        row(name, Section(name, "a"),
            QByteArray("Section '") + name + "' has not the expected format 'BIN<bin-id>'");
    row("same id", Section("BIN1", "a") + Section("BIN01", "b"),
        "There are duplicate sections with bin id 1");
    row("id too large meets 0", Section("BIN0", "a") + Section("BIN4294967297", "b"),
        "There are duplicate sections with bin id 0");
    row("no name", "[BIN1]\n_TYPE_=HARD\n_RESULT_=PASS\n", badName);
    row("same name", Section("BIN1", "a") + Section("BIN2", "a"),
        "There are duplicate sections with bin name a");
    row("type in lower case", Section("BIN1", "a", "hard"), badType);
    row("no result", "[BIN1]\n_NAME_=a\n_TYPE_=SOFT\n", badResult);

    // The order of the checks: every fault comes before those that follow it in the same section.
    row("id before name", Section("BIN1", "a") + Section("BIN1x", ""),
        "There are duplicate sections with bin id 1");
    row("same name before type", Section("BIN1", "a") + Section("BIN2", "a", "x", "x"),
        "There are duplicate sections with bin name a");
    row("type before result", Section("BIN1", "a", "x", "x"), badType);
    row("first section in file order", Section("BIN9", "a", "SOFT", "x") + Section("oops", "b"),
        "Section 'BIN9' must have property '_RESULT_' with value 'PASS' or 'FAIL'");

    row("no key and value", Section("BIN1", "a") + "oops\n", Unreadable);
    row("line of 100 MiB", "[BIN1]\n_NAME_=" + QByteArray(100 << 20, 'a'), Unreadable);
    row("zeros", QByteArray(1 << 20, '\0'), Unreadable);
    QByteArray binary;
    for (int i = 0; i < 1 << 20; ++i)
        binary += static_cast<char>((i * 2654435761U) >> 24);
    row("binary", binary, Unreadable);
}

void BinningReaderTest::fault()
{
    QFETCH(QByteArray, content);
    QFETCH(QString, message);
    QString errorText;
    const Binning binning = BinningReader::read(Write(content), errorText);
    QCOMPARE(errorText, message);
    QVERIFY(!binning.valid);
    QVERIFY(binning.fileName.isEmpty());
    QVERIFY(binning.bins.isEmpty());
}

void BinningReaderTest::missingFileAndFolder()
{
    for (const QString& name : {folder.filePath(u"missing.ini"_s), folder.path(), QString()}) {
        QString errorText;
        QVERIFY(!BinningReader::read(name, errorText).valid);
        QCOMPARE(errorText, QLatin1String(Unreadable));
    }
}

void BinningReaderTest::manyBinsOnManyThreads()
{
    constexpr int count = 20000;
    QByteArray content;
    for (int i = 0; i < count; ++i)
        content += Section("BIN" + QByteArray::number(i), "name " + QByteArray::number(i));
    const QString fileName = Write(content);
    std::vector<qsizetype> sizes(4);
    std::vector<std::thread> threads;
    for (qsizetype& size : sizes)
        threads.emplace_back([&fileName, &size] {
            QString errorText;
            size = BinningReader::read(fileName, errorText).bins.size();
        });
    for (std::thread& thread : threads)
        thread.join();
    for (const qsizetype size : sizes)
        QCOMPARE(size, count);
}

QTEST_APPLESS_MAIN(BinningReaderTest)
#include "BinningReaderTest.moc"
