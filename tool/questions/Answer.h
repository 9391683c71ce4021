#pragma once

#include "archive/Questions.h"

#include <QtCore/QJsonObject>
#include <QtCore/QJsonValue>
#include <QtCore/QList>
#include <QtCore/QStringList>

#include <optional>
#include <vector>

namespace ZYN::Tool {

/// One row of an answer for programs: its keys with their values, in the order that they are told.
class AnswerRow {
public:
    struct Item {
        QString key;
        QJsonValue value;
        /// Of an object, or of a null that may be one: what stands in it, each a column of a CSV file;
        /// "since.lot" is what stands in an object within it.
        QStringList parts = {};
    };

    AnswerRow() = default;
    /// Begins with the names of the group, where there is one.
    explicit AnswerRow(const AnswerGroup& group);

    void Add(const char* key, const QJsonValue& value, const QStringList& parts = {})
    {
        m_items.push_back({QLatin1String(key), value, parts});
    }
    void Add(const char* key, std::int64_t value) { Add(key, QJsonValue(qint64(value))); }
    void Add(const char* key, const std::optional<double>& value)
    {
        Add(key, value ? QJsonValue(*value) : QJsonValue());
    }

    QJsonObject ToJson() const;
    /// As columns of a table, an object's parts each in its own.
    QStringList Titles() const;
    QList<QJsonValue> Values() const;

private:
    std::vector<Item> m_items;
};

using Answer = std::vector<AnswerRow>;

/// One object a line on standard output.
void PrintJson(const Answer& answer);
} // namespace ZYN::Tool
