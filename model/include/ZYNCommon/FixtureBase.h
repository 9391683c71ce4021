#pragma once

#include <ZYNCommon/ManagedObject.h>

namespace ZYN {

/// What every kind of fixture has: an ident and a description.
class ZYNCOMMON_EXPORT FixtureBase : public ManagedObject {
    Q_OBJECT
public:
    FixtureBase(long id, const QString& name);
    ~FixtureBase() override;

    QString GetIdent() const;
    QString GetDescription() const;
    void SetIdent(const QString& ident);
    void SetDescription(const QString& description);

private:
    QString m_ident;
    QString m_description;
};

} // namespace ZYN
