#include "archive/Archive.h"

#include "archive/ArchiveTexts.h"
#include "archive/Database.h"
#include "archive/RunWriter.h"

#include <QtCore/QFileInfo>
#include <QtCore/QVariant>

namespace ZYN {

namespace {

constexpr int SchemaVersion = 1;
constexpr int ApplicationId = 0x5A594E41;

} // namespace

class Archive::Private {
public:
    bool Connect(const QString& url, Database::Access access);
    bool CheckSqlite();
    bool Fail(const QString& text)
    {
        error = text;
        return false;
    }
    /// Passes on what went wrong with the database.
    bool Check(bool good) { return good || Fail(database->GetErrorText()); }

    std::unique_ptr<Database> database;
    std::unique_ptr<RunWriter> writer;
    bool keepValues = true;
    bool isReadOnly = false;
    QString error;
};

bool Archive::Private::Connect(const QString& url, Database::Access access)
{
    writer.reset();
    database = std::make_unique<Database>();
    keepValues = true;
    isReadOnly = access == Database::Access::ReadOnly;
    const std::optional<ArchiveUrl> parsed = ArchiveUrl::Parse(url, &error);
    return parsed && Check(database->Open(*parsed, access));
}

bool Archive::Private::CheckSqlite()
{
    const QVariant application = database->Value(QStringLiteral("PRAGMA application_id"));
    if (!application.isValid())
        return Check(false);
    if (application.toInt() != ApplicationId)
        return Fail(ArchiveTexts::tr("%1: is the database of another program").arg(database->GetShownUrl()));
    return true;
}

Archive::Archive()
    : d(std::make_unique<Private>())
{
}

Archive::~Archive() = default;

bool Archive::IsArchive(const QString& url)
{
    return ArchiveUrl::IsServer(url) || url.endsWith(QLatin1String(".zya"), Qt::CaseInsensitive);
}

bool Archive::Create(const QString& url)
{
    if (!ArchiveUrl::IsServer(url) && QFileInfo::exists(url))
        return d->Fail(ArchiveTexts::tr("%1: already exists; choose another name").arg(url));
    if (!d->Connect(url, Database::Access::New))
        return false;
    return d->Check(
        d->database->Execute(QStringLiteral("PRAGMA journal_mode = WAL")) &&
        d->database->InTransaction([this] { return d->database->RunScript(QStringLiteral("sqlite.sql")); }));
}

bool Archive::Open(const QString& url, Mode mode)
{
    if (!ArchiveUrl::IsServer(url) && !QFileInfo::exists(url))
        return d->Fail(
            ArchiveTexts::tr("%1: there is no such archive; make one with zyn archive create").arg(url));
    return d->Connect(url,
                      mode == Mode::ReadOnly ? Database::Access::ReadOnly : Database::Access::Existing) &&
           d->CheckSqlite();
}

bool Archive::OpenTemporary(bool keepValues)
{
    d->writer.reset();
    d->database = std::make_unique<Database>();
    d->keepValues = keepValues;
    d->isReadOnly = false;
    return d->Check(d->database->OpenTemporary() && d->database->RunScript(QStringLiteral("sqlite.sql")));
}

bool Archive::Upgrade(const QString& url)
{
    return Open(url, Mode::ReadWrite);
}

bool Archive::Add(std::span<const Run> runs, AddedRuns* counts)
{
    if (!d->database)
        return d->Fail(ArchiveTexts::tr("No archive is open"));
    if (!d->writer)
        d->writer = std::make_unique<RunWriter>(*d->database, d->keepValues);
    return d->Check(d->writer->Add(runs, counts));
}

QString Archive::GetErrorText() const
{
    return d->error;
}

bool Archive::IsFaultOfRuns() const
{
    return d->database && d->database->IsFaultOfData();
}

QString Archive::GetShownUrl() const
{
    return d->database ? d->database->GetShownUrl() : QString();
}

QSqlDatabase Archive::GetDatabase() const
{
    return d->database ? d->database->GetConnection() : QSqlDatabase();
}

bool Archive::IsPostgreSql() const
{
    return d->database && d->database->IsPostgreSql();
}

void Archive::SetErrorText(const QString& text) const
{
    d->error = text;
}

} // namespace ZYN
