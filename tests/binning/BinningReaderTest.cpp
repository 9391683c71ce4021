#include <ZYNPersistence/BinningReader.h>

#include <QtCore/QTemporaryDir>
#include <QtTest/QTest>

#include <thread>
#include <vector>

using namespace ZYN;

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
            return QStringLiteral("key and id differ");
        texts += QStringLiteral("%1 %2 %3 %4")
                     .arg(QString::number(it->id), it->name,
                          it->type == BinType::Hard ? QStringLiteral("hard") : QStringLiteral("soft"),
                          it->result == BinResult::Pass ? QStringLiteral("pass") : QStringLiteral("fail"));
    }
    return texts.join(QStringLiteral("; "));
}

} // namespace

class BinningReaderTest : public QObject {
    Q_OBJECT

private slots:
    void valid_data();
    void valid();
    void fault_data();
    void fault();
    void longLineAndBinaryAreErrors_data();
    void longLineAndBinaryAreErrors();
    void missingFileAndFolder();
    void manyBinsOnManyThreads();

private:
    QString Write(const QByteArray& content);

    QTemporaryDir folder;
};

QString BinningReaderTest::Write(const QByteArray& content)
{
    QFile file(folder.filePath(QStringLiteral("bins.ini")));
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
        << QStringLiteral("2 Good hard pass; 10 Open soft fail");
    QTest::newRow("pattern anywhere in the name, first digits count")
        << Section("SUBBIN7X BIN8", "Seven") << QStringLiteral("7 Seven hard pass");
    QTest::newRow("names that differ in case") << Section("BIN1", "good") + Section("BIN2", "Good")
                                               << QStringLiteral("1 good hard pass; 2 Good hard pass");
    QTest::newRow("id too large is 0") << Section("BIN99999999999", "x") << QStringLiteral("0 x hard pass");
    QTest::newRow("largest id") << Section("BIN2147483647", "x") << QStringLiteral("2147483647 x hard pass");
    QTest::newRow("other properties, comments, CRLF, mark")
        << QByteArray("\xEF\xBB\xBF; bins\r\n[BIN1]\r\ncolour=red\r\n_NAME_=G\xC3\xBCt=1\r\n_TYPE_=HARD\r\n"
                      "_RESULT_=PASS\r\n")
        << QStringLiteral("1 Güt=1 hard pass");
}

void BinningReaderTest::valid()
{
    QFETCH(QByteArray, content);
    QFETCH(QString, bins);
    const QString fileName = Write(content);
    QString errorText = QStringLiteral("untouched");
    const Binning binning = BinningReader::read(fileName, errorText);
    QCOMPARE(errorText, QStringLiteral("untouched"));
    QVERIFY(binning.valid);
    QCOMPARE(binning.fileName, fileName);
    QCOMPARE(Describe(binning), bins);
}

void BinningReaderTest::fault_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QString>("message");
    const auto row = [](const char* name, const QByteArray& content, const char* message) {
        QTest::newRow(name) << content << QString::fromUtf8(message);
    };

    const char* const format = "Section '%s' has not the expected format 'BIN<bin-id>'";
    row("lower case", Section("bin7", "a"), qPrintable(QString::asprintf(format, "bin7")));
    row("mixed case", Section("Bin7", "a"), qPrintable(QString::asprintf(format, "Bin7")));
    row("no digits", Section("BIN", "a"), qPrintable(QString::asprintf(format, "BIN")));
    row("digits of another script", Section("BIN\xD9\xA1", "a"),
        qPrintable(QString::asprintf(format, "BIN\xD9\xA1")));
    row("name with a placeholder", Section("%1 %2", "a"), qPrintable(QString::asprintf(format, "%1 %2")));
    row("same id", Section("BIN1", "a") + Section("BIN01", "b"),
        "There are duplicate sections with bin id 1");
    row("id too large meets 0", Section("BIN0", "a") + Section("BIN4294967297", "b"),
        "There are duplicate sections with bin id 0");
    row("same section twice", Section("BIN3", "a") + Section("BIN3", "b"),
        "There are duplicate sections with bin id 3");
    row("no name", "[BIN1]\n_TYPE_=HARD\n_RESULT_=PASS\n", "Section 'BIN1' must have property '_NAME_'");
    row("empty name", Section("BIN1", ""), "Section 'BIN1' must have property '_NAME_'");
    row("same name", Section("BIN1", "a") + Section("BIN2", "a"),
        "There are duplicate sections with bin name a");
    row("type in lower case", Section("BIN1", "a", "hard"),
        "Section 'BIN1' must have property '_TYPE_' with value 'HARD' or 'SOFT'");
    row("no type", "[BIN1]\n_NAME_=a\n_RESULT_=PASS\n",
        "Section 'BIN1' must have property '_TYPE_' with value 'HARD' or 'SOFT'");
    row("result with a letter more", Section("BIN1", "a", "SOFT", "PASSED"),
        "Section 'BIN1' must have property '_RESULT_' with value 'PASS' or 'FAIL'");
    row("no result", "[BIN1]\n_NAME_=a\n_TYPE_=SOFT\n",
        "Section 'BIN1' must have property '_RESULT_' with value 'PASS' or 'FAIL'");

    // The order of the checks: every fault comes before those that follow it in the same section.
    row("id before name", Section("BIN1", "a") + Section("BIN1x", ""),
        "There are duplicate sections with bin id 1");
    row("missing name before the rest", Section("BIN1", "", "x", "x"),
        "Section 'BIN1' must have property '_NAME_'");
    row("same name before type", Section("BIN1", "a") + Section("BIN2", "a", "x", "x"),
        "There are duplicate sections with bin name a");
    row("type before result", Section("BIN1", "a", "x", "x"),
        "Section 'BIN1' must have property '_TYPE_' with value 'HARD' or 'SOFT'");
    row("first section in file order", Section("BIN9", "a", "SOFT", "x") + Section("oops", "b"),
        "Section 'BIN9' must have property '_RESULT_' with value 'PASS' or 'FAIL'");

    row("no key and value", Section("BIN1", "a") + "oops\n", Unreadable);
    row("key before the first section", "_NAME_=a\n", Unreadable);
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

void BinningReaderTest::longLineAndBinaryAreErrors_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::newRow("line of 100 MiB") << QByteArray("[BIN1]\n_NAME_=") + QByteArray(100 << 20, 'a');
    QTest::newRow("section name of 100 MiB") << QByteArray("[BIN") + QByteArray(100 << 20, '1') + "]\n";
    QByteArray binary;
    for (int i = 0; i < 1 << 20; ++i)
        binary += static_cast<char>((i * 2654435761U) >> 24);
    QTest::newRow("binary") << binary;
    QTest::newRow("zeros") << QByteArray(1 << 20, '\0');
}

void BinningReaderTest::longLineAndBinaryAreErrors()
{
    QFETCH(QByteArray, content);
    QString errorText;
    QVERIFY(!BinningReader::read(Write(content), errorText).valid);
    QCOMPARE(errorText, QLatin1String(Unreadable));
}

void BinningReaderTest::missingFileAndFolder()
{
    for (const QString& name : {folder.filePath(QStringLiteral("missing.ini")), folder.path(), QString()}) {
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
