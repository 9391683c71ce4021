#pragma once

#include <ZYNIni/ZYNIniGlobal.h>

#include <QtCore/QString>

namespace ZYN {

/// A section of an INI file.
class ZYNINI_EXPORT IniSection {
public:
    IniSection(const QString& name, int line);
    QString getName() const;
    /// Line of the section's header, from 1.
    int getLine() const;

private:
    QString m_name;
    int m_line;
};

} // namespace ZYN
