#pragma once

#include <ZYNCommon/FixtureBase.h>

namespace ZYN {

/// The fixture that contacts the unit under test.
class ZYNCOMMON_EXPORT Fixture : public FixtureBase {
    Q_OBJECT
public:
    Fixture(long id, const QString& name);
    ~Fixture() override;

    QString GetSerialNo() const;
    QString GetFixtureTypeName() const;
    void SetSerialNo(const QString& serialNo);
    void SetFixtureTypeName(const QString& name);

private:
    QString m_serialNo;
    QString m_typeName;
};

} // namespace ZYN
