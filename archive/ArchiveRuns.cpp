#include "archive/ArchiveRuns.h"

#include "archive/Archive.h"
#include "archive/ArrayReader.h"
#include "archive/StartOfRun.h"
#include "archive/questions/ChosenRuns.h"

#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>

#include <algorithm>
#include <unordered_map>

namespace ZYN {

namespace {

const QString runsInOrder = QStringLiteral("SELECT r.start, r.id FROM run r JOIN run_values v ON %1 "
                                           "ORDER BY r.start, r.run_index, r.test_index, v.revision, r.id");
const QString oneRun =
    QStringLiteral("SELECT u.product, u.lot, u.serial, u.seen_ident, u.wafer, u.is_panel, r.start, "
                   "r.utc_offset, r.run_index, "
                   "r.test_index, r.code, r.station, r.position, r.site, r.x, r.y, r.hard_bin, r.soft_bin, "
                   "r.layout, r.limits, "
                   "v.start_text, v.duration, v.operator, v.panel, v.source, v.comment, v.vals, v.codes, "
                   "v.seconds, v.texts, "
                   "v.comments, a.attributes FROM run r JOIN unit u ON u.id = r.unit JOIN run_values v ON %1 "
                   "LEFT JOIN attribute_set a ON a.id = v.attributes WHERE r.start = ? AND r.id = ?");

/// Takes the columns of a row one after the other.
class Row {
public:
    explicit Row(const QSqlQuery& query)
        : m_query(query)
    {
    }

    std::string Text() { return Next().toString().toStdString(); }
    QByteArray Bytes() { return Next().toString().toUtf8(); }
    qint64 Number() { return Next().toLongLong(); }
    std::optional<int> MaybeNumber()
    {
        const QVariant value = Next();
        return value.isNull() ? std::nullopt : std::optional(value.toInt());
    }
    QVariant Next() { return m_query.value(m_column++); }

private:
    const QSqlQuery& m_query;
    int m_column = 0;
};

// A JSON object, position -> text.
Run::Texts TextsByPosition(const QByteArray& object)
{
    Run::Texts texts;
    const QJsonObject json = QJsonDocument::fromJson(object).object();
    for (auto text = json.begin(); text != json.end(); ++text)
        texts.emplace_back(text.key().toUInt(), text.value().toString().toStdString());
    std::sort(texts.begin(), texts.end());
    return texts;
}

} // namespace

class ArchiveRuns::Private {
public:
    explicit Private(const Archive& from)
        : archive(from)
        , join(archive.IsPostgreSql() ? QStringLiteral("v.start = r.start AND v.run = r.id")
                                      : QStringLiteral("v.run = r.id"))
        , one(archive.GetDatabase())
    {
    }

    bool ReadOrder();
    bool Read(std::size_t index, Run* run);
    bool ReadLayout(qint64 id);
    bool ReadLimits(qint64 id);

