#include <ZYNCommon/TestProgram.h>

#include <ZYNCommon/SharedAt.h>
#include <ZYNCommon/TestGroup.h>

namespace ZYN {

TestProgram::TestProgram(long programId, const QString& name, unsigned long checksum)
    : TestComponent(programId, name, ZYN_ADDRESS_PROGRAM, 0)
    , m_checksum(checksum)
{
}

TestProgram::~TestProgram() = default;

int TestProgram::GetGroupCount() const
{
    return static_cast<int>(m_groups.size());
}

const QSharedPointer<TestGroup>& TestProgram::GetGroupForIndex(int index) const
{
    return SharedAt(m_groups, index);
}

int TestProgram::AddGroup(QSharedPointer<TestGroup> group)
{
    if (!group)
        return -1;
    group->m_parent = this;
    m_groups.append(std::move(group));
    return GetGroupCount() - 1;
}

QList<TestComponent*> TestProgram::GetChildren() const
{
    QList<TestComponent*> children;
    children.reserve(m_groups.size());
    for (const auto& group : m_groups)
        children.append(group.data());
    return children;
}

TestProgram* TestProgram::GetTestProgram() const
{
    return const_cast<TestProgram*>(this);
}

QString TestProgram::GetDisplayName() const
{
    return m_displayName.isNull() ? GetName() : m_displayName;
}

QString TestProgram::GetCreator() const
{
    return m_creator;
}

QString TestProgram::GetVersion() const
{
    return m_version;
}

QString TestProgram::GetFileVersion() const
{
    return m_fileVersion;
}

const QFileInfo& TestProgram::GetFileInfo() const
{
    return m_fileInfo;
}

unsigned long TestProgram::GetChecksum() const
{
    return m_checksum;
}

void TestProgram::SetDisplayName(const QString& displayName)
{
    m_displayName = displayName.isNull() ? QLatin1String("") : displayName;
}

void TestProgram::SetCreator(const QString& creator)
{
    m_creator = creator;
}

void TestProgram::SetVersion(const QString& version)
{
    m_version = version;
}

void TestProgram::SetFileVersion(const QString& fileVersion)
{
    m_fileVersion = fileVersion;
}

void TestProgram::SetFileName(const char* fileName)
{
    m_fileInfo = QFileInfo(QString::fromUtf8(fileName));
}

} // namespace ZYN
