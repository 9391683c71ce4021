#include "support/Test.h"

#include <ZYNPersistence/BinningReader.h>

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
            return "key and id differ";
        texts += QString("%1 %2 %3 %4")
                     .arg(QString::number(it->id), it->name, it->type == BinType::Hard ? "hard" : "soft",
                          it->result == BinResult::Pass ? "pass" : "fail");
    }
    return texts.join("; ");
}

} // namespace

class BinningReaderTest : public QObject {
    Q_OBJECT

private slots:
    void Valid_data()
    {
        const Rows<QByteArray, QString> row;
        row("empty file", QByteArray(), QString());
        row("ascending by id, not by place",
            Section("BIN10", "Open", "SOFT", "FAIL") + Section("BIN2", "Good"),
            "2 Good hard pass; 10 Open soft fail");
        row("pattern anywhere in the name, first digits count", Section("SUBBIN7X BIN8", "Seven"),
            "7 Seven hard pass");
        row("id too large is 0", Section("BIN99999999999", "x"), "0 x hard pass");
        row("largest id", Section("BIN2147483647", "x"), "2147483647 x hard pass");
    }
    void Valid()
    {
        const auto [content, bins] = CurrentRow<QByteArray, QString>();
        const QString fileName = Write(content);
        QString errorText = "untouched";
        const Binning binning = BinningReader::read(fileName, errorText);
        QCOMPARE(errorText, "untouched");
        QVERIFY(binning.valid);
        QCOMPARE(binning.fileName, fileName);
        QCOMPARE(Describe(binning), bins);
    }

    void Fault_data()
    {
        const Rows<QByteArray, QString> row;
        const char* const badName = "Section 'BIN1' must have property '_NAME_'";
        const char* const badType = "Section 'BIN1' must have property '_TYPE_' with value 'HARD' or 'SOFT'";
        const char* const badResult =
            "Section 'BIN1' must have property '_RESULT_' with value 'PASS' or 'FAIL'";
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
    }
    void Fault()
    {
        const auto [content, message] = CurrentRow<QByteArray, QString>();
        QString errorText;
        const Binning binning = BinningReader::read(Write(content), errorText);
        QCOMPARE(errorText, message);
        QVERIFY(!binning.valid);
        QVERIFY(binning.fileName.isEmpty());
        QVERIFY(binning.bins.isEmpty());
    }

    void MissingFileAndFolder()
    {
        for (const QString& name : {folder.filePath("missing.ini"), folder.path(), QString()}) {
            QString errorText;
            QVERIFY(!BinningReader::read(name, errorText).valid);
            QCOMPARE(errorText, QLatin1String(Unreadable));
        }
    }

private:
    QString Write(const QByteArray& content) { return Files::Write(folder.filePath("bins.ini"), content); }

    QTemporaryDir folder;
};

QTEST_APPLESS_MAIN(BinningReaderTest)
#include "BinningReaderTest.moc"