    const Archive& archive;
    const QString join;
    QSqlQuery one;
    std::optional<QSqlQuery> bins;
    bool isOrdered = false;
    std::vector<std::pair<qint64, qint64>> order; // start and id
    std::size_t next = 0;
    std::unordered_map<qint64, std::shared_ptr<const RunLayout>> layouts;
    std::unordered_map<qint64, std::shared_ptr<const RunLimits>> limits;
};

bool ArchiveRuns::Private::ReadOrder()
{
    std::optional<QSqlQuery> query = Ask(archive, runsInOrder.arg(join));
    while (query && query->next())
        order.emplace_back(query->value(0).toLongLong(), query->value(1).toLongLong());
    isOrdered = query && IsComplete(archive, *query) && one.prepare(oneRun.arg(join));
    return isOrdered;
}

bool ArchiveRuns::Private::ReadLayout(qint64 id)
{
    if (layouts.contains(id))
        return true;
    RunLayout layout;
    std::optional<QSqlQuery> query =
        Ask(archive, QStringLiteral("SELECT program, program_ident, version, hash FROM layout WHERE id = ?"),
            {id});
    if (!query || !query->next())
        return false;
    Row head(*query);
    layout.program = head.Text();
    layout.programIdent = head.Text();
    layout.version = head.Text();
    layout.hash = head.Next().toByteArray().toStdString();
    query.reset(); // a server is asked one question at a time
    query =
        Ask(archive,
            QStringLiteral("SELECT c.id, c.kind, c.parent, c.ident, c.name, c.identity, c.path, i.data_type, "
                           "i.unit, i.unit_code, i.factor FROM layout_item i JOIN component c ON c.id = "
                           "i.component WHERE i.layout = ? ORDER BY i.pos"),
            {id});
    std::unordered_map<qint64, int> positions; // of components
    while (query && query->next()) {
        Row row(*query);
        positions.emplace(row.Number(), int(layout.components.size()));
        RunComponent& component = layout.components.emplace_back();
        component.kind = ComponentKind(row.Number());
        const QVariant parent = row.Next();
        component.parent = parent.isNull() ? -1 : positions[parent.toLongLong()];
        for (std::string* text : {&component.ident, &component.name, &component.identity, &component.path})
            *text = row.Text();
        component.dataType = int(row.Number());
        component.unit = row.Text();
        component.unitCode = int(row.Number());
        component.factor = int(row.Number());
        SetHash(&component);
    }
    layouts.emplace(id, std::make_shared<const RunLayout>(std::move(layout)));
    return query && IsComplete(archive, *query);
}

bool ArchiveRuns::Private::ReadLimits(qint64 id)
{
    if (id == 0 || limits.contains(id))
        return true;
    std::optional<QSqlQuery> query =
        Ask(archive,
            QStringLiteral(
                "SELECT lower, upper, lower_op, upper_op, nominal, inverted, lower_texts, upper_texts, "
                "hash FROM limit_set WHERE id = ?"),
            {id});
    if (!query || !query->next())
        return false;
    Row row(*query);
    RunLimits set;
    set.lower = NumbersOf(row.Bytes());
    set.upper = NumbersOf(row.Bytes());
    set.lowerOperator = TextsOf(row.Bytes());
    set.upperOperator = TextsOf(row.Bytes());
    set.nominal = NumbersOf(row.Bytes());
    set.inverted = FlagsOf(row.Bytes());
    set.lowerTexts = TextsByPosition(row.Bytes());
    set.upperTexts = TextsByPosition(row.Bytes());
    set.hash = row.Next().toByteArray().toStdString();
    limits.emplace(id, std::make_shared<const RunLimits>(std::move(set)));
    return true;
}

bool ArchiveRuns::Private::Read(std::size_t index, Run* run)
{
    one.addBindValue(order[index].first);
    one.addBindValue(order[index].second);
    if (!one.exec() || !one.next())
        return IsComplete(archive, one); // removed in the meantime
    Row row(one);
    for (std::string* text : {&run->product, &run->lot, &run->serial, &run->ident, &run->wafer})
        *text = row.Text();
    run->isPanel = row.Number() != 0;
    const qint64 start = row.Number();
    run->start = start == unreadableStart ? std::nullopt : std::optional<std::int64_t>(start);
    run->utcOffset = row.MaybeNumber();
    run->runIndex = int(row.Number());
    run->testIndex = int(row.Number());
    run->code = int(row.Number());
    run->station = row.Text();
    for (std::optional<int>* number :
         {&run->position, &run->site, &run->x, &run->y, &run->hardBin, &run->softBin})
        *number = row.MaybeNumber();
    const qint64 layout = row.Number(), limitSet = row.Number();
    run->startText = row.Text();
    const QVariant duration = row.Next();
    run->duration = duration.isNull() ? std::nullopt : std::optional(duration.toDouble());
    for (std::string* text : {&run->operatorName, &run->panel, &run->source, &run->comment})
        *text = row.Text();
    run->values = NumbersOf(row.Bytes());
    const QByteArray codes = row.Bytes(), seconds = row.Bytes();
    run->texts = TextsByPosition(row.Bytes());
    run->comments = TextsByPosition(row.Bytes());
    run->attributes = TextsByPosition(row.Bytes());
    one.finish();
    for (ArrayReader reader(codes); !reader.IsAtEnd();)
        run->codes.push_back(std::int16_t(reader.Integer().value_or(Run::NoCode)));
    for (const double number : NumbersOf(seconds))
        run->seconds.push_back(float(number));
    run->seconds.resize(run->codes.size(), std::numeric_limits<float>::quiet_NaN());
    if (!ReadLayout(layout) || !ReadLimits(limitSet))
        return false;
    run->layout = layouts.at(layout);
    run->limits = limitSet == 0 ? nullptr : limits.at(limitSet);
    return true;
}

ArchiveRuns::ArchiveRuns(const Archive& archive)
    : d(std::make_unique<Private>(archive))
{
}

ArchiveRuns::~ArchiveRuns() = default;

std::optional<std::vector<Run>> ArchiveRuns::Next(std::size_t count)
{
    if (!d->isOrdered && !d->ReadOrder())
        return std::nullopt;
    std::vector<Run> runs;
    for (; d->next < d->order.size() && runs.size() < count; ++d->next) {
        Run run;
        if (!d->Read(d->next, &run))
            return std::nullopt;
        if (run.layout)
            runs.push_back(std::move(run));
    }
    return runs;
}

std::optional<std::vector<LotBin>> ArchiveRuns::NextBins(std::size_t count)
{
    if (!d->bins)
        d->bins =
            Ask(d->archive, QStringLiteral("SELECT product, lot, program, is_soft, number, name, verdict "
                                           "FROM bin"));
    if (!d->bins)
        return std::nullopt;
    std::vector<LotBin> bins;
    while (bins.size() < count && d->bins->next()) {
        Row row(*d->bins);
        LotBin& bin = bins.emplace_back();
        for (std::string* text : {&bin.product, &bin.lot, &bin.program})
            *text = row.Text();
        bin.isSoft = row.Number() != 0;
        bin.number = int(row.Number());
        bin.name = row.Text();
        const std::string verdict = row.Text();
        bin.verdict = verdict.empty() ? ' ' : verdict.front();
    }
    return IsComplete(d->archive, *d->bins) ? std::optional(std::move(bins)) : std::nullopt;
}

} // namespace ZYN
