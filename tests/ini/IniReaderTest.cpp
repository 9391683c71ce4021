#include <ZYNIni/IniReader.h>

#include <QtCore/QBuffer>
#include <QtCore/QFile>
#include <QtCore/QTemporaryDir>
#include <QtTest/QTest>

using namespace ZYN;

namespace {

QString SectionsOf(const IniReader& reader)
{
    QStringList names;
    for (const IniSection& section : reader.getAllSections())
        names.append(QStringLiteral("%1@%2").arg(section.getName()).arg(section.getLine()));
    return names.join(QLatin1Char(' '));
}

/// Gives some bytes and then fails, as a drive that is pulled out does.
class FailingDevice : public QIODevice {
public:
    bool open(OpenMode mode) override
    {
        const bool opened = QIODevice::open(mode);
        setErrorString(QStringLiteral("drive is gone"));
        return opened;
    }
    qint64 size() const override { return 1000; }

protected:
    qint64 readData(char* data, qint64 maxSize) override
    {
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

/// An endless device of one byte; counts what is taken from it.
class EndlessDevice : public QIODevice {
public:
    explicit EndlessDevice(char byte)
        : m_byte(byte)
    {
    }
    bool isSequential() const override { return true; }
    qint64 bytesAvailable() const override { return 1'000'000'000; }
    qint64 taken = 0;

protected:
    qint64 readData(char* data, qint64 maxSize) override
    {
        memset(data, m_byte, size_t(maxSize));
        taken += maxSize;
        return maxSize;
    }
    qint64 writeData(const char*, qint64) override { return -1; }

private:
    char m_byte;
};

} // namespace

class IniReaderTest : public QObject {
    Q_OBJECT
private slots:
    void ReadsSectionsAndValues_data();
    void ReadsSectionsAndValues();
    void SectionsOfOneNameStayApart();
    void NamesAndKeysAreCaseSensitive();
    void NamesTheFault_data();
    void NamesTheFault();
    void LongestLineIsRead();
    void EndlessInputIsGivenUpEarly_data();
    void EndlessInputIsGivenUpEarly();
    void SayThatTheDeviceFailed();
    void SayThatTheFileDoesNotOpen();
    void ReadsAgain();
};

void IniReaderTest::ReadsSectionsAndValues_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("sections");
    QTest::addColumn<QString>("value"); // of the key "k" in section "s"
    const auto row = [](const char* name, const QByteArray& bytes, const char* sections, const char* value) {
        QTest::newRow(name) << bytes << QString::fromUtf8(sections) << QString::fromUtf8(value);
    };
    row("empty", "", "", "");
    row("no line end", "[s]\nk=v", "s@1", "v");
    row("CRLF", "[s]\r\nk=v\r\n\r\n[t]\r\n", "s@1 t@4", "v");
    row("byte-order mark", "\xEF\xBB\xBF[s]\nk=v\n", "s@1", "v");
    row("only a mark", "\xEF\xBB\xBF", "", "");
    row("trimmed", "  [ s ]\t\n \tk  =  a b \t\n", "s@1", "a b");
    row("comments", "; one\n# two\n[s]\n;k=x\n  #k=y\nk=v ; not a comment\n", "s@3", "v ; not a comment");
    row("value with signs", "[s]\nk=a=b[c]#;\"d\"\n", "s@1", "a=b[c]#;\"d\"");
    row("empty value", "[s]\nk=\n", "s@1", "");
    row("file order, not sorted", "[z]\n[s]\nk=1\n[a]\n", "z@1 s@2 a@4", "1");
    row("section with a bracket", "[a]b]\n[s]\nk=1\n", "a]b@1 s@2", "1");
    row("not ASCII", "[s]\nk=\xC3\x84\xE2\x84\xA6\xF0\x9F\x94\x8B\n", "s@1",
        "\xC3\x84\xE2\x84\xA6\xF0\x9F\x94\x8B");
    row("same key in two sections", "[r]\nk=1\n[s]\nk=2\n", "r@1 s@3", "2");
}

void IniReaderTest::ReadsSectionsAndValues()
{
    QFETCH(QByteArray, bytes);
    QBuffer buffer(&bytes);
    IniReader reader(&buffer);
    QVERIFY2(reader.read(), qPrintable(reader.getErrorText()));
    QTEST(SectionsOf(reader), "sections");
    QTEST(reader.getPropertyValue(QStringLiteral("s"), QStringLiteral("k")), "value");
    QCOMPARE(reader.getErrorLine(), 0);
    QCOMPARE(reader.getErrorText(), QString());
    QVERIFY(!buffer.isOpen());
}

void IniReaderTest::SectionsOfOneNameStayApart()
{
    QByteArray bytes = "[BIN1]\nk=1\n[BIN2]\n[BIN1]\nk=2\nm=3\n";
    QBuffer buffer(&bytes);
    IniReader reader(&buffer);
    QVERIFY(reader.read());
    QCOMPARE(SectionsOf(reader), QStringLiteral("BIN1@1 BIN2@3 BIN1@4"));
    QCOMPARE(reader.getPropertyValue(QStringLiteral("BIN1"), QStringLiteral("k")), QStringLiteral("1"));
    QCOMPARE(reader.getPropertyValue(QStringLiteral("BIN1"), QStringLiteral("m")), QStringLiteral("3"));
}

void IniReaderTest::NamesAndKeysAreCaseSensitive()
{
    QByteArray bytes = "[s]\nk=1\nK=2\n[S]\nk=3\n";
    QBuffer buffer(&bytes);
    IniReader reader(&buffer);
    QVERIFY(reader.read());
    QCOMPARE(reader.getPropertyValue(QStringLiteral("s"), QStringLiteral("K")), QStringLiteral("2"));
    QCOMPARE(reader.getPropertyValue(QStringLiteral("S"), QStringLiteral("k")), QStringLiteral("3"));
    QCOMPARE(reader.getPropertyValue(QStringLiteral("S"), QStringLiteral("K")), QString());
    QCOMPARE(reader.getPropertyValue(QStringLiteral("x"), QStringLiteral("k")), QString());
}

void IniReaderTest::NamesTheFault_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<int>("line");
    QTest::addColumn<QString>("part"); // of the error text
    QTest::newRow("no key and value") << QByteArray("[s]\nk=1\nhello\n") << 3 << "key=value";
    QTest::newRow("no key") << QByteArray("[s]\n = 1\n") << 2 << "no key";
    QTest::newRow("before a section") << QByteArray("\n\nk=1\n[s]\n") << 3 << "'k'";
    QTest::newRow("key twice") << QByteArray("[s]\nk=1\n[t]\nk=1\n\nk=2\n") << 6 << "'k'";
    QTest::newRow("section not closed") << QByteArray("[s\n") << 1 << "']'";
    QTest::newRow("text after a section") << QByteArray("[s] ; comment\n") << 1 << "']'";
    QTest::newRow("section without a name") << QByteArray("[s]\n[ ]\n") << 2 << "no name";
    QTest::newRow("bracket alone") << QByteArray("[\n") << 1 << "']'";
    QTest::newRow("Latin-1") << QByteArray("[s]\nk=\xE4\n") << 2 << "UTF-8";
    QTest::newRow("cut off character") << QByteArray("[s]\nk=\xE2\x84") << 2 << "UTF-8";
    QTest::newRow("surrogate") << QByteArray("[s]\nk=\xED\xA0\x80\n") << 2 << "UTF-8";
    QTest::newRow("also in a comment") << QByteArray("; \xFF\n[s]\n") << 1 << "UTF-8";
    QTest::newRow("NUL") << QByteArray("[s]\nk=\0\n", 7) << 2 << "NUL";
    QTest::newRow("UTF-16") << QByteArray("\xFF\xFE[\0s\0]\0\n\0", 10) << 1 << "NUL";
    QTest::newRow("old line ends") << QByteArray("[s]\rk=1\r") << 1 << "carriage return";
    QTest::newRow("too long") << QByteArray("[s]\nk=") + QByteArray(IniReader::MaximumLineBytes, 'x') << 2
                              << "1048576";
}

void IniReaderTest::NamesTheFault()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QString, part);
    QBuffer buffer(&bytes);
    IniReader reader(&buffer);
    QVERIFY(!reader.read());
    QTEST(reader.getErrorLine(), "line");
    QVERIFY2(reader.getErrorText().contains(part), qPrintable(reader.getErrorText()));
    QVERIFY(reader.getAllSections().isEmpty());
}

