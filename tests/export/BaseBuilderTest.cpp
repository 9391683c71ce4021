
#include "support/Test.h"

#include "report/CReportBuilderStream.h"

#include <memory>

using namespace ZYN;

namespace {

/// A format of one line for each result bracket.
class LineBuilder : public CReportBuilderStream {
public:
    using CExportBuilderImp::rawMode;
    using CExportBuilderImp::readWrite;
    using CExportBuilderImp::RelativeToOutput;

    bool Write(const char* line)
    {
        stream << line << Qt::endl;
        return true;
    }
    bool BeginTestResults() override { return Write("begin"); }
    bool EndTestResults() override { return Write("end"); }
};

} // namespace

class BaseBuilderTest : public QObject {
    Q_OBJECT

private slots:
    void DeviceFromOutside()
    {
        QBuffer first;
        QBuffer second;
        QVERIFY(first.open(QIODevice::WriteOnly) && second.open(QIODevice::WriteOnly));
        {
            LineBuilder builder;
            builder.SetDevice(&first);
            builder.SetDevice(&first);
            QVERIFY(first.isOpen());

            builder.SetDevice(&second);
            QVERIFY(!first.isOpen());
            QCOMPARE(builder.GetDevice(), &second);

            builder.SetDevice(nullptr);
            QVERIFY(!second.isOpen());
            QVERIFY(!builder.GetDevice());

            QVERIFY(second.open(QIODevice::WriteOnly));
            builder.SetDevice(&second);
        }
        // The end of the builder touches no device but its own file.
        QVERIFY(second.isOpen());
    }

    void FileMode_data()
    {
        const Rows<bool, bool, QIODevice::OpenMode> row;
        const QIODevice::OpenMode fresh = QIODevice::WriteOnly | QIODevice::Truncate;
        row("text", false, false, (fresh | QIODevice::Text));
        row("text ignores read-write", false, true, (fresh | QIODevice::Text));
        row("raw", true, false, fresh);
        row("raw read-write", true, true, QIODevice::OpenMode(QIODevice::ReadWrite));
    }
    void FileMode()
    {
        const auto [rawMode, readWrite, mode] = CurrentRow<bool, bool, QIODevice::OpenMode>();
        const QString old = Files::Write(Path("old"), "0123456789");
        LineBuilder builder;
        builder.rawMode = rawMode;
        builder.readWrite = readWrite;
        QVERIFY(builder.OpenFile(old));
        QCOMPARE(builder.GetDevice()->openMode(), mode);
        QVERIFY(builder.Open() && builder.BeginTestResults() && builder.Close());
        // What lies beyond the new text stays only where the file is not truncated.
        QCOMPARE(Files::Content(old),
                 mode & QIODevice::Truncate ? QByteArray("begin\n") : QByteArray("begin\n6789"));
    }

    void FileThatCannotBeCreated()
    {
        LineBuilder builder;
        QVERIFY(builder.OpenFile(Path("good")));
        QVERIFY(!builder.OpenFile(Path("missing/file")));
        QVERIFY(!builder.GetDevice());
        QVERIFY(!builder.Open());
        QVERIFY(!builder.OutputComplete());
    }

    void PathsRelativeToOutput()
    {
        LineBuilder builder;
        QCOMPARE(builder.RelativeToOutput("/media/logo.png"), "/media/logo.png");
        QVERIFY(builder.OpenFile(Path("report")));
        QCOMPARE(builder.RelativeToOutput(Path("media/logo.png")), "media/logo.png");
        QCOMPARE(builder.RelativeToOutput(QFileInfo(folder.path()).path() + "/logo.png"), "../logo.png");
    }

private:
    QString Path(const QString& name) const { return folder.filePath(name); }
    QTemporaryDir folder;
};

QTEST_GUILESS_MAIN(BaseBuilderTest)
#include "BaseBuilderTest.moc"
