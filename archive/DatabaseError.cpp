#include "archive/DatabaseError.h"

#include "archive/ArchiveTexts.h"

#include <QtSql/QSqlError>

namespace ZYN {

namespace {

// Result codes of SQLite: sqlite.org/rescode.html. The lower byte is the family.
QString RemedyOfSqlite(int code)
{
    switch (code & 0xFF) {
    case 5:
    case 6:
        return ArchiveTexts::tr(
            "another program has been writing into it for a minute; wait for it and try again");
    case 8:
        return ArchiveTexts::tr("check the permissions of the file and its folder");
    case 10:
        return ArchiveTexts::tr("the disk or network drive reports a fault; check it");
    case 11:
    case 26:
        return ArchiveTexts::tr("restore it from a backup, or make a new archive from the reports");
    case 13:
        return ArchiveTexts::tr("what was added before is there, so make room and try again");
    case 14:
        return ArchiveTexts::tr("check its name and the permissions of file and folder");
    default:
        return {};
    }
}

// Error codes of PostgreSQL: www.postgresql.org/docs/15/errcodes-appendix.html. The first two characters are
// the class.
QString RemedyOfPostgreSql(const QString& code, QSqlError::ErrorType type)
{
    if (code == QLatin1String("42501") || code == QLatin1String("25006"))
        return ArchiveTexts::tr(
            "members of zyn_writer may add, those of zyn_viewer may ask, and the owner of the "
            "database may create");
    if (code == QLatin1String("3D000"))
        return ArchiveTexts::tr("make the database first: createdb NAME");
    if (code.startsWith(QLatin1String("53")))
        return ArchiveTexts::tr(
            "the server is short of disk, memory or connections; what was added before is there, so "
            "mend that and try again");
    if (type == QSqlError::ConnectionError && code.isEmpty())
        return ArchiveTexts::tr("check that the server runs, its address, and the password in ~/.pgpass");
    if (code == QLatin1String("08001"))
        return ArchiveTexts::tr("a server that keeps some of the products is away; try again later, or ask "
                                "with --product about others");
    if (code.startsWith(QLatin1String("08")) || code.startsWith(QLatin1String("57P")) || code.isEmpty())
        return ArchiveTexts::tr(
            "the connection to the server was lost; what was added before is there, so try again");
    return {};
}

// The first line of what the database says: the others are hints for programmers and the statement.
QString FirstLine(const QString& text)
{
    const QString line = text.section(QLatin1Char('\n'), 0, 0).trimmed();
    const QString severity = QStringLiteral("ERROR:");
    return line.startsWith(severity) ? line.mid(severity.size()).trimmed() : line;
}

} // namespace

QString TextOfError(const QSqlError& error, const QString& shownUrl, bool isPostgreSql)
{
    QString said = FirstLine(error.databaseText());
    if (said.isEmpty())
        said = FirstLine(error.driverText());
    const QString code = error.nativeErrorCode();
    const QString remedy =
        isPostgreSql ? RemedyOfPostgreSql(code, error.type()) : RemedyOfSqlite(code.toInt());
    QString text = shownUrl + QStringLiteral(": ") + said;
    if (!remedy.isEmpty())
        text += QStringLiteral("; ") + remedy;
    return text;
}

bool IsWorthRepeating(const QString& errorCode)
{
    return errorCode == QLatin1String("40P01") || errorCode == QLatin1String("40001");
}

bool IsFaultOfData(const QString& errorCode, bool isPostgreSql)
{
    if (isPostgreSql) // data exceptions, violated constraints, limits of the program
        return errorCode.startsWith(QLatin1String("22")) || errorCode.startsWith(QLatin1String("23")) ||
               errorCode.startsWith(QLatin1String("54"));
    const int family = errorCode.toInt() & 0xFF; // too big, a constraint, a type
    return family >= 18 && family <= 20;
}

} // namespace ZYN
