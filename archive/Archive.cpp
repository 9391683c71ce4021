#include "archive/Archive.h"

#include "archive/ArchiveTexts.h"
#include "archive/BinWriter.h"
#include "archive/Database.h"
#include "archive/Removal.h"
#include "archive/RunWriter.h"
#include "archive/Schema.h"

#include <QtCore/QFile>
#include <QtCore/QFileInfo>

namespace ZYN {

class Archive::Private {
public:
    bool Find(const QString& url);
    bool Connect(const QString& url, Database::Access access);
    void Close()
    {
        writer.reset(); // its queries belong to the connection
        database.reset();
    }
    bool Fail(const QString& text)
    {
        error = text;
        return false;
    }
    /// Passes on what went wrong with the database.
    bool Check(bool good) { return good || Fail(database->GetErrorText()); }

    std::unique_ptr<Database> database;
    std::unique_ptr<RunWriter> writer;
    RunWriter::Keep keep;
    QString error;
};

// Qt would make a file that is not there.
bool Archive::Private::Find(const QString& url)
{
    if (ArchiveUrl::IsServer(url) || QFileInfo::exists(url))
        return true;
    return Fail(ArchiveTexts::tr("%1: there is no such archive; make one with zyn archive create").arg(url));
}

bool Archive::Private::Connect(const QString& url, Database::Access access)
{
    Close();
    database = std::make_unique<Database>();
    keep = {};
    const std::optional<ArchiveUrl> parsed = ArchiveUrl::Parse(url, &error);
    return parsed && Check(database->Open(*parsed, access));
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
    const bool isServer = ArchiveUrl::IsServer(url);
    if (!isServer && QFileInfo::exists(url))
        return d->Fail(ArchiveTexts::tr("%1: already exists; choose another name").arg(url));
    if (!d->Connect(url, Database::Access::New))
        return false;
    if (d->Check(Schema(*d->database).Make()))
        return true;
    d->Close();
    if (!isServer)
        QFile::remove(url); // half a one would be in the way of the next attempt
    return false;
}

bool Archive::Open(const QString& url, Mode mode)
{
    if (d->Find(url) &&
        d->Connect(url, mode == Mode::ReadOnly ? Database::Access::ReadOnly : Database::Access::Existing) &&
        d->Check(Schema(*d->database).Check()))
        return true;
    d->Close();
    return false;
}

bool Archive::OpenTemporary(bool keepValues)
{
    d->Close();
    d->database = std::make_unique<Database>();
    d->keep = {.values = keepValues, .operators = true, .summaries = false};
    return d->Check(d->database->OpenTemporary() && Schema(*d->database).Make());
}

bool Archive::Upgrade(const QString& url)
{
    if (d->Find(url) && d->Connect(url, Database::Access::Existing) &&
        d->Check(Schema(*d->database).Upgrade()))
        return true;
    d->Close();
    return false;
}

void Archive::SetKeepsOperators(bool keeps)
{
    d->keep.operators = keeps;
    d->writer.reset();
}

bool Archive::Add(std::span<const Run> runs, AddedRuns* counts)
{
    if (!d->database)
        return d->Fail(ArchiveTexts::tr("No archive is open"));
    if (!d->writer)
        d->writer = std::make_unique<RunWriter>(*d->database, d->keep);
    return d->Check(d->writer->Add(runs, counts));
}

bool Archive::AddBins(std::span<const LotBin> bins)
{
    return d->database ? d->Check(AddBinNames(*d->database, bins))
                       : d->Fail(ArchiveTexts::tr("No archive is open"));
}

bool Archive::RemoveBefore(const TimeBound& time, std::int64_t* removed)
{
    if (!d->database)
        return d->Fail(ArchiveTexts::tr("No archive is open"));
    std::int64_t count = 0;
    if (!d->Check(RemoveRunsBefore(*d->database, time, &count)))
        return false;
    if (removed)
        *removed = count;
    return true;
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

bool Archive::HasSummaries() const
{
    return d->keep.summaries;
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
