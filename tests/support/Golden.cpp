#include "Golden.h"

#include "Files.h"
#include "Program.h"

#include <QtCore/QDir>
#include <QtCore/QTemporaryFile>

namespace ZYN::Golden {

QString Folder()
{
    return ZYN_SOURCE_DIR "/tests/golden";
}

QString Difference(const QString& caseName, const QString& fileName, const QByteArray& actual)
{
    const QString path = Folder() + '/' + caseName + '/' + fileName;
    const bool exists = QFile::exists(path);
    if (exists && Files::Content(path) == actual)
        return {};
    if (qEnvironmentVariable("ZYN_UPDATE_GOLDEN") == "1") {
        QDir().mkpath(QFileInfo(path).path());
        Files::Write(path, actual);
        return {};
    }
    if (!exists)
        return QString("no expectation %1; scripts/update-golden writes it").arg(path);
    QTemporaryFile scratch;
    if (!scratch.open())
        return "cannot write a scratch file";
    Files::Write(scratch.fileName(), actual);
    const auto diff = Program::Run("diff", {"-u", "--text", "--label", "expected " + path, "--label",
                                            "actual", path, scratch.fileName()});
    return '\n' + QString::fromUtf8(diff.output.left(8000));
}

QStringList Rows(const QStringList& knownCases, const QString& fileName)
{
    QStringList rows = knownCases;
    for (const QString& folder : QDir(Folder()).entryList(QDir::Dirs | QDir::NoDotAndDotDot, QDir::Name)) {
        if (!rows.contains(folder) && QFile::exists(Folder() + '/' + folder + '/' + fileName))
            rows.append(folder);
    }
    return rows;
}

} // namespace ZYN::Golden
