#include "questions/Answer.h"

#include "terminal/Terminal.h"

#include "archive/questions/AnswerKeys.h"

namespace ZYN::Tool {

namespace {

const QString groupKey = QStringLiteral("group");

QJsonValue PartOf(const QJsonValue& value, const QString& part)
{
    QJsonValue found = value;
    for (const QString& key : part.split(QLatin1Char('.')))
        found = found.toObject().value(key);
    return found;
}

} // namespace

AnswerRow::AnswerRow(const AnswerGroup& group)
{
    QJsonObject names;
    QStringList parts;
    for (const auto& part : group) {
        if (IsTold(part))
            names.insert(part.first, part.second);
        parts.append(part.first);
    }
    if (!group.empty())
        m_items.push_back({groupKey, names, parts});
}

QJsonObject AnswerRow::ToJson() const
{
    QJsonObject object;
    for (const Item& item : m_items)
        object.insert(item.key, item.value);
    return object;
}

QStringList AnswerRow::Titles() const
{
    QStringList titles;
    for (const Item& item : m_items) {
        if (item.parts.isEmpty())
            titles.append(item.key);
        for (QString part : item.parts)
            titles.append(item.key == groupKey ? part
                                               : item.key + QLatin1Char('_') +
                                                     part.replace(QLatin1Char('.'), QLatin1Char('_')));
    }
    return titles;
}

QList<QJsonValue> AnswerRow::Values() const
{
    QList<QJsonValue> values;
    for (const Item& item : m_items) {
        if (item.parts.isEmpty())
            values.append(item.value);
        for (const QString& part : item.parts)
            values.append(PartOf(item.value, part));
    }
    return values;
}

void PrintJson(const Answer& answer)
{
    for (const AnswerRow& row : answer)
        PrintJsonLine(row.ToJson());
}

} // namespace ZYN::Tool
