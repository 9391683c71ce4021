#pragma once

#include <QtCore/QIODevice>
#include <QtCore/QList>
#include <QtCore/QString>

namespace ZYN {

/// The named section of an INI file.
class IniSection {
public:
    QString title;
};

/// No binning definition is read here: it compiles and links.
class IniReader {
public:
    explicit IniReader(QIODevice*) {}
    bool read() { return false; }
    QList<IniSection> getAllSections() const { return {}; }
    QString getPropertyValue(const QString&, const QString&) const { return {}; }
};

} // namespace ZYN
