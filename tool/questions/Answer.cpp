#include "questions/Answer.h"

#include "files/SafeOutput.h"
#include "terminal/Terminal.h"

#include <QtCore/QFile>
#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>

#include <algorithm>

namespace ZYN::Tool {

namespace {

const QString groupKey = QStringLiteral("group");

QString CellText(const QJsonValue& value)
{
    if (value.isArray()) {
        QStringList items;
        for (const QJsonValue& item : value.toArray()) {
            // A rule and where it hit: "1@SN-7".
            const QJsonObject hit = item.toObject();
            items.append(
                CellText(hit.value(QLatin1String("rule"))) + QLatin1Char('@') +
                hit.value(QLatin1String("since")).toObject().value(QLatin1String("serial")).toString());
        }
        return items.join(QLatin1Char(' '));
    }
    if (value.isString())
        return value.toString();
    if (value.isNull() || value.isUndefined())
        return {};
    // As JSON writes numbers: the shortest text that reads back exactly.
    const QByteArray text = QJsonDocument(QJsonArray{value}).toJson(QJsonDocument::Compact);
    return QString::fromLatin1(text.mid(1, text.size() - 2));
}

QJsonValue PartOf(const QJsonValue& value, const QString& part)
{
    QJsonValue found = value;
    for (const QString& key : part.split(QLatin1Char('.')))
        found = found.toObject().value(key);
    return found;
}

QStringList TitlesOf(const AnswerRow& row)
{
    QStringList titles;
    for (const AnswerRow::Item& item : row.GetItems()) {
        if (item.parts.isEmpty())
            titles.append(item.key);
        for (QString part : item.parts)
            titles.append(item.key == groupKey ? part
                                               : item.key + QLatin1Char('_') +
                                                     part.replace(QLatin1Char('.'), QLatin1Char('_')));
    }
    return titles;
}

QStringList CellsOf(const AnswerRow& row)
{
    QStringList cells;
    for (const AnswerRow::Item& item : row.GetItems()) {
        if (item.parts.isEmpty())
            cells.append(CellText(item.value));
        for (const QString& part : item.parts)
            cells.append(CellText(PartOf(item.value, part)));
    }
    return cells;
}

QString Quoted(const QString& text)
{
    static const QString special = QStringLiteral(";\"\r\n");
    if (std::none_of(text.begin(), text.end(), [](QChar c) { return special.contains(c); }))
        return text;
    QString quoted = text;
    return QLatin1Char('"') + quoted.replace(QLatin1Char('"'), QLatin1String("\"\"")) + QLatin1Char('"');
}

QString LineOf(const QStringList& texts)
{
    QStringList quoted;
    for (const QString& text : texts)
        quoted.append(Quoted(text));
    return quoted.join(QLatin1Char(';')) + QLatin1Char('\n');
}

QByteArray Csv(const Answer& answer, const AnswerRow& empty)
{
    QString text = LineOf(TitlesOf(answer.empty() ? empty : answer.front()));
    for (const AnswerRow& row : answer)
        text += LineOf(CellsOf(row));
    return text.toUtf8();
}

} // namespace

AnswerRow::AnswerRow(const AnswerGroup& group)
{
    QJsonObject names;
    QStringList parts;
    for (const auto& [name, value] : group) {
        names.insert(name, value);
        parts.append(name);
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

void PrintJson(const Answer& answer)
{
    for (const AnswerRow& row : answer)
        PrintJsonLine(row.ToJson());
}

std::optional<Problem> WriteCsv(const Answer& answer, const AnswerRow& empty, const QString& path,
                                bool replace)
{
    SafeOutput output(path, replace);
    if (const std::optional<Problem> refusal = output.Refusal())
        return refusal;
    QFile file(output.TemporaryName());
    const QByteArray text = Csv(answer, empty);
    if (!file.open(QIODevice::WriteOnly) || file.write(text) != text.size() || !file.flush())
        return output.WriteProblem();
    file.close();
    return output.Commit();
}

} // namespace ZYN::Tool
