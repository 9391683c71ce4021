#include "archive/Schema.h"

#include "archive/ArchiveTexts.h"
#include "archive/SummaryWriter.h"

#include <QtCore/QVariant>

namespace ZYN {

namespace {

constexpr int currentVersion = 5;
constexpr int firstWithSummaries = 3;
constexpr int applicationId = 0x5A594E41;

const QString hasArchive = QStringLiteral("SELECT to_regclass('archive_meta') IS NOT NULL");

QString NameOf(const Database& database)
{
    return database.IsPostgreSql() ? QStringLiteral("postgresql") : QStringLiteral("sqlite");
}

} // namespace

bool Schema::Refuse(const QString& text)
{
    m_database.SetErrorText(m_database.GetShownUrl() + QStringLiteral(": ") + text);
    return false;
}

bool Schema::Make()
{
    return m_database.InTransaction([this] { return MakeTables(); });
}

bool Schema::MakeTables()
{
    return (!m_database.IsPostgreSql() || IsServerReady()) &&
           m_database.RunScript(NameOf(m_database) + QStringLiteral(".sql")) && MakeViews();
}

// On a server they are replaced where they change only: others' views may stand on them.
bool Schema::MakeViews()
{
    return m_database.IsPostgreSql() || m_database.RunScript(QStringLiteral("sqlite-views.sql"));
}

// Whether the tables can be made, said better than by the error that would come.
bool Schema::IsServerReady()
{
    const QVariant encoding = m_database.Value(QStringLiteral("SHOW server_encoding"));
    const QVariant isArchive = m_database.Value(hasArchive);
    const QVariant tables = m_database.Value(
        QStringLiteral("SELECT count(*) FROM pg_tables WHERE schemaname = ANY(current_schemas(false))"));
    const QVariant hasRoles =
        m_database.Value(QStringLiteral("SELECT count(*) = 2 OR (SELECT rolsuper OR rolcreaterole FROM "
                                        "pg_roles WHERE rolname = current_user) "
                                        "FROM pg_roles WHERE rolname IN ('zyn_writer', 'zyn_viewer')"));
    if (!hasRoles.isValid())
        return false;
    if (encoding.toString() != QLatin1String("UTF8"))
        return Refuse(
            ArchiveTexts::tr("the database is encoded in %1; make one with createdb -E UTF8 -T template0")
                .arg(encoding.toString()));
    if (isArchive.toBool())
        return Refuse(ArchiveTexts::tr("is an archive already"));
    if (tables.toInt() > 0)
        return Refuse(ArchiveTexts::tr("the database holds tables already; make an empty one with createdb"));
    if (!hasRoles.toBool())
        return Refuse(ArchiveTexts::tr(
            "this user may not make the roles that an archive needs; let an administrator do "
            "it: CREATE ROLE zyn_writer; CREATE ROLE zyn_viewer"));
    return true;
}

bool Schema::IsArchive()
{
    if (m_database.IsPostgreSql()) {
        const QVariant found = m_database.Value(hasArchive);
        if (found.isValid() && !found.toBool())
            return Refuse(ArchiveTexts::tr("holds no archive; make one with zyn archive create"));
        return found.isValid();
    }
    const QVariant application = m_database.Value(QStringLiteral("PRAGMA application_id"));
    const QVariant tables = m_database.Value(QStringLiteral("SELECT count(*) FROM sqlite_schema"));
    if (!application.isValid() || !tables.isValid())
        return false;
    if (tables.toInt() == 0)
        return Refuse(ArchiveTexts::tr("is empty; remove it and make an archive with zyn archive create"));
    if (application.toInt() != applicationId)
        return Refuse(ArchiveTexts::tr("is a database of another program; choose another name"));
    return true;
}

// A server of docs/scale.md.
bool Schema::OnlyAsks()
{
    return m_database.IsPostgreSql() &&
           m_database.Value(QStringLiteral("SELECT to_regclass('archive_node') IS NOT NULL")).toBool();
}

bool Schema::ReadVersion(int* version)
{
    if (!IsArchive())
        return false;
    const QVariant value =
        m_database.Value(m_database.IsPostgreSql() ? QStringLiteral("SELECT version FROM archive_meta")
                                                   : QStringLiteral("PRAGMA user_version"));
    *version = value.toInt();
    if (*version > currentVersion)
        return Refuse(
            ArchiveTexts::tr(
                "is an archive of version %1, and this program knows version %2; install a newer one")
                .arg(*version)
                .arg(currentVersion));
    return value.isValid();
}

bool Schema::Check()
{
    int version = 0;
    if (!ReadVersion(&version))
        return false;
    if (version < currentVersion)
        return Refuse(
            ArchiveTexts::tr("is an archive of version %1, and this program needs version %2; bring it up to "
                             "date with zyn archive upgrade %3")
                .arg(QString::number(version), QString::number(currentVersion), m_database.GetShownUrl()));
    return true;
}

bool Schema::Upgrade()
{
    return m_database.InTransaction([this] {
        int version = 0;
        if (!ReadVersion(&version))
            return false;
        if (version < currentVersion && OnlyAsks())
            return Refuse(ArchiveTexts::tr("only asks other servers, and keeps nothing; make its database "
                                           "anew with postgresql-asking.sql"));
        const bool hasSummaries = version >= firstWithSummaries;
        for (; version < currentVersion; ++version) {
            const QString script = QStringLiteral("%1-%2.sql").arg(NameOf(m_database)).arg(version + 1);
            if (!m_database.RunScript(script))
                return false;
        }
        return MakeViews() && (hasSummaries || SummaryWriter(m_database).MakeAll());
    });
}

} // namespace ZYN
