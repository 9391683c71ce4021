#include "support/Test.h"

#include <ZYNIni/IniReader.h>

using namespace ZYN;

namespace {

QString SectionsOf(const IniReader& reader)
{
    QStringList names;
    for (const IniSection& section : reader.getAllSections())
        names.append(QString("%1@%2").arg(section.getName()).arg(section.getLine()));
    return names.join(QLatin1Char(' '));
}

/// Gives some bytes and then fails, as a drive that is pulled out does.
class FailingDevice : public QIODevice {
public:
    qint64 size() const override { return 1000; }

protected:
    qint64 readData(char* data, qint64 maxSize) override
    {
        setErrorString("drive is gone");
        if (m_given || maxSize < 4)
            return -1;
        m_given = true;
        memcpy(data, "[a]\n", 4);
        return 4;
    }
    qint64 writeData(const char*, qint64) override { return -1; }

private:
    bool m_given = false;
};

} // namespace

class IniReaderTest : public QObject {
    Q_OBJECT
private slots:
    void ReadsSectionsAndValues_data()
    {

        const Rows<QByteArray, QString, QString> row;
        row("no line end", "[s]\nk=v", "s@1", "v");
        row("CRLF", "[s]\r\nk=v\r\n\r\n[t]\r\n", "s@1 t@4", "v");
        row("byte-order mark", "\xEF\xBB\xBF[s]\nk=v\n", "s@1", "v");
        row("trimmed", "  [ s ]\t\n \tk  =  a b \t\n", "s@1", "a b");
        row("comments", "; one\n# two\n[s]\n;k=x\n  #k=y\nk=v ; not a comment\n", "s@3", "v ; not a comment");
        row("value with signs", "[s]\nk=a=b[c]#;\"d\"\n", "s@1", "a=b[c]#;\"d\"");
        row("empty value", "[s]\nk=\n", "s@1", "");
        row("file order, not sorted", "[z]\n[s]\nk=1\n[a]\n", "z@1 s@2 a@4", "1");
        row("section with a bracket", "[a]b]\n[s]\nk=1\n", "a]b@1 s@2", "1");
        row("not ASCII", "[s]\nk=\xC3\x84\xE2\x84\xA6\xF0\x9F\x94\x8B\n", "s@1",
            "\xC3\x84\xE2\x84\xA6\xF0\x9F\x94\x8B");
    }
    void ReadsSectionsAndValues()
    {
        auto [bytes, sections, value] = CurrentRow<QByteArray, QString, QString>();
        QBuffer buffer(&bytes);
        IniReader reader(&buffer);
        QVERIFY2(reader.read(), qPrintable(reader.getErrorText()));
        QCOMPARE(SectionsOf(reader), sections);
        QCOMPARE(reader.getPropertyValue("s", "k"), value);
        QCOMPARE(reader.getErrorLine(), 0);
        QCOMPARE(reader.getErrorText(), QString());
        QVERIFY(!buffer.isOpen());
    }

    void SectionsOfOneNameStayApartAndCaseCounts()
    {
        QByteArray bytes = "[BIN1]\nk=1\n[BIN2]\n[BIN1]\nk=2\nm=3\nK=4\n[bin1]\nx=5\n";
        QBuffer buffer(&bytes);
        IniReader reader(&buffer);
        QVERIFY(reader.read());
        QCOMPARE(SectionsOf(reader), "BIN1@1 BIN2@3 BIN1@4 bin1@8");
        const auto value = [&reader](const char* section, const char* key) {
            return reader.getPropertyValue(QString::fromLatin1(section), QString::fromLatin1(key));
        };
        QCOMPARE(value("BIN1", "k"), "1");
        QCOMPARE(value("BIN1", "m"), "3");
        QCOMPARE(value("BIN1", "K"), "4");
        QCOMPARE(value("BIN1", "x"), QString());
    }

    void NamesTheFault_data()
    {

        const Rows<QByteArray, int, QString> row;
        row("no key and value", "[s]\nk=1\nhello\n", 3, "key=value");
        row("no key", "[s]\n = 1\n", 2, "no key");
        row("key twice", "[s]\nk=1\n[t]\nk=1\n\nk=2\n", 6, "'k'");
        row("section not closed", "[s\n", 1, "']'");
        row("section without a name", "[s]\n[ ]\n", 2, "no name");
        row("Latin-1", "[s]\nk=\xE4\n", 2, "UTF-8");
        row("also in a comment", "; \xFF\n[s]\n", 1, "UTF-8");
        row("NUL", QByteArray("[s]\nk=\0\n", 7), 2, "NUL");
        row("UTF-16", QByteArray("\xFF\xFE[\0s\0]\0\n\0", 10), 1, "NUL");
        row("old line ends", "[s]\rk=1\r", 1, "carriage return");
        row("too long", QByteArray("[s]\nk=") + QByteArray(IniReader::MaximumLineBytes, 'x'), 2, "1048576");
    }
    void NamesTheFault()
    {
        auto [bytes, line, part] = CurrentRow<QByteArray, int, QString>();
        QBuffer buffer(&bytes);
        IniReader reader(&buffer);
        QVERIFY(!reader.read());
        QCOMPARE(reader.getErrorLine(), line);
        QVERIFY2(reader.getErrorText().contains(part), qPrintable(reader.getErrorText()));
        QVERIFY(reader.getAllSections().isEmpty());
        bytes = "[s]\nk=1\n"; // nothing of it stays when the device is read again
        QVERIFY(reader.read());
        QCOMPARE(reader.getErrorLine(), 0);
        QCOMPARE(SectionsOf(reader), "s@1");
    }

    void LongestLineIsRead()
    {
        const QByteArray value(IniReader::MaximumLineBytes - 2, 'x');
        QByteArray bytes = "[s]\r\nk=" + value + "\r\n[t]\r\n";
        QBuffer buffer(&bytes);
        IniReader reader(&buffer);
        QVERIFY2(reader.read(), qPrintable(reader.getErrorText()));
        QCOMPARE(SectionsOf(reader), "s@1 t@3");
        QCOMPARE(reader.getPropertyValue("s", "k").size(), value.size());
    }

    void EndlessInputIsGivenUpEarly()
    {
        QFile zeros("/dev/zero");
        IniReader reader(&zeros);
        QVERIFY(!reader.read());
        QCOMPARE(reader.getErrorLine(), 1);
    }

    void DevicesThatFail()
    {
        FailingDevice device;
        IniReader reader(&device);
        QVERIFY(!reader.read());
        QCOMPARE(reader.getErrorLine(), 0);
        QCOMPARE(reader.getErrorText(), "drive is gone");
        QVERIFY(reader.getAllSections().isEmpty());

        const QTemporaryDir folder;
        QFile directory(folder.path());
        QFile written(folder.filePath("out.ini"));
        QVERIFY(written.open(QIODevice::WriteOnly));
        for (QIODevice* const unreadable : std::initializer_list<QIODevice*>{nullptr, &directory, &written}) {
            IniReader none(unreadable);
            QVERIFY(!none.read());
            QVERIFY(!none.getErrorText().isEmpty());
        }
        QFile missing(folder.filePath("missing.ini"));
        IniReader onMissing(&missing);
        QVERIFY(!onMissing.read());
        QVERIFY2(onMissing.getErrorText().contains("No such file"), qPrintable(onMissing.getErrorText()));
    }
};

QTEST_APPLESS_MAIN(IniReaderTest)
#include "IniReaderTest.moc"
