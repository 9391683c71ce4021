#include "archive/ArchiveUrl.h"

#include "archive/ArchiveTexts.h"

#include <QtCore/QRegularExpression>
#include <QtCore/QUrl>
#include <QtCore/QUrlQuery>

namespace ZYN {

namespace {

// Of the parameters that the client library knows, those that make sense for an archive and hold no secret.
const QStringList connectionParameters{QStringLiteral("connect_timeout"), QStringLiteral("sslmode"),
                                       QStringLiteral("sslrootcert"),     QStringLiteral("sslcert"),
                                       QStringLiteral("sslkey"),          QStringLiteral("application_name")};

std::optional<ArchiveUrl> Refuse(const QString& text, QString* error)
{
    *error = text;
    return std::nullopt;
}

// Puts a parameter of the URL where it belongs.
bool TakeParameter(const QString& name, const QString& value, ArchiveUrl* url)
{
    // What could end a parameter of the connection would begin another.
    static const QRegularExpression plain(QStringLiteral("^[\\w./@:+-]*$"));
    if (name == QLatin1String("host"))
        url->host = value;
    else if (name == QLatin1String("port"))
        url->port = value.toInt();
    else if (name == QLatin1String("user"))
        url->user = value;
    else if (connectionParameters.contains(name) && plain.match(value).hasMatch())
        url->options += name + QLatin1Char('=') + value + QLatin1Char(';');
    else
        return false;
    return true;
}

} // namespace

bool ArchiveUrl::IsServer(const QString& url)
{
    return url.startsWith(QLatin1String("postgresql:"), Qt::CaseInsensitive) ||
           url.startsWith(QLatin1String("postgres:"), Qt::CaseInsensitive);
}

std::optional<ArchiveUrl> ArchiveUrl::Parse(const QString& text, QString* error)
{
    ArchiveUrl url;
    if (!IsServer(text)) {
        url.file = url.shown = text;
        return url;
    }
    url.isPostgreSql = true;
    const QUrl parsed(text, QUrl::StrictMode);
    const QUrlQuery query(parsed);
    // Everyone who lists processes or reads the shell's history would see it. Not even shown in the refusal.
    if (!parsed.password().isEmpty() || query.hasQueryItem(QStringLiteral("password")) ||
        query.hasQueryItem(QStringLiteral("sslpassword")))
        return Refuse(
            ArchiveTexts::tr("A password does not belong into an address; put it into the file ~/.pgpass "
                             "(HOST:PORT:DATABASE:USER:PASSWORD) and leave it out"),
            error);
    if (!parsed.isValid())
        return Refuse(ArchiveTexts::tr("The address of the server cannot be read; write "
                                       "postgresql://USER@HOST:PORT/DATABASE"),
                      error);
    url.shown = parsed.toDisplayString(QUrl::RemovePassword);
    url.host = parsed.host(QUrl::FullyDecoded);
    url.port = parsed.port();
    url.user = parsed.userName(QUrl::FullyDecoded);
    url.database = parsed.path(QUrl::FullyDecoded).mid(1);
    for (const auto& [name, value] : query.queryItems(QUrl::FullyDecoded))
        if (!TakeParameter(name, value, &url))
            return Refuse(
                ArchiveTexts::tr("%1: the parameter \"%2\" is not understood; there are host, port, user, %3")
                    .arg(url.shown, name, connectionParameters.join(QLatin1String(", "))),
                error);
    if (url.database.isEmpty())
        return Refuse(ArchiveTexts::tr("%1 names no database; write postgresql://USER@HOST:PORT/DATABASE")
                          .arg(url.shown),
                      error);
    return url;
}

} // namespace ZYN
