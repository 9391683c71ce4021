#include "questions/AnswerFile.h"

#include "files/SafeOutput.h"
#include "files/Workbook.h"

#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>

#include <algorithm>

namespace ZYN::Tool {

namespace {

QStringList TitlesOf(const AnswerTable& table)
{
    return (table.answer.empty() ? table.empty : table.answer.front()).Titles();
}

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

QStringList CellsOf(const AnswerRow& row)
{
    QStringList cells;
    for (const QJsonValue& value : row.Values())
        cells.append(CellText(value));
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

QByteArray Csv(const AnswerTable& table)
{
    QString text = LineOf(TitlesOf(table));
    for (const AnswerRow& row : table.answer)
        text += LineOf(CellsOf(row));
    return text.toUtf8();
}

/// Whether a cell is red: what failed, wherever a row counts or tells it.
bool IsBad(const QString& title, const QJsonValue& value, bool rowFailed)
{
    static const QStringList counts = {QStringLiteral("failed"), QStringLiteral("errors"),
                                       QStringLiteral("aborted")};
    static const QStringList verdicts = {QStringLiteral("code"), QStringLiteral("verdict")};
    return verdicts.contains(title) ? rowFailed : counts.contains(title) && value.toDouble() > 0;
}

QList<SheetCell> SheetCellsOf(const AnswerRow& row, const QStringList& titles)
{
    const QList<QJsonValue> values = row.Values();
    const qsizetype code = titles.indexOf(QLatin1String("code"));
    const bool rowFailed = code >= 0 && values.at(code).toDouble() < 0;
    QList<SheetCell> cells;
    for (qsizetype i = 0; i < values.size(); ++i) {
        const QJsonValue& value = values.at(i);
        SheetCell cell{CellText(value), IsBad(titles.at(i), value, rowFailed)};
        if (value.isDouble())
            cell.value = value.toDouble();
        cells.append(cell);
    }
    return cells;
}

std::optional<QString> WriteCsv(const AnswerTable& table, const QString& path)
{
    QFile file(path);
    const QByteArray text = Csv(table);
    if (file.open(QIODevice::WriteOnly) && file.write(text) == text.size() && file.flush())
        return std::nullopt;
    return file.errorString();
}

std::optional<QString> WriteSheet(const AnswerTable& table, const QString& path)
{
    const QStringList titles = TitlesOf(table);
    Workbook workbook(path, table.name, titles);
    for (const AnswerRow& row : table.answer)
        workbook.Add(SheetCellsOf(row, titles));
    return workbook.Close();
}

struct AnswerFormat {
    const char* extension;
    std::optional<QString> (*write)(const AnswerTable& table, const QString& path);
};

constexpr AnswerFormat formats[] = {{"csv", WriteCsv}, {"xlsx", WriteSheet}};

const AnswerFormat* FormatOf(const QString& path)
{
    const QString extension = QFileInfo(path).suffix().toLower();
    const auto* const found = std::ranges::find_if(
        formats, [&](const AnswerFormat& format) { return extension == QLatin1String(format.extension); });
    return found == std::end(formats) ? nullptr : found;
}

} // namespace

bool IsAnswerFile(const QString& path)
{
    return FormatOf(path);
}

std::optional<Problem> WriteAnswer(const AnswerTable& table, const QString& path, bool replace)
{
    SafeOutput output(path, replace);
    if (const std::optional<Problem> refusal = output.Refusal())
        return refusal;
    if (FormatOf(path)->write(table, output.TemporaryName()))
        return output.WriteProblem();
    return output.Commit();
}

} // namespace ZYN::Tool
