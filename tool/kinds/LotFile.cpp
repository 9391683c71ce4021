#include "kinds/LotFile.h"

#include "kinds/LotOverview.h"
#include "terminal/Terminal.h"
#include "terminal/Texts.h"

#include "stdf/Checker.h"
#include "stdf/JsonPrinter.h"
#include "stdf/TextPrinter.h"

#include <QtCore/QFile>
#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>

namespace ZYN::Tool {

namespace {

constexpr size_t linesAtOnce = 32 * 1024; ///< bytes

Problem CannotRead(const QString& name, const QFile& file)
{
    return {name, 0, Texts::tr("cannot be read: %1").arg(file.errorString()), {}};
}

Problem Damaged(const QString& name, const Stdf::Fault& fault)
{
    return {name, 0, Texts::tr("is damaged at offset %1: %2").arg(QString::number(fault.offset), fault.text),
            Texts::tr("what can be read was shown; zyn check finds all that is wrong")};
}

} // namespace

QString AtOffset(qint64 offset, const QString& why)
{
    return Texts::tr("damaged at offset %1: %2").arg(QString::number(offset), why);
}

std::optional<Problem> ShowLot(const QString& path, const QString& name, const ShowOptions& options)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return CannotRead(name, file);
    Print(Paint(Harmless(name), Style::Bold) + QLatin1Char('\n'));
    Stdf::TextPrinter printer([](const QString& line) { Print(Harmless(line) + QLatin1Char('\n')); },
                              options.failedOnly);
    Stdf::Reader reader(&file);
    for (Stdf::RawRecord raw; reader.Next(raw);)
        printer.Take(raw, Stdf::Decode(raw, reader.IsBigEndian()));
    printer.Finish(reader);
    PrintLotOverview(path, options.withMap);
    return printer.GetDamage() ? std::optional(Damaged(name, *printer.GetDamage())) : std::nullopt;
}

std::optional<Problem> PrintLotJson(const QString& path, const QString& name, const ShowOptions& options)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return CannotRead(name, file);
    const QByteArray quoted =
        HarmlessJson(QJsonDocument(QJsonArray{name}).toJson(QJsonDocument::Compact)).toUtf8();
    const QByteArray start = "{\"file\":" + quoted.sliced(1, quoted.size() - 2) + ',';
    std::optional<Stdf::Fault> damage;
    Stdf::Reader reader(&file);
    std::string lines;
    const auto print = [&lines] {
        PrintBytes(lines);
        lines.clear();
    };
    for (Stdf::RawRecord raw; reader.Next(raw);) {
        if (options.failedOnly) {
            const Stdf::Record record = Stdf::Decode(raw, reader.IsBigEndian());
            damage = damage ? damage : record.Damage();
            if (!record.HasFailed())
                continue;
        }
        lines.append(start.constData(), size_t(start.size()));
        const std::optional<Stdf::Fault> found = Stdf::AppendJson(lines, raw, reader.IsBigEndian());
        lines += '\n';
        damage = damage ? damage : found;
        if (lines.size() >= linesAtOnce)
            print();
    }
    print();
    if (const auto& fault = reader.GetFault()) {
        PrintJsonLine(start + Stdf::ToJsonLine(*fault).sliced(1));
        damage = damage ? damage : fault;
    }
    return damage ? std::optional(Damaged(name, *damage)) : std::nullopt;
}

QList<Finding> CheckLot(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {{.text = Texts::tr("cannot be read: %1").arg(file.errorString())}};
    Stdf::Checker checker;
    Stdf::Reader reader(&file);
    for (Stdf::RawRecord raw; reader.Next(raw);)
        checker.Take(raw, reader.IsBigEndian());
    checker.Finish(reader);
    QList<Finding> findings;
    for (const Stdf::Finding& finding : checker.GetFindings())
        findings.append({.isError = finding.isError, .text = finding.text, .offset = finding.offset});
    return findings;
}

} // namespace ZYN::Tool