void IniReaderTest::LongestLineIsRead()
{
    const QByteArray value(IniReader::MaximumLineBytes - 2, 'x');
    QByteArray bytes = "[s]\r\nk=" + value + "\r\n[t]\r\n";
    QBuffer buffer(&bytes);
    IniReader reader(&buffer);
    QVERIFY2(reader.read(), qPrintable(reader.getErrorText()));
    QCOMPARE(SectionsOf(reader), QStringLiteral("s@1 t@3"));
    QCOMPARE(reader.getPropertyValue(QStringLiteral("s"), QStringLiteral("k")).size(), value.size());
}

void IniReaderTest::EndlessInputIsGivenUpEarly_data()
{
    QTest::addColumn<char>("byte");
    QTest::newRow("zeros") << '\0';
    QTest::newRow("letters") << 'x';
    QTest::newRow("not UTF-8") << '\xFF';
}

void IniReaderTest::EndlessInputIsGivenUpEarly()
{
    QFETCH(char, byte);
    EndlessDevice device(byte);
    IniReader reader(&device);
    QVERIFY(!reader.read());
    QCOMPARE(reader.getErrorLine(), 1);
    QVERIFY2(device.taken <= 2 * IniReader::MaximumLineBytes, qPrintable(QString::number(device.taken)));
}

