#pragma once

#include "support/Files.h"

#include "stdf/Checker.h"

/// Lot files of the tests: reading them to the end with the independent reader.
namespace ZYN::LotFiles {

struct Contents {
    QList<Stdf::Record> records;
    QList<Stdf::Finding> findings;
    std::optional<Stdf::Fault> fault;

    QList<Stdf::Record> Of(const char* name) const
    {
        QList<Stdf::Record> found;
        for (const Stdf::Record& record : records) {
            if (record.Is(name))
                found.append(record);
        }
        return found;
    }
    /// "FAR MIR PIR PTR ..."
    QString Names() const
    {
        QStringList names;
        for (const Stdf::Record& record : records)
            names.append(record.type ? QLatin1StringView(record.type->name) : QLatin1StringView("?"));
        return names.join(u' ');
    }
    /// PART_IDs in file order.
    QStringList PartIds() const
    {
        QStringList idents;
        for (const Stdf::Record& part : Of("PRR"))
            idents.append(part.Text("PART_ID"));
        return idents;
    }
    /// Texts of the faults, one a line; empty for a good file.
    QString Faults() const
    {
        QString text;
        for (const Stdf::Finding& finding : findings) {
            if (finding.isError)
                text += QStringLiteral("%1: %2\n").arg(QString::number(finding.offset), finding.text);
        }
        return text;
    }
};

inline Contents Read(QIODevice* device)
{
    Contents contents;
    Stdf::Reader reader(device);
    Stdf::Checker checker;
    for (Stdf::RawRecord raw; reader.Next(raw);) {
        contents.records.append(Stdf::Decode(raw, reader.IsBigEndian()));
        checker.Take(raw, reader.IsBigEndian());
    }
    checker.Finish(reader);
    contents.findings = checker.GetFindings();
    contents.fault = reader.GetFault();
    return contents;
}

inline Contents Read(const QString& fileName)
{
    QFile file(fileName);
    return file.open(QIODevice::ReadOnly) ? Read(&file) : Contents();
}

} // namespace ZYN::LotFiles
