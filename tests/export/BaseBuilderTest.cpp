#include "FaultDevices.h"

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
    using CExportBuilderImp::OpenedDevice;
    using CExportBuilderImp::rawMode;
    using CExportBuilderImp::readWrite;
    using CExportBuilderImp::RelativeToOutput;
    using CExportBuilderImp::RemoveOutputFile;

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

QByteArray Content(const QString& fileName)
{
    QFile file(fileName);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("unreadable");
}

} // namespace

class BaseBuilderTest : public QObject {
    Q_OBJECT

private slots:
    void Properties();
    void DeviceFromOutside();
    void DeviceOpenedOnDemand_data();
    void DeviceOpenedOnDemand();
    void FileMode_data();
    void FileMode();
    void SecondFile();
    void FileThatCannotBeCreated();
    void DocumentAfterAFailedWalk();
    void PathsRelativeToOutput();
    void RemovedOutput();
    void OutputCompleteOverADocument();
    void OutputCompleteOnABreakingDevice();
    void OutputCompleteOnAFullDisk();

private:
    QString Path(const QString& name) const { return folder.filePath(name); }
    QTemporaryDir folder;
};

void BaseBuilderTest::Properties()
{
    LineBuilder builder;
    QCOMPARE(builder.GetProperty(u"ReportLogo"_s), QString());
    builder.SetProperty(u"ReportLogo"_s, u"first"_s);
    builder.SetProperty(u"ReportLogo"_s, u"second"_s);
    builder.SetProperty(u"reportlogo"_s, u"another key"_s);
    QCOMPARE(builder.GetProperty(u"ReportLogo"_s), u"first"_s);
    QCOMPARE(builder.GetProperty(u"reportlogo"_s), u"another key"_s);

    // An empty value is a value.
    builder.SetProperty(u"XMLStyle"_s, QString());
    builder.SetProperty(u"XMLStyle"_s, u"late"_s);
    QCOMPARE(builder.GetProperty(u"XMLStyle"_s), QString());
}

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

void BaseBuilderTest::DeviceOpenedOnDemand_data()
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

void BaseBuilderTest::DeviceOpenedOnDemand()
{
    QFETCH(bool, rawMode);
    QFETCH(bool, readWrite);
    QFETCH(QIODevice::OpenMode, mode);
    LineBuilder builder;
    builder.rawMode = rawMode;
    builder.readWrite = readWrite;
    QVERIFY(!builder.OpenedDevice());
    QVERIFY(!builder.Open());

    QFile file(Path(u"on-demand"_s));
    builder.SetDevice(&file);
    QCOMPARE(builder.OpenedDevice(), &file);
    QCOMPARE(file.openMode(), mode);
    // One that is open is taken as it is.
    QCOMPARE(builder.OpenedDevice(), &file);

    QFile nowhere(Path(u"missing/file"_s));
    builder.SetDevice(&nowhere);
    QVERIFY(!builder.OpenedDevice());
    builder.SetDevice(nullptr);
}

void BaseBuilderTest::FileMode_data()
{
    DeviceOpenedOnDemand_data();
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
    QCOMPARE(Content(old.fileName()),
             mode & QIODevice::Truncate ? QByteArray("begin\n") : QByteArray("begin\n6789"));
}

void BaseBuilderTest::SecondFile()
{
    LineBuilder builder;
    QVERIFY(builder.OpenFile(Path(u"one"_s)));
    const QPointer<QIODevice> first = builder.GetDevice();
    QVERIFY(builder.OpenFile(Path(u"two"_s)));
    QVERIFY(!first);
    QVERIFY(builder.Open() && builder.BeginTestResults() && builder.Close());
    QCOMPARE(Content(Path(u"one"_s)), QByteArray());
    QCOMPARE(Content(Path(u"two"_s)), QByteArray("begin\n"));
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
    QVERIFY(builder.Open() && builder.BeginTestResults());
    // No Close: the walk ended early.
    QVERIFY(builder.OpenFile(Path(u"next"_s)));
    QVERIFY(!builder.IsOpened());
    QVERIFY(!builder.OutputComplete());
    QVERIFY(builder.Open() && builder.EndTestResults() && builder.Close());
    QVERIFY(builder.OutputComplete());
    QCOMPARE(Content(Path(u"broken"_s)), QByteArray("begin\n"));
    QCOMPARE(Content(Path(u"next"_s)), QByteArray("end\n"));
}

void BaseBuilderTest::PathsRelativeToOutput()
{
    LineBuilder builder;
    QCOMPARE(builder.RelativeToOutput(u"/media/logo.png"_s), u"/media/logo.png"_s);
    QVERIFY(builder.OpenFile(Path(u"report"_s)));
    QCOMPARE(builder.RelativeToOutput(Path(u"media/logo.png"_s)), u"media/logo.png"_s);
    QCOMPARE(builder.RelativeToOutput(QFileInfo(folder.path()).path() + u"/logo.png"_s), u"../logo.png"_s);
}

void BaseBuilderTest::RemovedOutput()
{
    LineBuilder builder;
    QVERIFY(!builder.RemoveOutputFile());
    QVERIFY(builder.OpenFile(Path(u"removed"_s)));
    QVERIFY(builder.RemoveOutputFile());
    QVERIFY(!QFile::exists(Path(u"removed"_s)));
    QVERIFY(!builder.RemoveOutputFile());
}

void BaseBuilderTest::OutputCompleteOverADocument()
{
    LineBuilder builder;
    QVERIFY(!builder.OutputComplete());
    QVERIFY(builder.OpenFile(Path(u"whole"_s)));
    QVERIFY(!builder.OutputComplete());
    QVERIFY(builder.Open() && builder.BeginTestResults());
    QVERIFY(!builder.OutputComplete());
    QVERIFY(builder.Close());
    QVERIFY(builder.OutputComplete());
    QVERIFY(builder.OpenFile(Path(u"whole"_s)));
    QVERIFY(!builder.OutputComplete());
}

void BaseBuilderTest::OutputCompleteOnABreakingDevice()
{
    LineBuilder builder;
    const auto document = [&](int goodWrites) {
        BreakingDevice device(goodWrites);
        builder.SetDevice(&device);
        builder.Open();
        builder.BeginTestResults();
        builder.EndTestResults();
        builder.Close();
        return device.written;
    };
    QCOMPARE(document(0), QByteArray());
    QVERIFY(!builder.OutputComplete());
    QCOMPARE(document(1), QByteArray("begin\n"));
    QVERIFY(!builder.OutputComplete());
    // A loss is forgotten with the next document.
    QCOMPARE(document(2), QByteArray("begin\nend\n"));
    QVERIFY(builder.OutputComplete());
}

void BaseBuilderTest::OutputCompleteOnAFullDisk()
{
    LineBuilder builder;
    QVERIFY(builder.OpenFile(u"/dev/full"_s));
    QVERIFY(builder.Open() && builder.BeginTestResults() && builder.Close());
    QVERIFY(!builder.OutputComplete());

    QBuffer buffer;
    builder.SetDevice(&buffer);
    QVERIFY(builder.Open() && builder.BeginTestResults() && builder.Close());
    QVERIFY(builder.OutputComplete());
    QCOMPARE(buffer.data(), QByteArray("begin\n"));

    QVERIFY(builder.OpenFile(Path(u"after"_s)));
    QVERIFY(builder.Open() && builder.BeginTestResults() && builder.Close());
    QVERIFY(builder.OutputComplete());
}

QTEST_GUILESS_MAIN(BaseBuilderTest)
#include "BaseBuilderTest.moc"