void IniReaderTest::SayThatTheDeviceFailed()
{
    FailingDevice device;
    IniReader reader(&device);
    QVERIFY(!reader.read());
    QCOMPARE(reader.getErrorLine(), 0);
    QCOMPARE(reader.getErrorText(), QStringLiteral("drive is gone"));
    QVERIFY(reader.getAllSections().isEmpty());

    IniReader without(nullptr);
    QVERIFY(!without.read());
    QVERIFY(!without.getErrorText().isEmpty());
}

void IniReaderTest::SayThatTheFileDoesNotOpen()
{
    const QTemporaryDir folder;
    QFile missing(folder.filePath(QStringLiteral("missing.ini")));
    IniReader reader(&missing);
    QVERIFY(!reader.read());
    QCOMPARE(reader.getErrorLine(), 0);
    QVERIFY2(reader.getErrorText().contains(QStringLiteral("No such file")),
             qPrintable(reader.getErrorText()));

    QFile directory(folder.path());
    IniReader onDirectory(&directory);
    QVERIFY(!onDirectory.read());

    QFile written(folder.filePath(QStringLiteral("out.ini")));
    QVERIFY(written.open(QIODevice::WriteOnly));
    IniReader onWriter(&written);
    QVERIFY(!onWriter.read());
    QVERIFY(!onWriter.getErrorText().isEmpty());
}

void IniReaderTest::ReadsAgain()
{
    QByteArray bytes = "[s]\nbroken\n";
    QBuffer buffer(&bytes);
    IniReader reader(&buffer);
    QVERIFY(!reader.read());
    bytes = "[s]\nk=1\n";
    QVERIFY(reader.read());
    QCOMPARE(reader.getErrorLine(), 0);
    QCOMPARE(SectionsOf(reader), QStringLiteral("s@1"));
    QVERIFY(reader.read());
    QCOMPARE(SectionsOf(reader), QStringLiteral("s@1"));
}

QTEST_APPLESS_MAIN(IniReaderTest)
#include "IniReaderTest.moc"
