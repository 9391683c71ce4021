#pragma once

#include <ZYNIni/IniSection.h>
#include <ZYNIni/ZYNIniGlobal.h>

#include <QtCore/QByteArrayView>
#include <QtCore/QIODevice>
#include <QtCore/QList>
#include <QtCore/QString>

#include <map>
#include <set>

namespace ZYN {

/// Reads an INI file: `[section]` headers, `key=value` lines, comment lines that begin with ';' or '#',
/// blank lines. UTF-8 with or without a mark; LF or CRLF line ends. Names, keys and values are trimmed;
/// names and keys are case-sensitive. Everything else is a syntax error: a line that is none of these,
/// a key before the first section, a key twice in one section, a section or key without a name, text
/// that is not UTF-8, a NUL byte, a carriage return inside a line, a line of more than
/// `MaximumLineBytes`. Sections of the same name stay apart in the list.
class ZYNINI_EXPORT IniReader {
public:
    static constexpr qint64 MaximumLineBytes = 1024 * 1024;

    /// \param device borrowed; opened read-only by `read` when it is not open
    explicit IniReader(QIODevice* device);
    ~IniReader();

    /// Reads the whole device.
    /// \return false for a device that cannot be read or a syntax error; then there are no sections
    bool read();
    /// Sections in file order.
    QList<IniSection> getAllSections() const;
    /// Value of a key; empty when the section or the key does not exist. Of several sections of that
    /// name, the first that has the key.
    QString getPropertyValue(const QString& section, const QString& key) const;
    /// Line of the fault, from 1; 0 when nothing was wrong or the device could not be read.
    int getErrorLine() const;
    /// What is wrong with that line; empty when nothing is.
    QString getErrorText() const;

private:
    bool readDevice();
    bool readBytes(QByteArrayView line);
    bool readLine(const QString& line);
    bool readHeader(const QString& line);
    bool fail(const QString& text);

    QIODevice* m_device;
    QList<IniSection> m_sections;
    // No hashes: those of Qt end the process when there is no memory for them.
    std::map<QString, std::map<QString, QString>> m_values;
    std::set<QString> m_keys; ///< of the section being read
    int m_line = 0;
    int m_errorLine = 0;
    QString m_errorText;
};

} // namespace ZYN
