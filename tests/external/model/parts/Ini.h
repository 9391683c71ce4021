#pragma once

#include <QtCore/QIODevice>
#include <QtCore/QList>
#include <QtCore/QPair>
#include <QtCore/QString>

namespace ZYN {

/// The named section of an INI file and its properties.
class IniSection {
public:
    QString title;
    QList<QPair<QString, QString>> properties;
};

class IniReader {
public:
    explicit IniReader(QIODevice* device)
        : device(device)
    {
    }
    bool read()
    {
        while (!device->atEnd()) {
            const QString line = QString::fromUtf8(device->readLine()).trimmed();
            if (line.startsWith(u'['))
                sections.append({line.mid(1, line.size() - 2), {}});
            else if (!sections.isEmpty() && line.contains(u'='))
                sections.last().properties.append({line.section(u'=', 0, 0), line.section(u'=', 1)});
        }
        return true;
    }
    QList<IniSection> getAllSections() const { return sections; }
    QString getPropertyValue(const QString& section, const QString& key) const
    {
        for (const IniSection& candidate : sections)
            for (const auto& [name, value] : candidate.properties)
                if (candidate.title == section && name == key)
                    return value;
        return {};
    }

private:
    QIODevice* device;
    QList<IniSection> sections;
};

} // namespace ZYN
