#pragma once

#include <ZYNCommon/ManagedObject.h>

namespace ZYN {

/// A production lot; its name is the lot number.
class ZYNCOMMON_EXPORT ProductionLot : public ManagedObject {
    Q_OBJECT
public:
    ProductionLot(long id, const QString& name);
    ~ProductionLot() override;

    QString GetOrderCode() const;
    void SetOrderCode(const QString& orderCode);
    /// Whether there is a lot number.
    bool IsValid() const override;

private:
    QString m_orderCode;
};

} // namespace ZYN
