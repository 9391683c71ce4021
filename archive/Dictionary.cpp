#include "archive/Dictionary.h"

#include "archive/SqlValue.h"

namespace ZYN {

namespace {

// Limits that change from run to run must not fill the memory.
constexpr size_t IdsKept = 4096;

// Only one at a time adds rows that others refer to by their content: no deadlock among those who add the
// same program. Any number will do, as long as it is the same everywhere.
const QString lockDictionary = QStringLiteral("SELECT pg_advisory_xact_lock(5921134)");

const QString findLayout = QStringLiteral("SELECT id FROM layout WHERE hash = ?");
const QString addLayout = QStringLiteral(
    "INSERT INTO layout(hash, program, program_ident, version) VALUES(?, ?, ?, ?) RETURNING id");
const QString addItem =
    QStringLiteral("INSERT INTO layout_item(layout, pos, component, data_type, unit, unit_code, "
                   "factor) VALUES(?, ?, ?, ?, ?, ?, ?)");
const QString findComponent = QStringLiteral("SELECT id FROM component WHERE program = ? AND identity = ?");
const QString addComponent =
    QStringLiteral("INSERT INTO component(program, identity, path, kind, parent, ident, name) "
                   "VALUES(?, ?, ?, ?, ?, ?, ?) RETURNING id");
const QString findLimits = QStringLiteral("SELECT id FROM limit_set WHERE hash = ?");
const QString addLimits = QStringLiteral(
    "INSERT INTO limit_set(hash, lower, lower_op, upper, upper_op, nominal, inverted, lower_texts, "
    "upper_texts) VALUES(?, ?, ?, ?, ?, ?, ?, ?, ?) RETURNING id");

} // namespace

Dictionary::Dictionary(Database& database)
    : m_database(database)
    , m_style(database.IsPostgreSql() ? ArrayStyle::PostgreSql : ArrayStyle::Json)
{
}

bool Dictionary::Learn(std::span<const Run> runs)
{
    if (m_limits.size() > IdsKept)
        m_limits.clear();
    if (m_layouts.size() > IdsKept)
        m_layouts.clear();
    const auto isKnown = [this](const Run& run) {
        return m_layouts.contains(run.layout->hash) && (!run.limits || m_limits.contains(run.limits->hash));
    };
    if (std::all_of(runs.begin(), runs.end(), isKnown))
        return true;
    std::unordered_map<std::string, std::int64_t> layouts, limits;
    const auto learn = [&](const Run& run) {
        if (!m_layouts.contains(run.layout->hash) && !layouts.contains(run.layout->hash))
            if ((layouts[run.layout->hash] = AddLayout(*run.layout)) == 0)
                return false;
        if (run.limits && !m_limits.contains(run.limits->hash) && !limits.contains(run.limits->hash))
            return (limits[run.limits->hash] = AddLimits(*run.limits)) != 0;
        return true;
    };
    const bool isWritten = m_database.InTransaction([&] {
        layouts.clear();
        limits.clear();
        return (!m_database.IsPostgreSql() || m_database.Execute(lockDictionary)) &&
               std::all_of(runs.begin(), runs.end(), learn);
    });
    if (isWritten) {
        m_layouts.merge(layouts);
        m_limits.merge(limits);
    }
    return isWritten;
}

std::int64_t Dictionary::LayoutOf(const Run& run) const
{
    return m_layouts.at(run.layout->hash);
}

QVariant Dictionary::LimitsOf(const Run& run) const
{
    return run.limits ? QVariant::fromValue(qint64(m_limits.at(run.limits->hash))) : QVariant();
}

std::int64_t Dictionary::IdOf(QSqlQuery& query)
{
    return m_database.Run(query) && query.next() ? query.value(0).toLongLong() : 0;
}

std::int64_t Dictionary::AddLayout(const RunLayout& layout)
{
    QSqlQuery find = m_database.Prepare(findLayout);
    find.addBindValue(SqlBytes(layout.hash));
    if (const std::int64_t known = IdOf(find))
        return known;
    QSqlQuery add = m_database.Prepare(addLayout);
    add.addBindValue(SqlBytes(layout.hash));
    for (const std::string* text : {&layout.program, &layout.programIdent, &layout.version})
        add.addBindValue(SqlText(*text));
    const std::int64_t id = IdOf(add);
    add.finish();
    std::vector<qint64> ids; // of the components so far; parents come before their children
    for (const RunComponent& component : layout.components) {
        const QVariant parent = component.parent < 0 ? QVariant() : ids[size_t(component.parent)];
        ids.push_back(AddComponent(layout.program, component, parent));
        if (id == 0 || ids.back() == 0 || !AddItem(id, int(ids.size()) - 1, component, ids.back()))
            return 0;
    }
    return id;
}

bool Dictionary::AddItem(std::int64_t layout, int position, const RunComponent& component,
                         std::int64_t componentId)
{
    QSqlQuery add = m_database.Prepare(addItem);
    add.addBindValue(qint64(layout));
    add.addBindValue(position);
    add.addBindValue(qint64(componentId));
    add.addBindValue(component.dataType);
    add.addBindValue(SqlTextOrNull(component.unit));
    add.addBindValue(component.unitCode);
    add.addBindValue(component.factor);
    return m_database.Run(add);
}

std::int64_t Dictionary::AddComponent(const std::string& program, const RunComponent& component,
                                      const QVariant& parent)
{
    QSqlQuery find = m_database.Prepare(findComponent);
    find.addBindValue(SqlText(program));
    find.addBindValue(SqlText(component.identity));
    if (const std::int64_t known = IdOf(find))
        return known;
    QSqlQuery add = m_database.Prepare(addComponent);
    add.addBindValue(SqlText(program));
    add.addBindValue(SqlText(component.identity));
    add.addBindValue(SqlText(component.path));
    add.addBindValue(int(component.kind));
    add.addBindValue(parent);
    add.addBindValue(SqlText(component.ident));
    add.addBindValue(SqlText(component.name));
    return IdOf(add);
}

std::int64_t Dictionary::AddLimits(const RunLimits& limits)
{
    QSqlQuery find = m_database.Prepare(findLimits);
    find.addBindValue(SqlBytes(limits.hash));
    if (const std::int64_t known = IdOf(find))
        return known;
    QSqlQuery add = m_database.Prepare(addLimits);
    add.addBindValue(SqlBytes(limits.hash));
    add.addBindValue(ArrayOf(limits.lower, m_style));
    add.addBindValue(ArrayOf(limits.lowerOperator, m_style));
    add.addBindValue(ArrayOf(limits.upper, m_style));
    add.addBindValue(ArrayOf(limits.upperOperator, m_style));
    add.addBindValue(ArrayOf(limits.nominal, m_style));
    add.addBindValue(ArrayOf(limits.inverted, m_style));
    add.addBindValue(ObjectOf(limits.lowerTexts));
    add.addBindValue(ObjectOf(limits.upperTexts));
    return IdOf(add);
}

} // namespace ZYN
