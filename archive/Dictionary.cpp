#include "archive/Dictionary.h"

#include "archive/SqlValue.h"

namespace ZYN {

namespace {

// Limits that change from run to run must not fill the memory.
constexpr size_t idsKept = 4096;

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
const QString findAttributes = QStringLiteral("SELECT id FROM attribute_set WHERE attributes = ?");
const QString findAttributesByDigest =
    QStringLiteral("SELECT id FROM attribute_set WHERE md5(attributes) = md5(?)");
const QString addAttributes = QStringLiteral("INSERT INTO attribute_set(attributes) VALUES(?) RETURNING id");

} // namespace

Dictionary::Dictionary(Database& database, bool keepAttributes)
    : m_database(database)
    , m_style(database.IsPostgreSql() ? ArrayStyle::PostgreSql : ArrayStyle::Json)
    , m_keepAttributes(keepAttributes)
{
}

bool Dictionary::Learn(std::span<const Run> runs)
{
    if (m_limits.size() > idsKept)
        m_limits.clear();
    if (m_layouts.size() > idsKept)
        m_layouts.clear();
    if (size_t(m_attributes.size()) > idsKept)
        m_attributes.clear();
    const auto isKnown = [this](const Run& run) {
        return m_layouts.contains(run.layout->hash) && (!run.limits || m_limits.contains(run.limits->hash)) &&
               (!HasAttributes(run) || m_attributes.contains(TextOfAttributes(run)));
    };
    if (std::all_of(runs.begin(), runs.end(), isKnown))
        return true;
    const auto layouts = m_layouts, limits = m_limits;
    const auto attributes = m_attributes;
    const bool isWritten = m_database.InTransaction([&] {
        m_layouts = layouts; // without what an attempt before this one learned
        m_limits = limits;
        m_attributes = attributes;
        return (!m_database.IsPostgreSql() || m_database.Execute(lockDictionary)) &&
               std::all_of(runs.begin(), runs.end(), [this](const Run& run) { return LearnRun(run); });
    });
    if (!isWritten) {
        m_layouts = layouts;
        m_limits = limits;
        m_attributes = attributes;
    }
    return isWritten;
}

bool Dictionary::LearnRun(const Run& run)
{
    const auto learn = [](auto* ids, const auto& name, const auto& add) {
        if (ids->contains(name))
            return true;
        const std::int64_t id = add();
        if (id != 0)
            (*ids)[name] = id;
        return id != 0;
    };
    return learn(&m_layouts, run.layout->hash, [&] { return AddLayout(*run.layout); }) &&
           (!run.limits || learn(&m_limits, run.limits->hash, [&] { return AddLimits(*run.limits); })) &&
           (!HasAttributes(run) || learn(&m_attributes, TextOfAttributes(run),
                                         [&] { return AddAttributes(TextOfAttributes(run)); }));
}

bool Dictionary::HasAttributes(const Run& run) const
{
    return m_keepAttributes && !run.attributes.empty();
}

QString Dictionary::TextOfAttributes(const Run& run)
{
    return ObjectOf(run.attributes).toString();
}

std::int64_t Dictionary::LayoutOf(const Run& run) const
{
    return m_layouts.at(run.layout->hash);
}

QVariant Dictionary::LimitsOf(const Run& run) const
{
    return run.limits ? QVariant::fromValue(qint64(m_limits.at(run.limits->hash))) : QVariant();
}

QVariant Dictionary::AttributesOf(const Run& run) const
{
    return HasAttributes(run) ? QVariant(m_attributes.value(TextOfAttributes(run))) : QVariant();
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

std::int64_t Dictionary::AddAttributes(const QString& attributes)
{
    for (const QString& sql :
         {m_database.IsPostgreSql() ? findAttributesByDigest : findAttributes, addAttributes}) {
        QSqlQuery query = m_database.Prepare(sql);
        query.addBindValue(attributes);
        if (const std::int64_t id = IdOf(query))
            return id;
    }
    return 0;
}

} // namespace ZYN
