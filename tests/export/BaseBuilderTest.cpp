#include "import/ReportFiles.h"

#include "export/CExportBuilderImp.h"

#include <QtCore/QBuffer>
#include <QtCore/QTemporaryDir>
#include <QtCore/QTextStream>
#include <QtTest/QtTest>

#include <memory>

using namespace ZYN;
using namespace Qt::StringLiterals;

namespace {

/// A format in the manner of all text formats: one line for each result bracket.
class LineBuilder : public CExportBuilderImp {
public:
    using CExportBuilderImp::rawMode;
    using CExportBuilderImp::readWrite;
    using CExportBuilderImp::RelativeToOutput;

    bool Open() override
    {
        if (!BindStream(stream))
            return false;
        SetOpened(true);
        return true;
    }
    bool Close() override
    {
        CheckOutput(stream);
        stream.setDevice(nullptr);
        SetDevice(nullptr);
        SetOpened(false);
        return true;
    }
    bool BeginTestResults() override
    {
        stream << "begin" << Qt::endl;
        return true;
    }
    bool EndTestResults() override
    {
        stream << "end" << Qt::endl;
        return true;
    }

private:
    QTextStream stream;
};

/// A device that tells when it was closed or deleted.
struct Watched {
    QBuffer* device = new QBuffer;
    bool closed = false;
    bool deleted = false;

    Watched()
    {
        QObject::connect(device, &QIODevice::aboutToClose, device, [this] { closed = true; });
        QObject::connect(device, &QObject::destroyed, [this] { deleted = true; });
        device->open(QIODevice::WriteOnly);
    }
    ~Watched()
    {
        if (!deleted)
            delete device;
    }
};

} // namespace

class BaseBuilderTest : public QObject {
    Q_OBJECT

private slots:
    void DeviceFromOutside();
    void FileMode_data();
    void FileMode();
    void FileThatCannotBeCreated();
    void DocumentAfterAFailedWalk();
    void PathsRelativeToOutput();

private:
    QString Path(const QString& name) const { return folder.filePath(name); }
    QTemporaryDir folder;
};

void BaseBuilderTest::DeviceFromOutside()
{
    Watched first;
    Watched second;
    {
        LineBuilder builder;
        builder.SetDevice(first.device);
        builder.SetDevice(first.device);
        QVERIFY(!first.closed);

        builder.SetDevice(second.device);
        QVERIFY(first.closed);
        QCOMPARE(builder.GetDevice(), second.device);

        builder.SetDevice(nullptr);
        QVERIFY(second.closed);
        QVERIFY(!builder.GetDevice());

        second.device->open(QIODevice::WriteOnly);
        second.closed = false;
        builder.SetDevice(second.device);
    }
    // The end of the builder touches no device but its own file.
    QVERIFY(!second.closed);
    QVERIFY(!first.deleted && !second.deleted);
}

void BaseBuilderTest::FileMode_data()
{
    QTest::addColumn<bool>("rawMode");
    QTest::addColumn<bool>("readWrite");
    QTest::addColumn<QIODevice::OpenMode>("mode");

    const QIODevice::OpenMode fresh = QIODevice::WriteOnly | QIODevice::Truncate;
    QTest::newRow("text") << false << false << (fresh | QIODevice::Text);
    QTest::newRow("text ignores read-write") << false << true << (fresh | QIODevice::Text);
    QTest::newRow("raw") << true << false << fresh;
    QTest::newRow("raw read-write") << true << true << QIODevice::OpenMode(QIODevice::ReadWrite);
}

void BaseBuilderTest::FileMode()
{
    QFETCH(bool, rawMode);
    QFETCH(bool, readWrite);
    QFETCH(QIODevice::OpenMode, mode);
    QFile old(Path(u"old"_s));
    QVERIFY(old.open(QIODevice::WriteOnly));
    old.write("0123456789");
    old.close();

    LineBuilder builder;
    builder.rawMode = rawMode;
    builder.readWrite = readWrite;
    QVERIFY(builder.OpenFile(old.fileName()));
    QCOMPARE(builder.GetDevice()->openMode(), mode);
    QVERIFY(builder.Open() && builder.BeginTestResults() && builder.Close());
    // What lies beyond the new text stays only where the file is not truncated.
    QCOMPARE(ReportFiles::Content(old.fileName()),
             mode & QIODevice::Truncate ? QByteArray("begin\n") : QByteArray("begin\n6789"));
}

void BaseBuilderTest::FileThatCannotBeCreated()
{
    LineBuilder builder;
    QVERIFY(builder.OpenFile(Path(u"good"_s)));
    QVERIFY(!builder.OpenFile(Path(u"missing/file"_s)));
    QVERIFY(!builder.GetDevice());
    QVERIFY(!builder.Open());
    QVERIFY(!builder.OutputComplete());
}

void BaseBuilderTest::DocumentAfterAFailedWalk()
{
    LineBuilder builder;
    QVERIFY(builder.OpenFile(Path(u"broken"_s)));
    QVERIFY(!builder.OutputComplete());
    QVERIFY(builder.Open() && builder.BeginTestResults());
    // No Close: the walk ended early.
    QVERIFY(builder.OpenFile(Path(u"next"_s)));
    QVERIFY(!builder.IsOpened());
    QVERIFY(!builder.OutputComplete());
    QVERIFY(builder.Open() && builder.EndTestResults() && builder.Close());
    QVERIFY(builder.OutputComplete());
    QCOMPARE(ReportFiles::Content(Path(u"broken"_s)), QByteArray("begin\n"));
    QCOMPARE(ReportFiles::Content(Path(u"next"_s)), QByteArray("end\n"));
}

void BaseBuilderTest::PathsRelativeToOutput()
{
    LineBuilder builder;
    QCOMPARE(builder.RelativeToOutput(u"/media/logo.png"_s), u"/media/logo.png"_s);
    QVERIFY(builder.OpenFile(Path(u"report"_s)));
    QCOMPARE(builder.RelativeToOutput(Path(u"media/logo.png"_s)), u"media/logo.png"_s);
    QCOMPARE(builder.RelativeToOutput(QFileInfo(folder.path()).path() + u"/logo.png"_s), u"../logo.png"_s);
}

QTEST_GUILESS_MAIN(BaseBuilderTest)
#include "BaseBuilderTest.moc"
