#include "Golden.h"

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QProcess>
#include <QtCore/QSaveFile>
#include <QtCore/QTemporaryFile>

#include <optional>

namespace ZYN::Golden {

using namespace Qt::StringLiterals;

namespace {

std::optional<QByteArray> Content(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return std::nullopt;
    return file.readAll();
}

/// Writes the new expectation; answers what went wrong.
QString Update(const QString& path, const QByteArray& actual)
{
    QDir().mkpath(QFileInfo(path).path());
    QSaveFile file(path);
    const bool written =
        file.open(QIODevice::WriteOnly) && file.write(actual) == actual.size() && file.commit();
    return written ? QString() : u"cannot write "_s + path;
}

QString UnifiedDiff(const QString& path, const QByteArray& actual)
{
    QTemporaryFile scratch;
    if (!scratch.open() || scratch.write(actual) != actual.size() || !scratch.flush())
        return u"cannot write a scratch file"_s;
    QProcess diff;
    diff.start(u"diff"_s, {u"-u"_s, u"--text"_s, u"--label"_s, u"expected "_s + path, u"--label"_s,
                           u"actual"_s, path, scratch.fileName()});
    if (!diff.waitForFinished())
        return u"diff did not run: "_s + diff.errorString();
    constexpr qsizetype shown = 8000;
    const QByteArray text = diff.readAllStandardOutput();
    return QString::fromUtf8(text.left(shown)) + (text.size() > shown ? u"\n... and more"_s : QString());
}

} // namespace

QString Folder()
{
    return QStringLiteral(ZYN_SOURCE_DIR "/tests/golden");
}

QString Difference(const QString& caseName, const QString& fileName, const QByteArray& actual)
{
    const QString path = Folder() + u'/' + caseName + u'/' + fileName;
    const std::optional<QByteArray> expected = Content(path);
    if (expected && *expected == actual)
        return {};
    if (qEnvironmentVariable("ZYN_UPDATE_GOLDEN") == u"1")
        return Update(path, actual);
    if (!expected)
        return u"no expectation %1; scripts/update-golden writes it"_s.arg(path);
    return u"\n"_s + UnifiedDiff(path, actual);
}

QStringList Rows(const QStringList& knownCases, const QString& fileName)
{
    QStringList rows = knownCases;
    const QStringList folders = QDir(Folder()).entryList(QDir::Dirs | QDir::NoDotAndDotDot, QDir::Name);
    for (const QString& folder : folders) {
        if (!rows.contains(folder) && QFile::exists(Folder() + u'/' + folder + u'/' + fileName))
            rows.append(folder);
    }
    return rows;
}

} // namespace ZYN::Golden
