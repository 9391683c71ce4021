#include "archive/questions/MeasuredItems.h"

#include "archive/questions/ChosenRuns.h"
#include "runs/Run.h"

namespace ZYN {

bool MeasuredItems::Read(const Programs& programs, const std::vector<qint64>& limits)
{
    for (const qint64 id : limits)
        if (!m_limits.Get(id))
            return false;
    std::optional<QSqlQuery> query =
        Ask(m_archive,
            QStringLiteral("SELECT i.layout, c.identity, c.kind, i.data_type, c.ident, c.path, i.unit, "
                           "i.factor, i.unit_code FROM "
                           "layout_item i JOIN component c ON c.id = i.component ORDER BY i.layout, i.pos"));
    while (query && query->next()) {
        const int layout = query->value(0).toInt();
        const int dataType = query->value(3).toInt();
        Component& component = m_layouts[layout].emplace_back();
        component.identity = query->value(1).toString();
        component.item.program = programs.NameOf(layout);
        component.item.ident = query->value(4).toString();
        component.item.path = query->value(5).toString();
        component.isWanted = query->value(2).toInt() == int(ComponentKind::Measurement) &&
                             (dataType == 7 || dataType == 8) && // integer, real
                             FitsAny(m_names, component.item.ident, component.item.path);
        component.item.unit = query->value(6).toString();
        component.item.style.factor = query->value(7).toInt();
        component.item.style.unitCode = query->value(8).toInt();
    }
    return query && IsComplete(m_archive, *query);
}

const MeasuredItems::Positions* MeasuredItems::Find(int layout, qint64 limits)
{
    const std::pair key(layout, limits);
    if (m_last && m_lastKey == key)
        return m_last;
    auto found = m_found.find(key);
    if (found == m_found.end()) {
        const std::vector<Judgement>* const judgements = m_limits.Get(limits);
        if (!judgements)
            return nullptr;
        found = m_found.emplace(key, PositionsOf(m_layouts[layout], *judgements)).first;
    }
    m_lastKey = key;
    m_last = &found->second;
    return m_last;
}

MeasuredItems::Positions MeasuredItems::PositionsOf(const std::vector<Component>& components,
                                                    const std::vector<Judgement>& judgements)
{
    Positions positions;
    for (std::size_t i = 0; i < components.size(); ++i)
        if (components[i].isWanted) {
            positions.resize(i, -1);
            positions.push_back(ItemOf(components[i], i < judgements.size() ? judgements[i] : Judgement()));
        }
    return positions;
}

int MeasuredItems::ItemOf(const Component& component, const Judgement& judgement)
{
    const Key key = std::tuple_cat(
        std::tuple(component.item.program, component.identity, component.item.unit), judgement.Key());
    const auto [known, isNew] = m_known.emplace(key, int(m_items.size()));
    if (isNew) {
        m_items.push_back(component.item);
        m_items.back().judgement = judgement;
    }
    NumberStyle& style = m_items[std::size_t(known->second)].style;
    style = component.item.style;
    style.lowerOperator = QString::fromStdString(judgement.lowerOperator);
    return known->second;
}

} // namespace ZYN
