#pragma once

#include <ZYNCommon/ManagedObject.h>

namespace ZYN {

/// A test station of the line.
class ZYNCOMMON_EXPORT Station : public ManagedObject {
    Q_OBJECT
public:
    Station(long id, const QString& name);
    ~Station() override;

    QString GetDescription() const;
    void SetDescription(const QString& description);

private:
    QString m_description;
};

} // namespace ZYN
