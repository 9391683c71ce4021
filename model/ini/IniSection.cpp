#include <ZYNIni/IniSection.h>

namespace ZYN {

IniSection::IniSection(const QString& name, int line)
    : m_name(name)
    , m_line(line)
{
}

QString IniSection::getName() const
{
    return m_name;
}

int IniSection::getLine() const
{
    return m_line;
}

} // namespace ZYN
