#include "StdfFailureFile.h"

#include <QtCore/QCryptographicHash>
#include <QtCore/QFile>
#include <QtCore/QFileInfo>

#include <algorithm>

namespace ZYN {

namespace {

constexpr qsizetype longestName = 255;

QString WithoutSeparators(QString ident)
{
    const auto endsPath = [](QChar c) { return c == u'/' || c == u'\\' || c == u':' || c.unicode() < 0x20; };
    std::replace_if(ident.begin(), ident.end(), endsPath, QChar(u'_'));
    return ident;
}

QString Shortened(const QString& ident, qsizetype bytes)
{
    if (QFile::encodeName(ident).size() <= bytes)
        return ident;
    const QByteArray sum =
        QCryptographicHash::hash(ident.toUtf8(), QCryptographicHash::Sha256).toHex().first(16);
    QString kept = ident;
    do {
        kept.chop(kept.size() > 1 && kept.back().isLowSurrogate() ? 2 : 1);
    } while (!kept.isEmpty() && QFile::encodeName(kept).size() + 1 + sum.size() > bytes);
    return kept + u'~' + QLatin1StringView(sum);
}

} // namespace

QString StdfFailureFileName(const QString& lotFileName, const QString& ident)
{
    const QFileInfo lotFile(lotFileName);
    const QString base = lotFile.baseName();
    const QString suffix = lotFile.completeSuffix();
    const auto nameWith = [&](const QString& part) {
        return QStringLiteral("%1_%2_failure.%3").arg(base, part, suffix);
    };
    const qsizetype room = longestName - QFile::encodeName(nameWith(QString())).size();
    return lotFile.path() + u'/' + nameWith(Shortened(WithoutSeparators(ident), room));
}

} // namespace ZYN
