#pragma once

#include <ZYNCommon/ManagedObject.h>

#include <QtCore/QByteArray>

namespace ZYN {

/// A user of a workspace. The password is kept as a salted hash (SHA-256), never as text.
class ZYNCOMMON_EXPORT ZYNUser : public ManagedObject {
    Q_OBJECT
public:
    explicit ZYNUser(const QString& name);
    ~ZYNUser() override;

    void SetPassword(const QString& password);
    /// A user without a password accepts the empty one only.
    bool CheckPassword(const QString& password) const;

private:
    QByteArray m_salt;
    QByteArray m_passwordHash;
};

} // namespace ZYN
