// A reader of its own, because the INI libraries at hand do not fit: inih drops sections without keys,
// cuts long lines and joins indented ones; SimpleIni skips what it does not understand, merges sections
// of one name and has to hold the whole file before it looks at its first line.

#include <ZYNIni/IniReader.h>

#include <QtCore/QByteArray>
#include <QtCore/QScopeGuard>
#include <QtCore/QUtf8StringView>

namespace ZYN {

IniReader::IniReader(QIODevice* device)
    : m_device(device)
{
}

IniReader::~IniReader() = default;

bool IniReader::read()
{
    m_sections.clear();
    m_values.clear();
    m_keys.clear();
    m_line = 0;
    m_errorLine = 0;
    m_errorText.clear();
    const bool complete = readDevice();
    if (!complete) {
        m_sections.clear();
        m_values.clear();
    }
    m_keys.clear();
    return complete;
}

bool IniReader::readDevice()
{
    if (!m_device) {
        m_errorText = QStringLiteral("There is no device to read from");
        return false;
    }
    const bool opened = !m_device->isOpen() && m_device->open(QIODevice::ReadOnly);
    const auto close = qScopeGuard([this, opened] {
        if (opened)
            m_device->close();
    });
    if (!m_device->isReadable()) {
        m_errorText = m_device->errorString();
        return false;
    }
    // One buffer for all lines, with room for the line end of the longest; Qt keeps one byte for itself.
    QByteArray buffer(MaximumLineBytes + 3, Qt::Uninitialized);
    for (;;) {
        const qint64 size = m_device->readLine(buffer.data(), buffer.size());
        if (size <= 0)
            break;
        ++m_line;
        if (!readBytes(QByteArrayView(buffer).first(size)))
            return false;
    }
    if (m_device->atEnd())
        return true;
    m_errorText = m_device->errorString();
    return false;
}

bool IniReader::readBytes(QByteArrayView line)
{
    if (line.endsWith('\n'))
        line.chop(1);
    if (line.endsWith('\r'))
        line.chop(1);
    if (line.size() > MaximumLineBytes)
        return fail(QStringLiteral("the line has more than %1 bytes").arg(MaximumLineBytes));
    if (line.contains('\0'))
        return fail(QStringLiteral("the line holds a NUL byte; this is no text file"));
    if (line.contains('\r'))
        return fail(QStringLiteral("the line holds a carriage return; lines end with LF or CRLF"));
    if (!QUtf8StringView(line.data(), line.size()).isValidUtf8())
        return fail(QStringLiteral("the line is not UTF-8"));
    return readLine(QString::fromUtf8(line).trimmed());
}

bool IniReader::readLine(const QString& line)
{
    if (line.isEmpty() || line.startsWith(QLatin1Char(';')) || line.startsWith(QLatin1Char('#')))
        return true;
    if (line.startsWith(QLatin1Char('[')))
        return readHeader(line);
    const qsizetype equals = line.indexOf(QLatin1Char('='));
    if (equals < 0)
        return fail(QStringLiteral("neither '[section]', 'key=value' nor a comment"));
    const QString key = line.first(equals).trimmed();
    if (key.isEmpty())
        return fail(QStringLiteral("there is no key before '='"));
    if (m_sections.isEmpty())
        return fail(QStringLiteral("the key '%1' stands before the first section").arg(key));
    if (m_keys.contains(key))
        return fail(QStringLiteral("the key '%1' stands twice in one section").arg(key));
    m_keys.insert(key);
    // Of sections of one name, the first that has the key.
    m_values[m_sections.constLast().getName()].try_emplace(key, line.sliced(equals + 1).trimmed());
    return true;
}

bool IniReader::readHeader(const QString& line)
{
    if (!line.endsWith(QLatin1Char(']')))
        return fail(QStringLiteral("a section must end with ']'"));
    const QString name = line.sliced(1, line.size() - 2).trimmed();
    if (name.isEmpty())
        return fail(QStringLiteral("the section has no name"));
    m_sections.append(IniSection(name, m_line));
    m_keys.clear();
    return true;
}

bool IniReader::fail(const QString& text)
{
    m_errorLine = m_line;
    m_errorText = text;
    return false;
}

QList<IniSection> IniReader::getAllSections() const
{
    return m_sections;
}

QString IniReader::getPropertyValue(const QString& section, const QString& key) const
{
    const auto values = m_values.find(section);
    if (values == m_values.end())
        return {};
    const auto value = values->second.find(key);
    return value == values->second.end() ? QString() : value->second;
}

int IniReader::getErrorLine() const
{
    return m_errorLine;
}

QString IniReader::getErrorText() const
{
    return m_errorText;
}

} // namespace ZYN
