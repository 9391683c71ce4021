#pragma once

#include <ZYNCommon/TestComponent.h>

#include <QtCore/QFileInfo>
#include <QtCore/QSharedPointer>

namespace ZYN {

class TestGroup;

/// A test program: an ordered list of groups.
class ZYNCOMMON_EXPORT TestProgram : public TestComponent {
    Q_OBJECT
public:
    /// \param checksum checksum of the program's source; 0 is unknown
    TestProgram(long id, const QString& name, unsigned long checksum);
    ~TestProgram() override;

    int GetGroupCount() const;
    /// The group at an index from 0; null outside the range. Valid until the next one is added.
    const QSharedPointer<TestGroup>& GetGroupForIndex(int index) const;
    /// Appends a group and makes this its program.
    /// \return the index of the group, -1 for null
    int AddGroup(QSharedPointer<TestGroup> group);

    QList<TestComponent*> GetChildren() const override;
    TestProgram* GetTestProgram() const override;

    /// The name for people; the plain name when none was set.
    QString GetDisplayName() const;
    QString GetCreator() const;
    QString GetVersion() const;
    /// Version of the program file's format.
    QString GetFileVersion() const;
    const QFileInfo& GetFileInfo() const;
    unsigned long GetChecksum() const;

    void SetDisplayName(const QString& displayName);
    void SetCreator(const QString& creator);
    void SetVersion(const QString& version);
    void SetFileVersion(const QString& fileVersion);
    /// \param fileName UTF-8; null counts as empty
    void SetFileName(const char* fileName);

private:
    QList<QSharedPointer<TestGroup>> m_groups;
    QString m_displayName;
    QString m_creator;
    QString m_version;
    QString m_fileVersion;
    QFileInfo m_fileInfo;
    unsigned long m_checksum;
};

} // namespace ZYN
