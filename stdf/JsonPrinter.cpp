#include "JsonPrinter.h"

#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>

#include <charconv>
#include <cmath>

namespace ZYN::Stdf {

namespace {

QByteArray Quoted(const QString& text)
{
    // Escapes as the JSON writer does; the brackets around the only element are taken off.
    const QByteArray array = QJsonDocument(QJsonArray{text}).toJson(QJsonDocument::Compact);
    return array.sliced(1, array.size() - 2);
}

template <class Real>
QByteArray RealText(Real value)
{
    char digits[32];
    const auto end = std::to_chars(std::begin(digits), std::end(digits), value).ptr;
    const QByteArray text(digits, end - digits);
    if (std::isfinite(value))
        return text;
    return std::isnan(value) ? QByteArrayLiteral("\"nan\"") : '"' + text + '"';
}

QByteArray ValueText(const QVariant& value)
{
    switch (value.typeId()) {
    case QMetaType::UnknownType:
        return QByteArrayLiteral("null");
    case QMetaType::Int:
    case QMetaType::UInt:
        return value.toByteArray();
    case QMetaType::Float:
        return RealText(value.toFloat());
    case QMetaType::Double:
        return RealText(value.toDouble());
    case QMetaType::QByteArray:
        return '"' + value.toByteArray().toHex() + '"';
    case QMetaType::QVariantList: {
        QByteArray text;
        for (const QVariant& element : value.toList())
            text += (text.isEmpty() ? QByteArray() : QByteArrayLiteral(",")) + ValueText(element);
        return '[' + text + ']';
    }
    default:
        return Quoted(value.toString());
    }
}

} // namespace

QByteArray ToJsonLine(const RawRecord& raw, const Record& record)
{
    QByteArray line = "{\"offset\":" + QByteArray::number(raw.offset);
    if (!record.type) {
        line += ",\"record\":\"unknown\",\"REC_TYP\":" + QByteArray::number(raw.type) +
                ",\"REC_SUB\":" + QByteArray::number(raw.subType) + ",\"data\":\"" + raw.body.toHex() + '"';
        return line + '}';
    }
    line += QByteArrayLiteral(",\"record\":\"") + record.type->name + '"';
    for (qsizetype i = 0; i < record.values.size(); ++i)
        line += QByteArrayLiteral(",\"") + record.type->fields[static_cast<size_t>(i)].name +
                "\":" + ValueText(record.values.at(i));
    if (!record.problem.isEmpty())
        line += ",\"problem\":" + Quoted(record.problem);
    return line + '}';
}

QByteArray ToJsonLine(const Fault& fault)
{
    return "{\"offset\":" + QByteArray::number(fault.offset) + ",\"error\":" + Quoted(fault.text) + '}';
}

} // namespace ZYN::Stdf
